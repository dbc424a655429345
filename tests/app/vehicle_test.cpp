// The vehicle on the real wiring: sleep from everywhere, the ignition, the machine's end, the dim.
#include "tests/app/wired_system.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>

static std::atomic<int> flushes = 0;

/// Counts how often the disk is waited for.
extern "C" int fsync(int file) {
    ++flushes;
    return static_cast<int>(::syscall(SYS_fsync, file));
}

namespace vk::test {
namespace {

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

std::size_t Entries(const char* folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

struct VehicleTest : testing::Test, WiredSystem {
    VehicleTest() {
        player.answer = [this](const auto& message) { return winamp(message); };
    }
    void Begin(const std::string& more = "[AccControl]\naccSensePort=2\naccOffDelay=60\n") {
        const std::string settings = dir.Read("settings.ini");
        dir.Write("settings.ini", "[main]\nAutoDimScreen=true\n" + settings.substr(7) + more);
        ASSERT_TRUE(Make().Start());
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
        if (screen == "playmp3" || screen == "playlists") PlaySong();
        if (screen == "playlists" || screen == "settings") Press({Qt::Key_P}), Pass(1000);
        if (screen == "alone") Press({Qt::Key_Return}), Pass(1000);
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

    KeepingPlayer winamp{clock};
};

TEST_F(VehicleTest, AThousandSleepsChangeNothing) {
    Begin("[remote]\nstatus=true\ntype=LIRC\n");
    volumes.drives = {{"/", DriveType::Fixed}};
    std::size_t handles = 0, threads = 0, bytes = 0;
    int timers = 0;
    const char* screens[] = {HomeScreen, "alone", "playlists", "playmp3", "settings"};
    for (int i = 0; i < 1000; ++i) {
        if (i % 50 == 0) GoTo(screens[i / 50 % 5]);
        const bool plays = winamp.status != 0;
        if (plays && i % 7 == 0) host().screens.Find("playmp3")->DoPause();
        if (plays && i % 11 == 0) Press({Qt::Key_M}), Pass(4000);
        const std::string front = Front();
        const int status = winamp.status;
        const bool paused = audio().bPaused, mute = MasterMute();
        const auto cycle = [&] {
            const auto position = winamp.Ms() / 1000;
            const int before = flushes;
            host().settings.Set(setting::SelectedMovie, static_cast<std::int16_t>(i));
            power.Sleep();
            const int asleep = flushes;
            EXPECT_LE(asleep, before + MostFlushes);
            EXPECT_NE(winamp.status, 1);
            EXPECT_TRUE(MasterMute() && host().state.InSuspend && asleep > before);
            EXPECT_TRUE(!plays || std::abs(Kept() - position) <= 1) << "where it is";
            EXPECT_EQ(flushes, asleep) << "something was left to be written";
            if (i % 3 == 0) mixer.Change(i % 2 != 0), listener.changed(i % 2 != 0);
            if (i % 4 == 0) volumes.drives.resize(1 + static_cast<std::size_t>(i) / 4 % 2);
            clock.SetNow(i % 5 == 0 ? DateTime{1970, 1, 1, 12} : DateTime{2027, 1, 1, 13});
            Pass(2000); // until it sleeps
            if (i % 3 == 0) mixer.Change(true), listener.changed(true);
            power.Wake();
            EXPECT_LE(std::abs(winamp.Ms() / 1000 - position), 1);
        };
        if (i % 13 == 0) { // a question is open
            QTimer later;
            QObject::connect(&later, &QTimer::timeout, [&] {
                later.stop();
                cycle();
                EXPECT_TRUE(host().dialogs.Active());
                Key(Qt::Key_Return);
            });
            later.start(0);
            host().dialogs.ShowMessage("a question");
        } else {
            cycle();
        }
        ASSERT_EQ(Front(), front) << i;
        ASSERT_EQ(winamp.status, status) << i;
        ASSERT_EQ(audio().bPaused, paused) << i;
        ASSERT_EQ(MasterMute(), mute) << i;
        if (plays && paused && i % 2) host().screens.Find("playmp3")->DoPause();
        player.sent.clear(), player.windows.clear(), player.classes.clear();
        std::ofstream(dir.File("debug.log")).close(); // empty, and no wait for the disk
        if (i == 499)                                 // every screen has been seen twice
            handles = Entries("/proc/self/fd"), threads = Entries("/proc/self/task"),
            bytes = ::mallinfo2().uordblks, timers = clock.Timers();
    }
    EXPECT_EQ(winamp.restarts, 0);
    EXPECT_EQ(clock.Timers(), timers);
    EXPECT_EQ(Entries("/proc/self/fd"), handles);
    EXPECT_EQ(Entries("/proc/self/task"), threads);
    EXPECT_LT(::mallinfo2().uordblks, bytes + (64u << 10));
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
