// The vehicle on the real wiring: sleep from everywhere, the ignition, the machine's end, the dim.
#include "tests/app/wired_system.h"
#include "tests/sim/xm/sim_receiver.h"

#include <gmock/gmock.h>
#include <malloc.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <tuple>

static std::atomic<int> flushes = 0;

/// Counts how often the disk is waited for.
extern "C" int fsync(int file) {
    ++flushes;
    return static_cast<int>(::syscall(SYS_fsync, file));
}

namespace vk::test {
namespace {

using testing::ElementsAre;

/// What logind waits for, 5 s, and half of it on a disk that takes 100 ms a flush.
constexpr int MostFlushes = 5000 / 2 / 100;

/// A player process that keeps time, and pauses by a toggle as the real one does.
class KeepingPlayer {
  public:
    explicit KeepingPlayer(const Clock& clock) : clock_(clock) {}
    std::int32_t operator()(const RecordingPlayer::Message& message) {
        if (message.message == WM_COMMAND) return Command(message.wParam), 0;
        if (message.message != WM_USER) return 0;
        if (message.lParam == 104) return status;
        if (message.lParam == 105) return message.wParam == 0 ? static_cast<int>(Ms()) : 600;
        if (message.lParam == 106) base_ = message.wParam, since_ = clock_.TickMs();
        if (message.lParam == 121) track = message.wParam;
        return message.lParam == 125 ? track : 0;
    }
    std::int64_t Ms() const { return base_ + (status == 1 ? clock_.TickMs() - since_ : 0); }

    int status = 0; ///< 1 plays, 3 paused
    int track = 0;
    int restarts = 0; ///< told to play while it played

