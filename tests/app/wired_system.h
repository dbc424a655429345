// The real wiring on a machine of fakes.
#pragma once

#include "app/application.h"
#include "core/file_registry.h"
#include "core/version.h"
#include "platform/qt/qt_child_process.h"
#include "tests/sim/fake_navigation_engine.h"
#include "tests/sim/fake_windows.h"
#include "tests/sim/recording_player.h"
#include "tests/sim/recording_programs.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_media_player.h"
#include "tests/support/fake_mixer.h"
#include "tests/support/fake_radio.h"
#include "tests/support/fake_serial_port.h"
#include "tests/support/fakes.h"
#include "tests/support/machine_fakes.h"
#include "tests/support/mouse.h"
#include "tests/support/power_fakes.h"
#include "tests/support/temp_folder.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

#include <memory>
#include <string>
#include <utility>

namespace vk::test {

/// Tells of every look at the machine, which is where a test may break in.
class WatchedPlayer : public RecordingPlayer {
  public:
    WindowHandle FindWindow(const std::string& windowClass) override {
        if (onLook) onLook();
        return RecordingPlayer::FindWindow(windowClass);
    }
    std::function<void()> onLook;
};

struct FakeMachine {
    FakeMachine() {
        clock.onEvents = [this] {
            QCoreApplication::processEvents();
            if (onEvents) onEvents();
        };
    }
    Ports ports() {
        return {
            .machine = {clock, ui, locale, volumes, programs, instance,
                        [] { return std::make_unique<QtChildProcess>(); }, registry, desktop,
                        [this](const std::string&) {
                            Look();
                            return std::string();
                        }},
            .screen = {fonts,
                       [this] {
                           Look();
                           return ScreenMetrics{800, 480, 96, 96};
                       },
                       [this] {
                           auto made = std::make_unique<FakeForeignWindows>();
                           windows = made.get();
                           return made;
                       }},
            .sound = {mixer, input, player, beeper, listener},
            .remote = {.serial =
                           [this] {
                               auto made = std::make_unique<FakeSerialPort>();
                               serial = made.get();
                               return made;
                           },
                       .stream =
                           [this] {
                               auto made = std::make_unique<FakeLocalStream>();
                               stream = made.get();
                               return made;
                           },
                       .x10 = {},
                       .uuirt = {}},
            .vehicle = {power, &gamma, &backlight},
            .tuners = {.radio = [this](std::string& reason) { return MakeRadio(reason); },
                       .serial =
                           [this] {
                               auto made = std::make_unique<FakeSerialPort>();
                               xmPort = made.get();
                               return made;
                           },
                       .serialList = [this] { return serialPorts; },
                       .route = route},
            .navigation = {engine},
            .films = {
                .player = [this](std::string&) { return std::make_unique<FakeMediaPlayer>(film); },
                .saver = saver,
                .probe = probe}};
    }
    std::unique_ptr<Radio> MakeRadio(std::string& reason) {
        if (radio) return std::make_unique<RadioLink>(*radio);
        reason = "no library";
        return nullptr;
    }
    void Look() {
        if (player.onLook) player.onLook();
    }

