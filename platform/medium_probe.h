// Whether a file or folder is still there, asked without waiting for a medium that hangs.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace vk {

/// One question at a time.
class MediumProbe {
  public:
    virtual ~MediumProbe() = default;
    /// Asks about a path; an answer that is still out is waited for no more.
    virtual void Ask(const std::string& path) = 0;
    /// Nothing as long as the medium has not answered.
    virtual std::optional<bool> Answer() const = 0;
};

/// Asks the file system on a thread of its own. A question that never comes back keeps its thread,
/// and nothing else.
std::unique_ptr<MediumProbe> MakeMediumProbe();

} // namespace vk
