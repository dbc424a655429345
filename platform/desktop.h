// The desktop around the system: what starts when the user logs in, what opens removable media, and
// the user's files in the desktop's own way.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace vk {

/// Each operation but those that say so returns at once. All on the user-interface thread.
class Desktop {
  public:
    /// Numbers of Windows' value NoDriveTypeAutoRun, which the other platforms' adapters translate.
    static constexpr std::int32_t NothingOpens = 255, UsualOpens = 145;

    virtual ~Desktop() = default;
    /// True when the system is what starts at the user's login.
    virtual bool IsShell() const = 0;
    /// Has it start then, or no longer; false when that could not be written.
    virtual bool SetShell(bool on) = 0;
    /// False when nothing but an empty screen is left when the system ends.
    virtual bool HasAnotherShell() const = 0;
    /// Asks which media the desktop opens by itself, `NothingOpens` for none; `told` is called
    /// later, with nothing when no desktop here does such things. Asking again, or destroying this,
    /// forgets the question before.
    virtual void AskAutoPlay(std::function<void(std::optional<std::int32_t>)> told) = 0;
    /// False when it could not be written.
    virtual bool SetAutoPlay(std::int32_t value) = 0;
    /// What `SetAutoPlay` wrote counts when the machine has been started anew.
    virtual bool AutoPlayWaitsForStart() const = 0;
    /// Shows the user's files; false when there is no program for that.
    virtual bool OpenExplorer() = 0;
};

} // namespace vk
