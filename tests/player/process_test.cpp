// The whole way: remote control, adapter, socket, player, libVLC. Time is real here.
#include "core/text.h"
#include "tests/player/process_fixture.h"

#include <gmock/gmock.h>

namespace vk::test {
namespace {

using PlayerProcess = ProcessFixture;

TEST_F(PlayerProcess, PlaysAListFromTheChosenEntryAndWrapsAround) {
    StartPlayer();
    EXPECT_EQ(winamp->WinAMP_GetVersion(), "2.01");
    EXPECT_EQ(winamp->WinAMP_GetTrackPosition(), -1);
    LoadAndPlay(List("l.m3u", {{"a", 1500}, {"b", 1100}}), 1);
    EXPECT_EQ(winamp->WinAMP_gettracknum(), 1);
    EXPECT_EQ(winamp->WinAMP_GetTrackLength(), 1) << "known as soon as it plays";
    EXPECT_EQ(winamp->WinAmp_GetBitRate(), "64");
    ASSERT_TRUE(Eventually([&] { return winamp->WinAMP_gettracknum() == 0; }));
    EXPECT_TRUE(Playing());
    EXPECT_EQ(winamp->WinAMP_GetTrackPosition(), 0);
    ASSERT_TRUE(Eventually([&] { return winamp->WinAMP_gettracknum() == 1; }));
    EXPECT_TRUE(core.dialogs.shown.empty());
}

TEST_F(PlayerProcess, TracksOfAnAudioDiscPlayByTheirNumbers) {
    constexpr std::size_t Second = 44100 * 4; // bytes
    core.app.Write("disc.bin", std::string(5 * Second, '\0'));
    const std::string disc = core.app.Write("disc.cue", "FILE \"disc.bin\" BINARY\n"
                                                        "TRACK 01 AUDIO\nINDEX 01 00:00:00\n"
                                                        "TRACK 02 AUDIO\nINDEX 01 00:03:00\n");
    StartPlayer();
    LoadAndPlay(core.app.Write("l.m3u", disc + "/Track01.CDA\n" + disc + "/Track02.CDA\n"), 1);
    EXPECT_EQ(winamp->WinAMP_gettracknum(), 1);
    EXPECT_EQ(winamp->WinAMP_GetTrackLength(), 2);
    ASSERT_TRUE(Eventually([&] { return winamp->WinAMP_gettracknum() == 0; }));
    ASSERT_TRUE(Eventually([&] { return winamp->WinAMP_GetTrackLength() == 3; }));
}

TEST_F(PlayerProcess, WithASoundServerTheNextTrackWaitsOnTheOtherDeck) {
    // The server is not there after all, which changes nothing but that nothing sounds.
    ::setenv("PULSE_SERVER", ("unix:" + core.app.File("none")).c_str(), 1);
    StartPlayer();
    LoadAndPlay(List("l.m3u", {{"a", 2600}, {"b", 2700}}), 0);
    ASSERT_TRUE(Eventually([&] { return winamp->WinAMP_gettracknum() == 1; }));
    EXPECT_TRUE(Playing());
    EXPECT_EQ(winamp->WinAMP_GetTrackLength(), 2);
    ASSERT_TRUE(Eventually([&] { return winamp->WinAMP_gettracknum() == 0; }));
    winamp->WinAMP_SCM(WinampPause);
    winamp->WinAMP_SeekToPosition(1);
    EXPECT_EQ(winamp->WinAMP_GetTrackPosition(), 1);
    winamp->WinAMP_SCM(WinampStop);
    EXPECT_EQ(winamp->WinAMP_GetStatus(), "0");
}

TEST_F(PlayerProcess, PausesSeeksTakesANewListAndStops) {
    StartPlayer();
    LoadAndPlay(List("l.m3u", {{"a", 30000}}), 0);
    winamp->WinAMP_SeekToPosition(12);
    EXPECT_EQ(winamp->WinAMP_GetTrackPosition(), 12);
    winamp->WinAMP_FF();
    EXPECT_EQ(winamp->WinAMP_GetTrackPosition(), 17);
    EXPECT_TRUE(Eventually([&] { return winamp->WinAMP_GetTrackPosition() == 18; }));
    winamp->WinAMP_SCM(WinampPause);
    EXPECT_EQ(winamp->WinAMP_GetStatus(), "2");
    winamp->WinAMP_RW();
    EXPECT_EQ(winamp->WinAMP_GetTrackPosition(), 13);
    winamp->WinAMP_SCM(WinampPlay);
    EXPECT_TRUE(Eventually([&] { return winamp->WinAMP_GetTrackPosition() == 14; }));
    LoadAndPlay(List("m \"new\".m3u", {{"c", 3000}, {"d", 4000}, {"e", 5000}}), 2);
    EXPECT_EQ(winamp->WinAMP_gettracknum(), 2);
    EXPECT_EQ(winamp->WinAMP_GetTrackLength(), 5);
    EXPECT_EQ(winamp->WinAMP_GetTrackPosition(), 0);
    winamp->WinAMP_SCM(WinampStop);
    EXPECT_EQ(winamp->WinAMP_GetStatus(), "0");
    EXPECT_EQ(winamp->WinAMP_GetTrackPosition(), -1);
}

TEST_F(PlayerProcess, SkipsWhatVanishedAndWhatIsNoSoundAndStopsWhenNothingIsLeft) {
    StartPlayer();
    const std::string list =
        List("l.m3u", {{"a", 9000}, {"gone", 500}, {"junk", 500}, {"b", 9000}});
    core.app.Write("junk.wav", std::string(4000, '?'));
    LoadAndPlay(list, 0);
    DeleteFileAt(core.app.File("gone.wav"));
    winamp->WinAMP_SCM(WinampNext);
    EXPECT_TRUE(Eventually([&] { return winamp->WinAMP_gettracknum() == 3; }));
    EXPECT_TRUE(Playing());
    winamp->WinAMP_SCM(WinampPrevious);
    EXPECT_TRUE(Eventually([&] { return winamp->WinAMP_gettracknum() == 0; }));
    Load(core.app.Write("m.m3u", "junk.wav\ngone.wav\n"), 0);
    EXPECT_TRUE(Eventually([&] { return winamp->WinAMP_GetStatus() == "0"; }));
    EXPECT_TRUE(Eventually([&] { return winamp->WinAMP_GetTrackPosition() == -1; }));
}

TEST_F(PlayerProcess, ItsEndIsNoticedAndTheNextOneTakesItsPlace) {
    for (const int signal : {0, SIGKILL, SIGTERM}) {
        StartPlayer();
        LoadAndPlay(List("l.m3u", {{"a", 9000}}), 0);
        const pid_t ended = PlayerPid();
        signal ? void(::kill(ended, signal)) : winamp->WinAMP_SCM(WinampClose);
        EXPECT_TRUE(signal || !winamp->WinAMP_FindWindow()) << "closed, it is gone at once";
        EXPECT_TRUE(Eventually([&] {
            return !winamp->WinAMP_FindWindow() && ::kill(ended, 0) != 0;
        })) << "neither running nor a zombie";
        EXPECT_EQ(winamp->WinAMP_GetStatus(), "0");
    }
    EXPECT_FALSE(FileExists(SocketPath())) << "a clean end takes its name away";
}

TEST_F(PlayerProcess, OneThatHangsIsEndedByWhoeverFindsIt) {
    StartPlayer();
    const pid_t hung = PlayerPid();
    ::kill(hung, SIGSTOP);
    EXPECT_EQ(winamp->WinAMP_GetStatus(), "0");
    EXPECT_EQ(window->State(), PlayerState::Silent);
    auto other = MakePlayerWindow(*programs, core.app.Path()); // a system that is started anew
    other->SendMessage(other->FindWindow(PlayerWindowClass), WM_USER, 0, 104);
    EXPECT_EQ(other->State(), PlayerState::Silent);
    other->Kill();
    EXPECT_TRUE(Eventually([&] { return window->State() == PlayerState::Gone; }));
    StartPlayer();
    EXPECT_NE(PlayerPid(), hung);
    EXPECT_EQ(window->State(), PlayerState::Answers);
}

TEST_F(PlayerProcess, OfSeveralStartsAtOnceOneStays) {
    std::vector<ProgramId> children(4);
    for (ProgramId& child : children)
        child = programs->Start({core.app.File("winamp"), {}, core.app.Path()});
    const auto running = [&] {
        return std::count_if(children.begin(), children.end(),
                             [&](ProgramId child) { return programs->Running(child); });
    };
    EXPECT_TRUE(Eventually([&] { return running() == 1; }));
    EXPECT_TRUE(winamp->WinAMP_FindWindow());
    EXPECT_EQ(winamp->WinAMP_GetVersion(), "2.01");
}

TEST_F(PlayerProcess, AddStartsAPlayerWhereNoneRuns) {
    List("l.m3u", {{"a", 9000}});
    EXPECT_TRUE(winamp->WinAMP_OpenFile(core.app.Write("l.pls", "File1=a.wav\n")));
    ASSERT_TRUE(Eventually([&] { return winamp->WinAMP_FindWindow(); }));
    winamp->WinAMP_SCM(WinampPlay);
    EXPECT_TRUE(Eventually([&] { return Playing(); }));
}

TEST_F(PlayerProcess, AListThatIsHandedOverAsTheSystemEndsLeavesNoPlayerBehind) {
    List("l.m3u", {{"a", 9000}});
    StartPlayer();
    const std::string list = core.app.File("l.m3u");
    for (int hand = 0; hand < 5; ++hand)
        EXPECT_TRUE(winamp->WinAMP_OpenFile(list));
    winamp.reset();
    window.reset();
    EXPECT_FALSE(programs->ProcessRunning("winamp", 0) && PlayerPid() != 0);
    EXPECT_EQ(PlayerPid(), 0);
    EXPECT_FALSE(ConnectTo(PlayerSocketPath(PlayerWindowClass)));
}

TEST_F(PlayerProcess, TwoSystemsBesideEachOtherHaveAPlayerEach) {
    StartPlayer();
    LoadAndPlay(List("l.m3u", {{"a", 9000}}), 0);
    auto same = MakePlayerWindow(*programs, core.app.Path());
    EXPECT_EQ(same->SendMessage(1, WM_USER, 0, 104), 0) << "a handle of the other one";
    EXPECT_EQ(same->SendMessage(same->FindWindow(PlayerWindowClass), WM_USER, 0, 104), 1);
    same.reset(); // what a remote control leaves plays on
    CoreFixture second;
    std::filesystem::copy_file(core.app.File("winamp"), second.app.File("winamp"));
    auto other = MakePlayerWindow(*programs, second.app.Path());
    EXPECT_EQ(other->FindWindow(PlayerWindowClass), 0u);
    EXPECT_TRUE(other->Start(second.app.File("winamp"), second.app.Path()));
    WindowHandle handle = 0;
    EXPECT_TRUE(Eventually([&] { return (handle = other->FindWindow(PlayerWindowClass)) != 0; }));
    EXPECT_EQ(other->SendMessage(handle, WM_USER, 0, 104), 0) << "it plays nothing";
    EXPECT_TRUE(Playing());
    auto outside = MakePlayerWindow(*programs, "");
    const WindowHandle found = outside->FindWindow(PlayerWindowClass);
    EXPECT_EQ(outside->SendMessage(found, WM_USER, 0, 104), 1) << "the first of them";
    other->SendMessage(handle, WM_COMMAND, WinampClose, 0);
}

TEST_F(PlayerProcess, TheCommandStartsTheVisualisationAndEndsItEvenWhenItHangs) {
    const std::string script =
        "#!/bin/sh\ntrap '' TERM\necho $$ > pid\nwhile :; do sleep 1; done\n";
    const auto running = [this] {
        const auto pid = ParseInteger(core.app.Read("pid"));
        return pid && FileExists("/proc/" + std::to_string(*pid) + "/exe");
    };
    StartPlayer();
    winamp->WinAMP_SCM(WinampRunVis); // there is none
    EXPECT_EQ(winamp->WinAMP_GetVersion(), "2.01");
    std::filesystem::permissions(core.app.Write("visuals", script),
                                 std::filesystem::perms::owner_all);
    for (int round = 0; round < 2; ++round) {
        winamp->WinAMP_SCM(WinampRunVis);
        ASSERT_TRUE(Eventually(running));
        winamp->WinAMP_SCM(WinampRunVis);
        EXPECT_TRUE(Eventually([&] { return !running(); }));
    }
    auto other = MakePlayerWindow(*programs, core.app.Path());
    other->SendMessage(other->FindWindow(PlayerWindowClass), WM_COMMAND, WinampRunVis, 0);
    ASSERT_TRUE(Eventually(running));
    other.reset();
    EXPECT_TRUE(Eventually([&] { return !running(); })) << "it goes with whose it was";
    winamp->WinAMP_SCM(WinampRunVis);
    ASSERT_TRUE(Eventually(running));
    winamp->WinAMP_SCM(WinampClose);
    EXPECT_TRUE(Eventually([&] { return !running(); })) << "it goes with the player";
}

} // namespace
} // namespace vk::test
