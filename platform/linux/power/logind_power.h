// The machine's power by logind
// (https://www.freedesktop.org/software/systemd/man/latest/org.freedesktop.login1.html).
#pragma once

#include "platform/linux/dbus/dbus_link.h"
#include "platform/linux/descriptor.h"
#include "platform/power.h"

#include <QObject>

namespace vk {

/// A delay inhibitor makes logind wait, some seconds at most, until sleep and shutdown are
/// prepared.
class LogindPower : public Power {
  public:
    /// `bus` outlives this object.
    explicit LogindPower(DBusLink& bus);
    void Listen() override;
    void Ask(PowerWish wish, Answer answer) override;
    /// The machine waits for this process, as far as logind has said so.
    bool Holding() const { return static_cast<bool>(inhibitor_); }

  private:
    void Connected();
    void Inhibit();
    void Take(sd_bus_message* reply, const std::string& error);
    void PrepareForSleep(bool begins);
    void PrepareForShutdown(bool begins);
    void Problem(const std::string& text) const {
        if (onProblem) onProblem(text);
    }

    DBusLink& bus_;
    QObject events_; ///< carries what is told out of the bus's own calls
    FileDescriptor inhibitor_;
    bool listening_ = false, heard_ = false, asleep_ = false;
    int asked_ = 0; ///< inhibitors that are on their way
};

} // namespace vk