  private:
    void Command(std::int32_t id) {
        const std::int64_t now = Ms();
        if (id == WinampPlay) {
            if (status == 1) ++restarts;
            base_ = status == 3 ? now : 0;
            status = 1;
        } else if (id == WinampPause) {
            base_ = now;
            status = status == 1 ? 3 : status == 3 ? 1 : 0;
        } else if (id == WinampStop) {
            base_ = status = 0;
        }
        since_ = clock_.TickMs();
    }
    const Clock& clock_;
    std::int64_t base_ = 0, since_ = 0;
};

std::int64_t Entries(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

struct VehicleTest : testing::Test, WiredSystem {
    VehicleTest() {
        player.answer = [this](const auto& message) { return winamp(message); };
    }
    void Begin(const std::string& more = "[AccControl]\naccSensePort=2\naccOffDelay=60\n") {
        const std::string settings = dir.Read("settings.ini");
        dir.Write("settings.ini", "[main]\nAutoDimScreen=true\n" + settings.substr(7) + more);
        Make();
        hosted = windows; // asked for as it was made
        xmPort->onOutput = [this](std::string_view bytes) { xm.Hear(bytes); };
        ASSERT_TRUE(app->Start());
        Pass(1000);
    }
    void Press(std::initializer_list<int> keys) {
        for (const int key : keys)
            Key(key), Pass(400);
    }
    /// From the menu to the player, a song on.
    void PlaySong() {
        Press({Qt::Key_Return});
        Pass(1000);
        Press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
        Pass(3000);
        ASSERT_EQ(Front(), "playmp3");
        ASSERT_EQ(winamp.status, 1);
    }
    /// To where a cycle is to begin, by the keys of a driver.
    void GoTo(const std::string& screen) {
        for (int i = 0; i < 5 && Front() != HomeScreen; ++i)
            Press({Qt::Key_Escape}), Pass(1000);
        if (screen == "playmovie") return ShowFilm();
        if (screen != HomeScreen && screen != "alone" && screen != "settings") PlaySong();
        host().keys[Action::MP3toRadio] = std::to_string('R'); // the settings read the keys anew
        const auto tuner = screen == "FM" ? PlayFM : PlayXM;
        for (int i = 0; i < 3 && screen[1] == 'M' && audio().PlayMode != tuner; ++i)
            Press({Qt::Key_R}), Pass(15'000);
        if (screen == "playlists" || screen == "settings") Press({Qt::Key_P}), Pass(1000);
        if (screen == "alone") Press({Qt::Key_Return}), Pass(1000);
        host().keys[Action::gps] = std::to_string('G');
        if (screen == "frmGPS") Press({Qt::Key_G}), Pass(1000);
        if (screen == "ExtAppTools") ShowProgram();
    }
    void ShowProgram() {
        hosted->onClose = [this](WindowHandle window) {
            programs.running.clear();
            hosted->Shut(window);
        };
        onEvents = [this] {
            if (hosted->list.empty()) hosted->Open(*programs.running.rbegin());
        };
        host().commands.Run([this] { app->rooms().hosting.Programs().Open({"/bin/clock", "C"}); });
        onEvents = {};
    }
    void ShowFilm() {
        app->rooms().playback.video = {.ListFile = dir.Write("films.m3u", dir.Write("a.avi", "x"))};
        host().commands.Run([this] { host().screens.Find("playmovie")->ReShow(); });
        Pass(2000);
        film.player->onPicture();
        film.position = 50;
    }
    /// What a driver sees and hears.
    auto State() {
        return std::tuple(Front(), audio().PlayMode, winamp.status, audio().bPaused, MasterMute(),
                          mixer.Mute(MixerLine::Line), mixer.Mute(MixerLine::CD), fm.on,
                          fm.on ? fm.sent.back() : 0, xm.tuned, host().dialogs.Active(), film.state,
                          film.position);
    }
    /// Handles, threads, timers and bytes.
    std::vector<std::int64_t> Used() {
        return {Entries("/proc/self/fd"), Entries("/proc/self/task"), clock.Timers(),
                static_cast<std::int64_t>(::mallinfo2().uordblks)};
    }
    /// What the fakes have kept.
    void Forget() {
        player.sent.clear(), player.windows.clear(), player.classes.clear();
        player.ran.clear(), player.runFolders.clear();
        film.opened.clear(), engine.asked.clear(), probe.asked.clear();
        xmPort->sent.clear(), xmPort->opened.clear();
        hosted->told.clear(), programs.started.clear(), programs.killed.clear();
        fm.sent.erase(fm.sent.begin(), fm.sent.end() - (fm.sent.empty() ? 0 : 1));
        std::ofstream(dir.File("debug.log")).close(); // empty, and no wait for the disk
    }
    /// A sleep in which the machine changes.
    void Sleep(int i, bool plays) {
        const auto position = winamp.Ms() / 1000;
        const int before = flushes;
        host().settings.Set(setting::CurrentTitle, static_cast<std::int16_t>(i));
        power.Sleep();
        const int asleep = flushes;
        EXPECT_LE(asleep, before + MostFlushes);
        EXPECT_NE(winamp.status, 1);
        EXPECT_TRUE(MasterMute() && host().state.InSuspend && asleep > before && !fm.on);
        EXPECT_TRUE(!plays || std::abs(Kept() - position) <= 1) << "where it is";
        EXPECT_EQ(flushes, asleep) << "something was left to be written";
        if (i % 3 == 0) mixer.Change(i % 2 != 0), listener.changed(i % 2 != 0);
        if (i % 4 == 0) volumes.drives.resize(1 + static_cast<std::size_t>(i) / 4 % 2);
        if (i % 2 == 0) xmPort->Unplug(), fm.there = false;
        clock.SetNow(i % 5 == 0 ? DateTime{1970, 1, 1, 12} : DateTime{2027, 1, 1, 13});
        Pass(2000); // until it sleeps
        if (i % 3 == 0) mixer.Change(true), listener.changed(true);
        xmPort->present = fm.there = true;
        power.Wake();
        EXPECT_LE(std::abs(winamp.Ms() / 1000 - position), 1);
        Pass(15'000); // until the receiver is there
    }
    void WithAQuestion(const std::function<void()>& work) {
        QTimer later;
        QObject::connect(&later, &QTimer::timeout, [&] {
            later.stop();
            work();
            EXPECT_TRUE(host().dialogs.Active());
            Key(Qt::Key_Return);
        });
        later.start(0);
        host().dialogs.ShowMessage("a question");
    }
    AudioState& audio() { return app->rooms().playback.audio; }
    bool MasterMute() { return mixer.Mute(MixerLine::Master) != 0; }
    /// Where the song will go on after a cut of the power, in seconds.
    int Kept() {
        host().settings.Finish();
        return std::atoi(GetPrivateProfileString("audio_player", "CurrentPosition", "-1",
                                                 dir.File("settings.ini"))
                             .c_str());
    }

    FakeForeignWindows* hosted = nullptr; ///< of programs beside the system
    KeepingPlayer winamp{clock};
    FakeRadio fm;
    SimReceiver xm{clock, [this](std::string_view bytes) { xmPort->Receive(bytes); }};
};

/// Rounds through all places, 50 sleeps each; VK_SLEEP_ROUNDS=20 makes a thousand of them.
int Rounds() {
    const char* told = std::getenv("VK_SLEEP_ROUNDS");
    return told ? std::atoi(told) : 3;
}

TEST_F(VehicleTest, SleepsChangeNothingAndLeaveNothing) {
    radio = &fm;
    serialPorts[0] = {"XMPCR", "/dev/x"};
    xm.AddChannels(5);
    xm.script.delayMs = 5;
    Begin("[dlink_tuner]\nenabled=true\ncurrentfreq=96.5\naudio_input=1\n"
          "[xmpcr_tuner]\nenabled=true\naudio_input=2\n[GPS]\nGPSModule=1\nmap=town.bin\n");
    volumes.drives = {{"/", DriveType::Fixed}};
    std::vector<std::int64_t> before;
    const char* places[] = {HomeScreen, "alone",    "playlists", "playmp3",   "FM",
                            "XM",       "settings", "frmGPS",    "playmovie", "ExtAppTools"};
    constexpr int Here = 5, Places = 10, Round = Places * Here;
    for (int i = 0; i < Round * Rounds(); ++i) {
        const std::string place = places[i / Here % Places];
        if (i % Here == 0) GoTo(place);
        ASSERT_TRUE(Front() == place || place == "alone" || place[1] == 'M') << Front();
        const bool plays = winamp.status != 0 && place != "playmovie";
        if (plays && i % Here == 2) host().screens.Find("playmp3")->DoPause();
        if (plays && i % Here == 3) Press({Qt::Key_M}), Pass(4000);
        EXPECT_EQ(fm.on, place == "FM") << i;
        EXPECT_TRUE(place != "XM" || (xm.on && xm.tuned != 0)) << i;
        if (place == "playmovie" && i % Here > 2) host().screens.Find(place)->DoPause();
        const auto was = State();
        if (i % 7 == 0) power.Wake(), Pass(15'000); // from a sleep that was not announced
        const auto cycle = [&] { Sleep(i, plays); };
        i % 4 == 1 ? WithAQuestion(cycle) : cycle();
        if (place == "frmGPS") {
            EXPECT_EQ(Front(), "playmp3") << "the map is left for a sleep";
            Pass(1000);
            Press({Qt::Key_G});
        }
        ASSERT_EQ(State(), was) << i << " at " << place;
        if (plays && audio().bPaused && i % Here == 4) host().screens.Find("playmp3")->DoPause();
        Forget();
        if (i % Round != Round - 1 || i < Round) continue; // everything has been seen
        if (before.empty()) before = Used();
        EXPECT_THAT(Used(), ElementsAre(before[0], before[1], before[2],
                                        testing::Le(before[3] + (64 << 10))));
    }
    EXPECT_EQ(winamp.restarts, 0);
    EXPECT_EQ(fm.wrong, 0);
}

TEST_F(VehicleTest, ACutOfThePowerAtAnyMomentLeavesAWholeStart) {
    Begin();
    PlaySong();
    Pass(20'000); // it is kept where it is
    host().settings.Finish();
    namespace fs = std::filesystem;
    std::vector<std::unique_ptr<TempFolder>> cuts;
    player.answer = [&](const auto& message) {
        cuts.push_back(std::make_unique<TempFolder>());
        for (const auto& entry : fs::directory_iterator(dir.Path())) {
            std::error_code replaced; // just now
            fs::copy(entry.path(), fs::path(cuts.back()->Path()) / entry.path().filename(),
                     fs::copy_options::recursive, replaced);
        }
        return winamp(message);
    };
    for (int i = 0; i < 3; ++i) {
        serial->SetCarrier(i % 2 != 0);
        power.Sleep();
        Pass(1000);
        power.Wake();
        app->rooms().vehicle.SetDimmer(false);
    }
    power.onShutdown();
    Pass(10);
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(Logged("shutdown initiated by administrative request"), 1u);
    app.reset();
    EXPECT_GT(cuts.size(), 20u);
    player.answer = [this](const auto& message) { return winamp(message); };
    for (std::size_t i = 0; i < cuts.size(); i += 3) {
        app = std::make_unique<Application>(cuts[i]->Path(), ports(), [] {});
        ASSERT_TRUE(app->Start()) << i;
        EXPECT_EQ(Front(), HomeScreen) << i;
        EXPECT_EQ(host().settings.Get(setting::Version), Version) << i;
        EXPECT_GT(host().settings.Get(setting::CurrentPosition), 0) << i;
        EXPECT_FALSE(FileExists(cuts[i]->File("dimmed.dat"))) << i;
        app.reset();
    }
}

TEST_F(VehicleTest, ASleepWhileAListIsReadLeavesItToBeRead) {
    Begin();
    int sleeps = 0;
    onEvents = [&] {
        if (!host().commands.ListBusy() || sleeps > 20) return;
        ++sleeps;
        power.Sleep();
        power.Wake();
    };
    PlaySong();
    EXPECT_GT(sleeps, 3);
    EXPECT_FALSE(host().commands.ListBusy());
    EXPECT_FALSE(MasterMute());
}

TEST_F(VehicleTest, TheIgnitionPausesFromEverywhereAndEndsTheMachineAfterItsDelay) {
    Begin();
    for (const char* screen : {"playmp3", "playlists"}) {
        GoTo(screen);
        const std::string front = Front();
        const auto position = winamp.Ms() / 1000;
        serial->SetCarrier(false);
        EXPECT_EQ(winamp.status, 3) << screen << ": at once";
        Pass(30'000);
        power.Sleep(); // in the middle of it, and the key is turned before the machine is awake
        serial->SetCarrier(true);
        EXPECT_EQ(winamp.status, 3) << "it is asleep";
        power.Wake();
        EXPECT_EQ(winamp.status, 1);
        EXPECT_EQ(winamp.Ms() / 1000, position);
        EXPECT_EQ(Front(), front);
        power.Sleep();
        serial->SetCarrier(false); // and the other way about
        power.Wake();
        EXPECT_EQ(winamp.status, 3) << "the key is off";
        Pass(1000);
        serial->SetCarrier(true);
        EXPECT_EQ(winamp.status, 1);
    }
    EXPECT_TRUE(power.wishes.empty());
    serial->SetCarrier(false);
    Pass(61'000);
    ASSERT_EQ(power.wishes, std::vector{PowerWish::PowerOff});
    EXPECT_EQ(exits, 0) << "the machine has not agreed yet";
    onEvents = [this] {
        if (host().dialogs.Active()) Key(Qt::Key_Return);
    };
    const auto refuse = [this](int times) {
        const int before = host().dialogs.Changes();
        for (int i = 0; i < times; ++i)
            power.Reply("busy"), Pass(61'000); // in which it is asked again
        return (host().dialogs.Changes() - before) / 2;
    };
    EXPECT_EQ(refuse(3), 1) << "once until the key is turned";
    serial->SetCarrier(true), Pass(1000), serial->SetCarrier(false);
    EXPECT_EQ(refuse(3), 1);
    power.Reply("");
    Pass(100);
    EXPECT_EQ(exits, 1);
    app.reset();
    EXPECT_EQ(player.sent.back(), RecordingPlayer::Command(WinampClose));
}

TEST_F(VehicleTest, TheNightDimsTheHandHasTheLastWordAndLeavingGivesBack) {
    gamma.displays = {{"crtc-1", FakeGamma::Ramp(0)}};
    const auto found = gamma.displays;
    const auto dim = [&] { return gamma.displays != found; };
    Begin();
    EXPECT_FALSE(dim());
    app->rooms().vehicle.SetDimmer(false); // before the day is looked at for the first time
    host().daylight.Forget();
    Pass(2000);
    EXPECT_TRUE(dim());
    app->rooms().vehicle.SetDimmer(false);
    clock.SetNow({2026, 11, 21, 22});
    Pass(2000);
    EXPECT_TRUE(dim()) << "it is night";
    host().keys[Action::dim] = std::to_string('G');
    host().remoteKeys[Action::dim] = "MOON";
    for (const char* screen : {HomeScreen, "playlists", "playmp3"}) {
        GoTo(screen);
        const bool before = dim();
        Press({Qt::Key_G});
        EXPECT_NE(dim(), before) << screen << ": by hand";
        Remote("MOON"), Remote("MOON", 1), Pass(100); // held
        EXPECT_EQ(dim(), before) << screen << ": by remote";
    }
    GoTo(HomeScreen);
    Press({Qt::Key_G});
    Pass(5000);
    EXPECT_FALSE(dim()) << "the hand has the last word";
    Press({Qt::Key_P});
    Pass(1000);
    ASSERT_EQ(Front(), "settings");
    Press({Qt::Key_Escape});
    Pass(2000);
    EXPECT_TRUE(dim()) << "the settings have been left at night";
    clock.SetNow({1970, 1, 1, 12});
    Pass(2000);
    EXPECT_FALSE(dim()) << "the clock was set";
    app->rooms().vehicle.SetDimmer(true);
    app->Quit(true);
    Pass(10);
    EXPECT_FALSE(dim());
}

} // namespace
} // namespace vk::test
