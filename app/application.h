// The composition root: makes ports, state, logic and screens, and owns them all.
#pragma once

#include "app/host_window.h"
#include "app/touch_filter.h"
#include "browser/screen/playlists.h"
#include "core/app_state.h"
#include "core/base.h"
#include "core/file_registry.h"
#include "core/screens.h"
#include "core/settings.h"
#include "home/daylight.h"
#include "home/screen/velkorandum.h"
#include "input/input_router.h"
#include "input/key_map.h"
#include "input/new_screen.h"
#include "input/remote/remote.h"
#include "library/browser_state.h"
#include "library/catalogue/updates.h"
#include "library/channels/channel_table.h"
#include "library/media_tags.h"
#include "library/tags/tag_reader.h"
#include "platform/linux/processes.h"
#include "platform/linux/sound/alsa_input.h"
#include "platform/linux/sound/alsa_mixer.h"
#include "platform/linux/volumes.h"
#include "platform/qt/qt_beeper.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_fonts.h"
#include "platform/qt/qt_locale.h"
#include "platform/qt/qt_ui_thread.h"
#include "platform/qt/qt_window_layer.h"
#include "playback/audio_state.h"
#include "playback/c_volume.h"
#include "playback/screen/playmp3.h"
#include "playback/video_state.h"
#include "settings/screen/keyboard_page.h"
#include "settings/screen/remote_page.h"
#include "settings/screen/settings_screen.h"
#include "skin/controls/black_background.h"
#include "skin/controls/picture_cache.h"
#include "skin/dialogs/skin_dialogs.h"
#include "startup/astart.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// One a process. Needs a QApplication around it.
class Application {
  public:
    /// `appDir` is where all files of the system lie.
    explicit Application(const std::string& appDir);
    ~Application();

    /// The start; false when the process is to end at once.
    bool Start();
    /// Ends the event loop in good order; `osShutdown` when the operating system wants it.
    void Quit(bool osShutdown);

  private:
    ScreenLoader MakeLoader();
    Remote::Needs RemoteNeeds();
    InputRouter::Needs RouterNeeds();
    astart::Needs StartNeeds();
    MainMenu::Needs MenuNeeds();
    BrowserNeeds BrowserScreenNeeds();
    AudioPlayer::Needs PlayerNeeds();
    SettingsShell::Needs ShellNeeds();
    CatalogueUpdates::Needs UpdateNeeds();
    CatalogueHooks MakeCatalogueHooks();
    void ReferenceServer(const std::string& program);
    std::vector<CatalogueRow> Query(const std::string& sql);
    void LoadSettingsScreen();
    void LoadSettingsPages();
    RemoteLearning::Needs LearningNeeds();
    bool UnloadSettingsScreen();
    void UnloadScreens();
    void PowerAction();
    /// The one object for the sound card, made by the first screen that needs it.
    cVolume& Volume();
    void SoundCardChanged(bool present);
    void LogSoundCard(const std::string& text);

    // Ports.
    QtClock clock_;
    Pump pump_{clock_};
    QtUiThread uiThread_;
    QtLocaleInfo locale_;
    QtFonts fonts_;
    QtBeeper beeper_;
    LinuxVolumes volumes_;
    LinuxProcesses processes_;
    FileRegistry registry_{UserRegistryFile()};
    HostWindow host_;
    QtWindowLayer window_{host_};
    SkinDialogs dialogs_{&host_, volumes_, clock_, pump_};
    AlsaMixer mixer_{{.onChange = [this](bool present) { SoundCardChanged(present); },
                      .log = [this](const std::string& text) { LogSoundCard(text); }}};
    AlsaInput soundInput_;
    std::unique_ptr<PlayerWindow> playerWindow_ = MakePlayerWindow();

    // State and the lower layer.
    DebugLog log_;
    ErrorReport report_{log_, dialogs_};
    AppState state_;
    QueuedFileWriter fileWriter_;
    Ini ini_{state_.DecimalSymbol, report_, fileWriter_};
    SettingsStore settings_;
    Screens screens_;
    Commands commands_{pump_, screens_, clock_};
    Base base_{state_,    settings_, log_,     report_, clock_,  pump_,
               commands_, screens_,  dialogs_, window_, locale_, volumes_};
    NewScreen newScreen_{screens_, clock_};
    TouchFilter touches_{newScreen_};
    SkinStore skin_;
    KeyMap keys_;
    MediaExtensions extensions_;
    RemoteMap remoteKeys_;
    Remote remote_{RemoteNeeds()};
    InputRouter input_{RouterNeeds()};
    AudioState audio_;
    BrowserState browser_;
    VideoState video_;
    ChannelTable channels_;
    ID3 tagReader_{TagPorts{log_, dialogs_}, state_.DecimalSymbol};
    modDB db_{{state_, extensions_, settings_, report_, tagReader_}};
    CatalogueUpdates updates_{UpdateNeeds()};
    MediaTags tags_{extensions_, tagReader_, &db_};
    Daylight daylight_{{state_, settings_, clock_, screens_, skin_, {}}};

    std::unique_ptr<cVolume> volume_;

    // Screens.
    PictureCache pictures_{skin_};
    ControlContext controls_{state_, settings_.values, skin_, pictures_, clock_, pump_, commands_};
    BlackBackground background_{screens_, skin_, &host_};
    ScreenLoader loader_{MakeLoader()};
    astart start_{StartNeeds()};
    std::unique_ptr<DB_OBJ> server_;
    std::unique_ptr<velkorandum> menuScreen_;
    std::unique_ptr<playlists> browserScreen_;
    std::unique_ptr<playmp3> playerScreen_;
    QPointer<settings> settingsScreen_;
    std::unique_ptr<settingsKeyboard> keyboardPage_;
    std::unique_ptr<settingsRemote> remotePage_;
    bool ending_ = false;
};

} // namespace vk
