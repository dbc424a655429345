// Explorer and what may stand in its place.
#pragma once

#include "platform/desktop.h"
#include "platform/programs.h"

#include <string>

namespace vk {

class Win32Desktop : public Desktop {
  public:
    /// `program` is the system's own, with its path.
    Win32Desktop(Programs& programs, std::string program)
        : programs_(programs), program_(std::move(program)) {}

    /// Key shell of section boot of system.ini.
    bool IsShell() const override;
    bool SetShell(bool on) override;
    bool HasAnotherShell() const override { return !IsShell(); }
    void AskAutoPlay(std::function<void(std::optional<std::int32_t>)> told) override;
    bool SetAutoPlay(std::int32_t value) override;
    bool AutoPlayWaitsForStart() const override { return true; }
    bool OpenExplorer() override;

  private:
    Programs& programs_;
    std::string program_;
};

} // namespace vk
