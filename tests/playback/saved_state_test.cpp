#include "playback/resume.h"
#include "tests/playback/audio_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {

struct SavedStateTest : testing::Test, AudioFixture {
    /// The process dies without a word, the system starts anew on the same folder and goes on.
    void StartAnew() {
        made.reset();
        audio = {};
        process.status = process.track = process.positionMs = 0;
        settings.LoadSettings();
        settings.values.DoResume = true;
        settings.values.CDDriveLetter = "/media/disc";
        ASSERT_EQ(PrepareResume(settings, volumes, audio), ResumeResult::Ready);
        player().ReShow();
    }
    void ExpectPlaying(std::int32_t track, std::int32_t seconds) {
        EXPECT_EQ(process.status, 1);
        EXPECT_EQ(process.track, track);
        EXPECT_EQ(process.positionMs, seconds * 1000);
    }
    void ExpectResumedAfterAKill(std::int32_t track, std::int32_t seconds) {
        StartAnew();
        ExpectPlaying(track, seconds);
    }
    void PlayTo(std::int32_t seconds) {
        process.positionMs = seconds * 1000;
        clock.Advance(15000);
    }
};

TEST_F(SavedStateTest, AKillResumesWhatWasPlayedLast) {
    Play(9, 4);
    PlayTo(33);
    ExpectResumedAfterAKill(3, 33);
    Play(9, 7); // killed in the first seconds of a new list
    ExpectResumedAfterAKill(6, 0);
    EXPECT_EQ(view.title, "Song7");
    player().Swap(); // it is saved behind another screen, too
    process.track = 5;
    PlayTo(12);
    ExpectResumedAfterAKill(5, 12);
    process.positionMs = 0;
    player().MoveAhead(); // saved at once
    ExpectResumedAfterAKill(6, 0);
}

TEST_F(SavedStateTest, AStartThatFailsOrIsCutOffLosesNothingAndOkTriesAgain) {
    app.Write("winamp.ini", "[winamp]\r\nshuffle=-1\r\n");
    Play(9, 4);
    PlayTo(33);
    const std::string lines = app.Read("vk_audio.m3u");
    const auto expectKept = [&] {
        EXPECT_EQ(Saved("CurrentPosition"), "33");
        EXPECT_EQ(Saved("currenttrack"), "3");
        EXPECT_EQ(ini.ReadText(app.File("winamp.ini"), "winamp", "shuffle"), "1");
    };
    const std::pair<std::string, std::function<void()>> hurdles[] = {
        {"The files of this list are not there.",
         [&] { app.Write("vk_audio.m3u", "/media/stick/gone.mp3\n"); }},
        {"This list cannot be played.", [&] { process.obeys = false; }},
        {"Saturday, November 21, 2026    12:0", // the system ends while the list is on its way
         [&] {
             clock.onEvents = [&] {
                 player().Form_Unload(true);
                 expectKept();
             };
         }},
    };
    for (const auto& [notice, hurdle] : hurdles) {
        hurdle();
        StartAnew();
        EXPECT_EQ(view.clocks.back(), notice);
        clock.Advance(3000);
        player().SaveAudioData();
        expectKept();
        clock.onEvents = {};
        process.obeys = true;
        app.Write("vk_audio.m3u", lines);
        player().runok();
        ExpectPlaying(3, 33);
    }
}

TEST_F(SavedStateTest, AProcessThatHasGoneKeepsWhatWasSaved) {
    Play(9, 2);
    PlayTo(44);
    player().DoFF();
    process.status = process.positionMs = process.track = 0;
    clock.Advance(1000);
    player().MoveAhead();
    player().Swap();
    player().SaveAudioData();
    ExpectResumedAfterAKill(1, 44);
}

TEST_F(SavedStateTest, WritesOnlyWhatHasChanged) {
    Play(9);
    player().DoPause();
    PlayTo(20);
    app.Write("settings.ini", "");
    clock.Advance(60000);
    EXPECT_EQ(app.Read("settings.ini"), "");
    player().doquit(); // which says all of it once more
    EXPECT_EQ(Saved("CurrentPosition"), "20");
}

TEST_F(SavedStateTest, SavesAllOfItOnLeaving) {
    InsertDisc();
    Play(3, 2);
    clock.Advance(2000);
    player().SaveAudioData();
    EXPECT_EQ(Saved("Volume"), "0");
    EXPECT_EQ(Saved("CurrentPlaylist"), audio.ListFile);
    EXPECT_EQ(Saved("volumeserial"), "77");
    EXPECT_EQ(Saved("CurrentTrack"), "1");
    EXPECT_TRUE(Logged("saved audio data"));
    player().Form_Unload(true);
    EXPECT_TRUE(Logged("form unloaded by administrative request - os shutdown"));
}

struct ResumeTest : testing::Test, CoreFixture {
    AudioState audio;
    ResumeTest() {
        settings.values.CDDriveLetter = "/media/disc";
        settings.values.DoResume = true;
        volumes.drives = {{"/media/disc", DriveType::CdRom}};
        app.Write("vk_audio.m3u", "x");
    }
    ResumeResult Prepare(const std::string& keys) {
        app.Write("settings.ini", "[audio_player]\r\n" + keys);
        return PrepareResume(settings, volumes, audio);
    }
};

TEST_F(ResumeTest, NeedsAListAndItsDisc) {
    const std::string disc = "volumeserial=77\r\n";
    EXPECT_EQ(Prepare(disc), ResumeResult::DiscMissing);
    volumes.ready.insert("/media/disc");
    volumes.serials["/media/disc"] = 76;
    EXPECT_EQ(Prepare(disc), ResumeResult::DiscMissing);
    DeleteFileAt(app.File("vk_audio.m3u"));
    EXPECT_EQ(Prepare(""), ResumeResult::NoList);
    EXPECT_EQ(audio.PlayMode, PlayNone);
    app.Write("vk_audio.m3u", "x");
    volumes.serials["/media/disc"] = 77;
    EXPECT_EQ(Prepare(disc), ResumeResult::Ready);
    settings.values.CDDriveLetter = "NONE";
    EXPECT_EQ(Prepare("volumeserial=78\r\n"), ResumeResult::Ready);
}

TEST_F(ResumeTest, TakesWholeSecondsAndSurvivesNonsense) {
    EXPECT_EQ(Prepare("currenttrack=4\r\nCurrentPosition=83.9\r\nvolumeserial=-1\r\n"),
              ResumeResult::Ready);
    EXPECT_EQ(audio.TrackToSelect, 5);
    EXPECT_EQ(audio.ResumePosition, 83);
    EXPECT_TRUE(audio.bResuming);
    settings.values.DoResume = false;
    const std::pair<const char*, std::int32_t> nonsense[] = {
        {"x", 1}, {"-9", 1}, {"2147483647", 2147483647}};
    for (const auto& [track, selected] : nonsense) {
        const std::string keys = std::string("currenttrack=") + track + "\r\n";
        EXPECT_EQ(Prepare(keys + "CurrentPosition=1e300\r\n"), ResumeResult::Ready);
        EXPECT_EQ(audio.TrackToSelect, selected);
    }
    EXPECT_FALSE(audio.bResuming);
}

} // namespace vk::test
