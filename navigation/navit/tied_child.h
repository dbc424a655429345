// A program that lives no longer than this process.
#pragma once

#include <QProcess>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vk {

/// The kernel ends it when this process ends, however that comes. What it says on its error stream
/// is dropped. On the user-interface thread; destroying it ends the program,
/// by force when it does not go within a third of a second. Not to be destroyed while it tells.
class TiedChild {
  public:
    TiedChild();
    ~TiedChild();
    TiedChild(const TiedChild&) = delete;
    TiedChild& operator=(const TiedChild&) = delete;

    /// `environment` is set beside our own. A failure is told by `onEnded`.
    void Start(const std::string& program, const std::vector<std::string>& arguments,
               const std::vector<std::pair<std::string, std::string>>& environment);
    bool Running() const { return process_->state() != QProcess::NotRunning; }
    /// Its number; 0 when it does not run.
    long Id() const { return static_cast<long>(process_->processId()); }
    /// Asks it to end.
    void Close() { process_->terminate(); }
    /// Ends it without asking.
    void Kill() { process_->kill(); }

    /// Neither may destroy this object.
    std::function<void(std::string_view bytes)> onOutput;
    std::function<void()> onEnded;

  private:
    QProcess* process_; // it may outlive this when the system does not let go of it
};

} // namespace vk
