// The ports of the system on Linux.
#pragma once

#include "app/host/ports.h"
#include "core/file_registry.h"
#include "navigation/navit/navit_engine.h"
#include "platform/linux/linux_desktop.h"
#include "platform/linux/power/idle_inhibitor.h"
#include "platform/linux/power/logind_backlight.h"
#include "platform/linux/power/logind_power.h"
#include "platform/linux/sound/alsa_input.h"
#include "platform/linux/sound/alsa_mixer.h"
#include "platform/linux/sound/alsa_route.h"
#include "platform/linux/volumes.h"
#include "platform/paths.h"
#include "platform/qt/qt_beeper.h"
#include "platform/qt/qt_child_process.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_fonts.h"
#include "platform/qt/qt_locale.h"
#include "platform/qt/qt_screen_saver.h"
#include "platform/qt/qt_ui_thread.h"
#include "platform/serial_owners.h"
#include "platform/user_folders.h"

#include <memory>
#include <string>

namespace vk {

/// Owns them; one a process, made on the user-interface thread behind the QApplication.
class LinuxPorts {
  public:
    /// `appDir` is the application directory: its player alone is talked to, and its libraries
    /// come before the system's.
    explicit LinuxPorts(const std::string& appDir);
    Ports ports();

  private:
    std::unique_ptr<SentenceFeed> MakeFeed(const std::string& source,
                                           const std::string& serialSettings);
    void SoundCardChanged(bool present);
    void LogSoundCard(const std::string& text);

    std::string appDir_;
    QtClock clock_;
    QtUiThread uiThread_;
    QtLocaleInfo locale_;
    QtFonts fonts_;
    QtBeeper beeper_;
    LinuxVolumes volumes_;
    std::unique_ptr<Programs> programs_ =
        MakePrograms(JoinPath(FindFolders(appDir_).state, "started.dat"));
    std::unique_ptr<InstanceLock> instance_ = MakeInstanceLock();
    SerialOwners serialOwners_;
    FileRegistry registry_{UserRegistryFile()};
    LinuxDesktop desktop_{*programs_, [] { return std::make_unique<QtChildProcess>(); },
                          UsersPlaces()};
    SoundCardListener listener_;
    AlsaMixer mixer_{{.onChange = [this](bool present) { SoundCardChanged(present); },
                      .log = [this](const std::string& text) { LogSoundCard(text); }}};
    AlsaInput soundInput_;
    DBusLink bus_;
    LogindPower power_{bus_};
    LogindBacklight backlight_{bus_};
    std::unique_ptr<Gamma> gamma_ = MakeGamma();
    AlsaRoute route_;
    QtScreenSaver saver_;
    IdleInhibitor idle_{saver_, SessionBusAddress()};
    std::unique_ptr<MediumProbe> probe_ = MakeMediumProbe();
    std::unique_ptr<PlayerWindow> player_;
    std::unique_ptr<ForeignWindows> mapWindows_;
    NavitEngine navigation_;
};

} // namespace vk
