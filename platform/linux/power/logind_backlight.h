// Backlights of /sys/class/backlight, set by logind: the files are the administrator's.
#pragma once

#include "platform/backlight.h"
#include "platform/linux/dbus/dbus_link.h"

#include <string>

namespace vk {

class LogindBacklight : public Backlight {
  public:
    /// `bus` outlives this object; `folder` is where the kernel shows the panels.
    explicit LogindBacklight(DBusLink& bus, std::string folder = "/sys/class/backlight")
        : bus_(bus), folder_(std::move(folder)) {}
    std::vector<PanelLight> Read() const override;
    void Set(const std::string& panel, int level,
             std::function<void(const std::string&)> answer) override;

  private:
    DBusLink& bus_;
    const std::string folder_;
};

} // namespace vk
