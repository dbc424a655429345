// A program of ours that works for this process and talks to it over its standard streams.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// One child, started once. All on the user-interface thread; what the child says arrives while
/// events run. Destroying it ends the child: its input is closed, and when it has not ended half a
/// second later it is killed. Its errors go where ours go.
class ChildProcess {
  public:
    virtual ~ChildProcess() = default;
    /// `program` is a full path. A failure is told by `onEnded`, now or later.
    virtual void Start(const std::string& program, const std::vector<std::string>& arguments) = 0;
    /// Kept until the child takes it.
    virtual void Write(std::string_view bytes) = 0;
    /// The child finds the end of its input behind all that was written.
    virtual void CloseInput() = 0;
    /// Ends it without asking; `onEnded` follows.
    virtual void Kill() = 0;

    /// Told as `onEnded`'s code when there was nothing to start.
    static constexpr int NotStarted = -1;

    /// What it says, in pieces of any length. Each may destroy this object.
    std::function<void(std::string_view bytes)> onOutput;
    /// It has ended with this code, and all that it said has been told.
    std::function<void(int code)> onEnded;
};

/// Makes a child that has not been started.
using MakeChildProcess = std::function<std::unique_ptr<ChildProcess>()>;

} // namespace vk