    TempFolder dir;
    FakeClock clock;
    FakeUiThread ui;
    FakeLocale locale;
    FakeVolumes volumes;
    FakeFonts fonts;
    RecordingPrograms programs;
    FakeInstance instance;
    FileRegistry registry{dir.File("registry.ini")};
    FakeDesktop desktop;
    WatchedPlayer player;
    FakeMixer mixer;
    FakeWaveInput input;
    SilentBeeper beeper;
    SoundCardListener listener;
    FakePower power;
    FakeGamma gamma;
    FakeBacklight backlight;
    FakeSerialPort* serial = nullptr; ///< the one made last, as long as that is there
    FakeRadio* radio = nullptr;       ///< null: there is no library
    FakeSerialPort* xmPort = nullptr;
    SerialList serialPorts;
    FakeSoundRoute route;
    FakeNavigationEngine engine;
    FakeFilm film;
    FakeScreenSaver saver;
    FakeMediumProbe probe;
    FakeForeignWindows* windows = nullptr; ///< of who asked for them last
    FakeLocalStream* stream = nullptr;     ///< of the remote, as long as that is open
    std::function<void()> onEvents;        ///< runs whenever the system lets events run
};

/// An application directory that has been through its first run: a menu of two tiles, the browser
/// and the player's list, and three songs.
class WiredSystem : public FakeMachine {
  public:
    WiredSystem() {
        dir.Write("skins/Torque.skn",
                  "[Colors]\n[DMFS]\nitemindex=1\n[IconNames]\nNames=a b\n"
                  "[a]\nfunction=2\nof_right=2\nicontop=0.1\niconleft=0.1\niconheight=0.4\n"
                  "iconwidth=0.3\n[b]\nfunction=1\nof_left=1\nicontop=0.1\niconleft=0.5\n"
                  "iconheight=0.4\niconwidth=0.3\n");
        dir.Write("DB_UPDATE", "");
        registry.SetStringValue(Hive::ClassesRoot, "DB_UPDATE.clsDB", "", dir.File("DB_UPDATE"));
        for (const char* song : {"Anna - One", "Berta - Two", "Clara - Three"})
            dir.Write("media/" + std::string(song) + ".mp3", "no tag");
        dir.MakeFolder("media/lists");
        WriteSettings("true");
        dir.Write("keys.ini", "[remote_keys]\nok=OK\nquit=BACK\nup=UP\ndown=DOWN\npower=OFF\n");
        player.answer = [this](const auto& message) { return Answer(message); };
    }
    void WriteSettings(const std::string& setup) {
        dir.Write("settings.ini",
                  "[main]\nVersion=" + std::string(Version) + "\nSetup=" + setup +
                      "\nmanualdb=true\nMediaDir=" + dir.File("media") +
                      "\nPlaylistDir=" + dir.File("media/lists") +
                      "\nTime1=8:00:00 AM\nTime2=9:00:00 PM\nUseAnimation=true\nAppSize=0\n"
                      "[audio_player]\nAudioExtensions=MP3\n"
                      "[remote]\nstatus=true\ntype=LIRC\n");
    }
    /// The system, not started.
    Application& Make() {
        exits = 0;
        app.reset();
        app = std::make_unique<Application>(dir.Path(), ports(), [this] { ++exits; });
        return *app;
    }
    /// Lets time pass, and what Qt has pending be done before and after.
    void Pass(int milliseconds) {
        QCoreApplication::processEvents();
        clock.Advance(milliseconds);
        QCoreApplication::processEvents();
    }
    Host& host() { return app->host(); }
    std::string Front() { return host().screens.CurrentForm.Text(); }
    void Key(int key, int heldMs = 0) {
        QWidget* focus = QApplication::focusWidget();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(focus ? focus : &host().window, &event);
            if (heldMs > 0) Pass(heldMs);
        }
    }
    /// A button of the remote; `count` above 0 while it is held.
    void Remote(const std::string& button, int count = 0) {
        if (stream && stream->onBytes)
            stream->onBytes("0000 " + std::to_string(count) + " " + button + " any\n");
    }
    std::size_t Logged(const std::string& text) const {
        const std::string log = dir.Read("debug.log");
        std::size_t found = 0;
        for (auto at = log.find(text); at != std::string::npos; at = log.find(text, at + 1))
            ++found;
        return found;
    }

    bool playing = false;
    int exits = 0; ///< how often the event loop was left
    std::unique_ptr<Application> app;

  private:
    // As far as the screens ask: whether it plays.
    std::int32_t Answer(const RecordingPlayer::Message& message) {
        if (message.message == WM_COMMAND && message.wParam == WinampPlay) playing = true;
        if (message.message == WM_COMMAND && message.wParam == WinampStop) playing = false;
        return message.message == WM_USER && message.lParam == 104 && playing ? 1 : 0;
    }
};

} // namespace vk::test
