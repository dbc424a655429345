// The desktop by the freedesktop.org conventions, removable media as GNOME, Cinnamon and MATE open
// them.
#pragma once

#include "platform/child_process.h"
#include "platform/desktop.h"
#include "platform/programs.h"

#include <memory>
#include <string>
#include <vector>

namespace vk {

class LinuxDesktop : public Desktop {
  public:
    /// Where it finds what it needs.
    struct Places {
        std::string program;      ///< the system's own, with its path
        std::string configFolder; ///< $XDG_CONFIG_HOME or ~/.config
        std::string home;
        std::string session = {}; ///< $XDG_CURRENT_DESKTOP
        std::string gsettings = "/usr/bin/gsettings";
        std::string opener = "/usr/bin/xdg-open";
    };
    LinuxDesktop(Programs& programs, MakeChildProcess child, Places places)
        : programs_(programs), makeChild_(std::move(child)), places_(std::move(places)) {}

    /// An entry of the autostart folder (freedesktop.org, Desktop Application Autostart).
    bool IsShell() const override;
    bool SetShell(bool on) override;
    bool HasAnotherShell() const override { return !places_.session.empty(); }
    void AskAutoPlay(std::function<void(std::optional<std::int32_t>)> told) override;
    bool SetAutoPlay(std::int32_t value) override;
    bool AutoPlayWaitsForStart() const override { return false; }
    bool OpenExplorer() override;

  private:
    void AskSchema(std::size_t number);
    std::string Entry() const;

    Programs& programs_;
    MakeChildProcess makeChild_;
    Places places_;
    mutable std::optional<bool> shell_;   ///< pages ask with each drawing; nothing: not looked yet
    std::unique_ptr<ChildProcess> child_; ///< the question that is under way
    std::function<void(std::optional<std::int32_t>)> told_;
    std::string answer_, schema_; ///< the schema that is there
};

/// The places of the user and the program that run.
LinuxDesktop::Places UsersPlaces();

} // namespace vk
