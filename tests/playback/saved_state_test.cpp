#include "playback/resume.h"
#include "tests/playback/audio_fixture.h"

namespace vk::test {

struct SavedStateTest : testing::Test, AudioFixture {
    /// The process dies without a word, the system starts anew on the same folder and goes on.
    std::string AfterAKill() {
        made.reset();
        audio = {};
        process.status = process.track = process.positionMs = 0;
        settings.LoadSettings();
        settings.values.DoResume = true;
        settings.values.CDDriveLetter = "/media/disc";
        EXPECT_EQ(PrepareResume(settings, volumes, audio), ResumeResult::Ready);
        Enter();
        return process.State();
    }
    void PlayTo(std::int32_t seconds) {
        process.positionMs = seconds * 1000;
        clock.Advance(15000);
    }
    std::string SavedPlace() { return Saved("currenttrack") + " at " + Saved("CurrentPosition"); }
};

TEST_F(SavedStateTest, AKillResumesWhatWasPlayedLast) {
    Play(9, 4);
    PlayTo(33);
    EXPECT_EQ(AfterAKill(), "playing 3 at 33");
    Play(9, 7); // killed in the first seconds of a new list
    EXPECT_EQ(AfterAKill(), "playing 6 at 0");
    EXPECT_EQ(view.title, "Song7");
    player().Swap(); // it is saved behind another screen, too
    process.track = 5;
    PlayTo(12);
    EXPECT_EQ(AfterAKill(), "playing 5 at 12");
    process.positionMs = 0;
    player().MoveAhead(); // saved at once
    EXPECT_EQ(AfterAKill(), "playing 6 at 0");
    PlayTo(44);
    player().DoFF();
    process.status = process.positionMs = process.track = 0; // it has gone
    clock.Advance(1000);
    player().MoveAhead();
    player().Swap();
    player().SaveAudioData();
    EXPECT_EQ(AfterAKill(), "playing 6 at 44");
}

TEST_F(SavedStateTest, AStartThatFailsOrIsCutOffLosesNothingAndOkTriesAgain) {
    app.Write("winamp.ini", "[winamp]\r\nshuffle=-1\r\n");
    Play(9, 4);
    PlayTo(33);
    const std::string lines = app.Read("vk_audio.m3u");
    const auto expectKept = [&] {
        EXPECT_EQ(SavedPlace(), "3 at 33");
        EXPECT_EQ(ini.ReadText(app.File("winamp.ini"), "winamp", "shuffle"), "1");
    };
    const auto shutDown = [&] {
        player().Form_Unload(true);
        expectKept();
    };
    const std::pair<std::string, std::function<void()>> hurdles[] = {
        {"The files of this list are not there.",
         [&] { app.Write("vk_audio.m3u", "/media/stick/gone.mp3\n"); }},
        {"This list cannot be played.", [&] { process.obeys = false; }},
        {"Saturday, November 21, 2026    12:0", [&] { clock.onEvents = shutDown; }}};
    for (const auto& [notice, hurdle] : hurdles) {
        hurdle();
        AfterAKill();
        EXPECT_EQ(view.clocks.back(), notice);
        clock.Advance(3000);
        player().SaveAudioData();
        expectKept();
        clock.onEvents = {};
        process.obeys = true;
        app.Write("vk_audio.m3u", lines);
        Command(&AudioPlayer::runok);
        EXPECT_EQ(process.State(), "playing 3 at 33");
    }
}

TEST_F(SavedStateTest, AListThatStartsAfterAHundredPollsIsShownAndDoesNotForgetItsPlaceAtOnce) {
    Play(9, 4);
    PlayTo(33);
    process.obeys = false;
    process.wire.sent.clear();
    const std::int64_t begun = clock.TickMs();
    AfterAKill();
    EXPECT_EQ(process.Count(104), 100);
    EXPECT_EQ(clock.TickMs(), begun + 100 * 50);
    EXPECT_TRUE(Logged("Winamp did not respond to play request in playmp3 form load"));
    EXPECT_EQ(view.title, "");
    settings.Write("audio_player", "VolumeSerial", "77"); // of the list before
    settings.Write("audio_player", "CurrentTrack", "8");
    process.status = 1;
    clock.Advance(1100);
    EXPECT_EQ(view.title, "Song4");
    EXPECT_EQ(Saved("VolumeSerial"), std::to_string(audio.VolumeSerial));
    EXPECT_EQ(process.Count(106), 0) << "no seek any more";
    EXPECT_EQ(SavedPlace(), "3 at 33");
    PlayTo(32);
    EXPECT_EQ(SavedPlace(), "3 at 33");
    PlayTo(48);
    EXPECT_EQ(SavedPlace(), "3 at 48");
    player().runok(); // back to the track's beginning
    EXPECT_EQ(SavedPlace(), "3 at 0");
}

TEST_F(SavedStateTest, SavesAllOfItOnLeavingAndMeanwhileOnlyWhatHasChanged) {
    InsertDisc();
    Play(3, 2);
    player().DoPause();
    PlayTo(20);
    app.Write("settings.ini", "");
    clock.Advance(60000);
    EXPECT_EQ(app.Read("settings.ini"), "");
    player().SaveAudioData();
    EXPECT_EQ(Saved("Volume") + " " + Saved("volumeserial"), "0 77");
    EXPECT_EQ(Saved("CurrentPlaylist"), audio.ListFile);
    EXPECT_EQ(SavedPlace(), "1 at 20");
    player().Form_Unload(true);
    EXPECT_TRUE(Logged("form unloaded by administrative request - os shutdown"));
}

TEST_F(SavedStateTest, ListTrackAndPositionAreNeverOnTheDiskWithoutEachOther) {
    struct Writer : DirectFileWriter {
        std::uint64_t Replace(const std::string& path, std::string contents) override {
            ++replaced;
            return DirectFileWriter::Replace(path, std::move(contents));
        }
        int replaced = 0;
    } writer;
    Ini counted{state.DecimalSymbol, report, writer};
    SettingsStore store{app.Path(), counted};
    const PositionClock position{winamp, clock, state.InSuspend};
    SavedState saved({audio, winamp, store, clock, position});
    audio.ListFile = "a list";
    saved.Started(33);
    EXPECT_EQ(writer.replaced, 1);
    audio.CurrentTrack = 4;
    saved.TrackChanged();
    EXPECT_EQ(writer.replaced, 2);
    EXPECT_EQ(SavedPlace(), "4 at 0");
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
    volumes.serials["/media/disc"] = 77;
    EXPECT_EQ(Prepare(disc), ResumeResult::Ready);
    settings.values.CDDriveLetter = "NONE";
    EXPECT_EQ(Prepare("volumeserial=78\r\n"), ResumeResult::Ready);
    DeleteFileAt(app.File("vk_audio.m3u"));
    audio = {};
    EXPECT_EQ(Prepare(""), ResumeResult::NoList);
    EXPECT_EQ(audio.PlayMode, PlayNone);
}

TEST_F(ResumeTest, TakesWholeSecondsAndSurvivesNonsense) {
    for (const auto& [track, selected, on] : {std::tuple("4", 5, true),
                                              {"x", 1, false},
                                              {"-9", 1, false},
                                              {"2147483647", 2147483647, true}}) {
        settings.values.DoResume = on;
        const std::string place = track + std::string("\r\nCurrentPosition=83.9\r\n");
        EXPECT_EQ(Prepare("currenttrack=" + place), ResumeResult::Ready);
        EXPECT_EQ(audio.TrackToSelect, selected);
        EXPECT_EQ(audio.ResumePosition, 83);
        EXPECT_EQ(audio.bResuming, on);
    }
    EXPECT_EQ(Prepare("CurrentPosition=1e300\r\n"), ResumeResult::Ready);
}

} // namespace vk::test
