#include "playback/c_winamp.h"
#include "tests/sim/recording_player.h"
#include "tests/support/core_test.h"

namespace vk::test {

using testing::ElementsAre, testing::IsEmpty;

struct WinampTest : CoreTest {
    RecordingPlayer player;
    cWinamp winamp{{player, pump, report, app.Path()}};
    static constexpr auto Cmd = RecordingPlayer::Command;
    static auto Ask(std::int32_t function, std::int32_t argument = 0) {
        return RecordingPlayer::Query(function, argument);
    }
    void Answer(std::int32_t value) {
        player.answer = [value](const auto&) { return value; };
    }
    /// What an operation makes of each of these answers.
    template<class Operation>
    auto Answers(Operation operation, const std::vector<std::int32_t>& wire) {
        std::vector<decltype((winamp.*operation)())> all;
        for (const std::int32_t value : wire) {
            Answer(value);
            all.push_back((winamp.*operation)());
        }
        return all;
    }
};

TEST_F(WinampTest, FindsTheWindowByClassAndSpeaksToItUntilItIsGone) {
    winamp.WinAMP_SCM(WinampPlay);
    EXPECT_TRUE(winamp.WinAMP_FindWindow());
    winamp.WinAMP_SCM(WinampPlay);
    EXPECT_THAT(player.classes, ElementsAre("Winamp v1.x"));
    EXPECT_THAT(player.windows, ElementsAre(0u, 77u, 77u));
    EXPECT_THAT(player.sent, ElementsAre(Cmd(40045), Ask(0), Cmd(40045)));
    EXPECT_EQ(winamp.WinAMP_GetHwnd(), 77u);
    player.running = false;
    EXPECT_EQ(winamp.WinAMP_GetHwnd(), 0u);
    EXPECT_EQ(winamp.WinAMP_GetStatus(), "0");
    EXPECT_EQ(player.windows.back(), 0u);
}

TEST_F(WinampTest, OneMessageAnOperationAndNoneForAValueOutOfRange) {
    winamp.WinAMP_FF();
    winamp.WinAMP_RW();
    winamp.WinAMP_ClearPlaylist();
    winamp.WinAMP_loadtracknum(4);
    winamp.WinAMP_setvol(300);
    for (const int volume : {-1, 255, 256})
        winamp.WinAMP_SetVolume(volume);
    for (const int balance : {128, 127, -1, -127, -128})
        winamp.WinAMP_SetBalance(balance);
    for (const auto& [band, value] : {std::pair{10, 5}, {-1, 5}, {0, 64}, {9, 63}})
        winamp.WinAMP_SetEQValue(band, value); // the band is chosen before it is set
    for (const int value : {-1, 0})
        winamp.WinAMP_SetPreAmpValue(value);
    EXPECT_EQ(winamp.WinAMP_GetEQValue(10), -1);
    EXPECT_THAT(player.sent,
                ElementsAre(Cmd(40148), Cmd(40144), Ask(101), Ask(121, 4), Ask(122, 300),
                            Ask(122, 255), Ask(123, 127), Ask(123, 254), Ask(123, 128), Ask(127, 9),
                            Ask(128, 63), Ask(127, 10), Ask(128, 0)));
    Answer(31);
    EXPECT_EQ(winamp.WinAMP_GetEQValue(3) + winamp.WinAMP_GetPreAmpValue(), 62);
    EXPECT_EQ(player.sent.back(), Ask(127, 10));
}

TEST_F(WinampTest, AnswersAreTranslated) {
    EXPECT_THAT(Answers(&cWinamp::WinAMP_GetStatus, {1, 3, 2, 0, -1}),
                ElementsAre("1", "2", "0", "0", "0"));
    EXPECT_THAT(Answers(&cWinamp::WinAMP_GetTrackPosition, {999, 1999, -1, -999}),
                ElementsAre(0, 1, -1, 0));
    EXPECT_THAT(Answers(&cWinamp::WinAMP_GetVersion, {0x2081, 0x5666, 0x290, 0, 0x12ABC}),
                ElementsAre("2.01", "5.66", "UNKNOWN", "UNKNOWN", "1.2BC"));
    EXPECT_THAT(Answers(&cWinamp::WinAmp_GetBitRate, {192}), ElementsAre("192"));
    EXPECT_EQ(player.sent.front(), Ask(104));
    EXPECT_EQ(player.sent[5], Ask(105));
    EXPECT_EQ(player.sent.back(), Ask(126, 1));
}

TEST_F(WinampTest, AsksTheLengthUntilItIsKnownOrAfter101MessagesAndSeeksNotBeyondIt) {
    player.answer = [asked = 0](const auto&) mutable { return ++asked < 5 ? -1 : 240; };
    EXPECT_EQ(winamp.WinAMP_GetTrackLength(), 240);
    EXPECT_EQ(clock.eventRuns, 5);
    EXPECT_EQ(player.sent.back(), Ask(105, 1));
    Answer(-1);
    EXPECT_EQ(winamp.WinAMP_GetTrackLength(), -1);
    EXPECT_EQ(player.sent.size(), 5u + 101u);
    player.sent.clear();
    Answer(200);
    for (const int seconds : {201, -1, 200})
        winamp.WinAMP_SeekToPosition(seconds);
    EXPECT_THAT(player.sent, ElementsAre(Ask(105, 1), Ask(105, 1), Ask(105, 1), Ask(106, 200000)));
    Answer(3000000);
    winamp.WinAMP_SeekToPosition(2147484);
    EXPECT_EQ(player.sent.back(), Ask(105, 1));
    EXPECT_TRUE(Logged("An error occured in modWinamp_Control.WinAMP_SeekToPosition   : "
                       "Overflow :  Error number 6"));
}

TEST_F(WinampTest, StartsTheProgramUnlessItRunsAndHandsItExistingFilesByQuotedPath) {
    EXPECT_TRUE(winamp.WinAMP_Start());
    EXPECT_THAT(player.started, IsEmpty());
    player.running = false;
    EXPECT_TRUE(winamp.WinAMP_Start());
    EXPECT_THAT(player.started, ElementsAre(std::pair{app.File("winamp"), app.Path()}));
    winamp.WinAMP_SCM(WinampPlay);
    EXPECT_EQ(player.windows.back(), 0u) << "the window is only known once it was looked for";
    for (const std::string& path : {app.File("gone.m3u"), std::string(), app.Path()})
        EXPECT_FALSE(winamp.WinAMP_OpenFile(path)) << path;
    const std::string list = app.Write("my lists/a b.m3u", "x");
    EXPECT_TRUE(winamp.WinAMP_OpenFile(list));
    EXPECT_THAT(player.ran, ElementsAre(app.File("winamp") + " /ADD \"" + list + "\""));
    EXPECT_THAT(player.runFolders, ElementsAre(app.Path()));
    player.running = player.canStart = false;
    EXPECT_FALSE(winamp.WinAMP_OpenFile(list));
    EXPECT_FALSE(winamp.WinAMP_Start());
    player.broken = true;
    EXPECT_FALSE(winamp.WinAMP_Start());
    EXPECT_THAT(dialogs.shown, IsEmpty()) << "a start swallows errors";
}

TEST_F(WinampTest, ErrorsAreReportedOrPassedOnAndTheEndStopsAndClosesThePlayer) {
    player.broken = true;
    EXPECT_EQ(winamp.WinAMP_GetTrackLength() + winamp.WinAMP_gettracknum(), 0);
    EXPECT_EQ(winamp.WinAMP_GetStatus(), "");
    ASSERT_EQ(dialogs.shown.size(), 3u);
    EXPECT_TRUE(dialogs.shown[2].starts_with("An error occured in modWinamp_Control."
                                             "WinAMP_GetStatus   : wire cut :  Error number 5"));
    EXPECT_THROW(winamp.WinAMP_SCM(WinampPlay), std::runtime_error);
    EXPECT_THROW(winamp.WinAmp_GetBitRate(), std::runtime_error);
    EXPECT_FALSE(winamp.WinAMP_FindWindow()) << "the version's own error trap answered";
    player.broken = false;
    EXPECT_TRUE(winamp.WinAMP_FindWindow()) << "a window without a version counts";
    player.sent.clear();
    { cWinamp other({player, pump, report, app.Path()}); }
    EXPECT_THAT(player.sent, ElementsAre(Ask(101), Cmd(40047), Cmd(40001)));
    player.broken = true;
    EXPECT_NO_THROW(cWinamp({player, pump, report, app.Path()}));
}

} // namespace vk::test
