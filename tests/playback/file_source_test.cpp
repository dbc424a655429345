#include "tests/playback/audio_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vk::test {

using testing::ElementsAre;
using testing::HasSubstr;

struct FileSourceTest : testing::Test, AudioFixture {};

TEST_F(FileSourceTest, StartsAListInTheFixedOrder) {
    Play(3, 2);
    const auto sent = process.Sent();
    const std::vector<std::int32_t> start(sent.begin(), sent.begin() + 5);
    EXPECT_THAT(start, ElementsAre(WinampStop, 101, 121, WinampPlay, 104));
    ASSERT_EQ(process.wire.ran.size(), 1u);
    EXPECT_THAT(process.wire.ran[0], HasSubstr("/ADD \"" + audio.ListFile + "\""));
    EXPECT_EQ(process.track, 1);
    EXPECT_EQ(audio.PlayingIndex, 1);
    EXPECT_FALSE(audio.bStartPlaying);
    EXPECT_EQ(list.iSelected, 1);
    EXPECT_EQ(list.iHighlight, 1);
    EXPECT_EQ(view.title, "Song2");
    EXPECT_EQ(view.artist, "Artist2");
    EXPECT_EQ(view.bitRate, "128 KB/s");
    EXPECT_EQ(view.loading, "");
    EXPECT_FALSE(state.ListBusy);
}

TEST_F(FileSourceTest, OnlyShowsAListThatIsNotToBeStarted) {
    audio.PlayMode = PlayAudio;
    audio.ListTitle = audio.ListFile = MakeList(3, "# Road music\n");
    audio.TrackToSelect = 3;
    player().ReShow();
    EXPECT_EQ(view.listTitle, "Road music");
    EXPECT_EQ(process.Count(WinampPlay), 0);
    EXPECT_EQ(list.iSelected, 2);
    EXPECT_EQ(view.title, "Song3");
}

TEST_F(FileSourceTest, GivesUpAfterAHundredPolls) {
    process.obeys = false;
    audio.bResuming = true;
    audio.ResumePosition = 30;
    Play(2);
    EXPECT_EQ(process.Count(104), 100);
    EXPECT_EQ(clock.slept, 100 * 50);
    EXPECT_EQ(process.Count(106), 0);
    EXPECT_EQ(view.title, "");
    EXPECT_TRUE(Logged("Winamp did not respond to play request in playmp3 form load"));
    EXPECT_FALSE(state.ListBusy);
}

TEST_F(FileSourceTest, ResumesAtThePositionOnce) {
    audio.bResuming = true;
    audio.ResumePosition = 42;
    Play(3, 2);
    EXPECT_EQ(process.positionMs, 42000);
    EXPECT_TRUE(Logged("resume to position 42 of current track"));
    EXPECT_EQ(Saved("CurrentPosition"), "42");
    process.positionMs = 0;
    Play(3, 1);
    EXPECT_EQ(process.positionMs, 0);
}

TEST_F(FileSourceTest, AMissingEntryStartsThereWithoutSeeking) {
    audio.bResuming = true;
    audio.ResumePosition = 42;
    audio.PlayMode = PlayAudio;
    MakeList(3);
    audio.ListFile = app.Write("gone.m3u", app.File("media/Artist1 - Song1.mp3") + "\n/gone.mp3\n" +
                                               app.File("media/Artist3 - Song3.mp3"));
    audio.TrackToSelect = 2;
    audio.bStartPlaying = true;
    player().ReShow();
    EXPECT_EQ(process.track, 1);
    EXPECT_EQ(process.Count(106), 0);
    EXPECT_EQ(process.status, 1);
}

TEST_F(FileSourceTest, AMissingListStartsNothing) {
    audio.PlayMode = PlayAudio;
    audio.ListFile = app.File("none.m3u");
    audio.bStartPlaying = true;
    player().ReShow();
    EXPECT_EQ(process.Count(WinampPlay), 0);
    EXPECT_EQ(view.title, "");
}

TEST_F(FileSourceTest, StopsWaitingWhenTheListIsChangedMeanwhile) {
    process.obeys = false;
    clock.onEvents = [&] { audio.PlayMode = PlayNone; };
    Play(1);
    EXPECT_LT(clock.slept, 200);
    EXPECT_FALSE(Logged("did not respond"));
}

TEST_F(FileSourceTest, BuildsRowsFromTagsAndNames) {
    settings.values.numberedList = true;
    TagRecord tag;
    tag.Artist = "The Band";
    tag.Title = "The Tune";
    tags["Artist1 - Song1.mp3"] = tag;
    tag.Artist.clear();
    tags["Artist2 - Song2.mp3"] = tag;
    audio.PlayMode = PlayAudio;
    MakeList(3);
    audio.ListFile =
        app.Write("l.m3u", app.File("media/Artist1 - Song1.mp3") + "\n" +
                               app.File("media/Artist2 - Song2.mp3") + "\nTrack01.CDA\n" +
                               app.Write("media/x.wma", "x") + "\n");
    player().ReShow();
    EXPECT_EQ(list.Row(0).first + list.Row(0).second, "1 - The Band - The Tune");
    EXPECT_EQ(list.Row(1).first + list.Row(1).second, "2 - The Tune");
    EXPECT_EQ(list.Row(2).first, "3 - CD Audio Track #3");
    EXPECT_EQ(list.Row(0).picture, "mp3.gif");
    EXPECT_EQ(list.Row(2).picture, "audiocd.gif");
    EXPECT_EQ(list.Row(3).picture, "wmafile.gif");
}

TEST_F(FileSourceTest, ReadsOnlyTheTagsOfRowsThatCameOnShow) {
    Play(60);
    EXPECT_LE(tagsRead, 12);
    player().PgDn();
    for (int row = list.TopRow(); row < list.TopRow() + 10; ++row)
        EXPECT_EQ(list.Row(row).second, "Song" + std::to_string(row + 1));
    EXPECT_LE(tagsRead, 24);
}

TEST_F(FileSourceTest, ReadsTagsForTheSharedArtistOnlyUntilTwoDiffer) {
    settings.values.hideDupeArtist = true;
    Play(60);
    EXPECT_LE(tagsRead, 13);
    TagRecord same;
    same.Artist = "One";
    for (int i = 1; i <= 60; ++i) {
        same.Title = "T" + std::to_string(i);
        tags["Artist" + std::to_string(i) + " - Song" + std::to_string(i) + ".mp3"] = same;
    }
    Play(60);
    EXPECT_EQ(list.ShownFirst(59), "");
}

TEST_F(FileSourceTest, KeepsALongListAliveWhileItIsRead) {
    const std::string song = app.Write("media/song.mp3", "x");
    std::string lines;
    for (int i = 0; i < 100000; ++i)
        lines += song + "\n";
    audio.PlayMode = PlayAudio;
    audio.ListFile = app.Write("long.m3u", lines);
    audio.TrackToSelect = 70001;
    audio.bStartPlaying = true;
    player().ReShow();
    EXPECT_EQ(list.ItemCount(), 100000);
    EXPECT_EQ(process.track, 70000);
    EXPECT_GE(clock.eventRuns, 100);
    EXPECT_LE(tagsRead, 12);
}

TEST_F(FileSourceTest, OkOnTheRunningTrackRestartsIt) {
    Play(5);
    process.wire.sent.clear();
    player().runok();
    EXPECT_THAT(process.Sent(), ElementsAre(WinampPlay));
}

TEST_F(FileSourceTest, OkOnAnotherTrackPlaysIt) {
    Play(5);
    player().DoPause();
    player().MoveDown();
    player().MoveDown();
    process.wire.sent.clear();
    player().runok();
    EXPECT_THAT(process.Sent(), ElementsAre(WinampPlay, 121, WinampPlay, 126));
    EXPECT_EQ(process.track, 2);
    EXPECT_EQ(audio.TrackToSelect, 3);
    EXPECT_EQ(audio.PlayingIndex, 2);
    EXPECT_FALSE(audio.bPaused);
    EXPECT_EQ(view.title, "Song3");
    EXPECT_EQ(Saved("currenttrack"), "2");
}

TEST_F(FileSourceTest, SkipsToWhatTheProcessChooses) {
    Play(5);
    process.track = 2; // its own shuffle
    player().MoveAhead();
    EXPECT_EQ(audio.CurrentTrack, 3);
    EXPECT_EQ(audio.TrackToSelect, 3);
    EXPECT_EQ(list.iSelected, 3);
    player().MoveBack();
    EXPECT_EQ(view.title, "Song3");
}

TEST_F(FileSourceTest, PausesAndGoesOn) {
    Play(2);
    process.positionMs = 61000;
    player().DoPause();
    EXPECT_EQ(process.status, 3);
    EXPECT_EQ(view.buttons[PlayerButton::Pause], "play.gif");
    EXPECT_EQ(Saved("CurrentPosition"), "61");
    player().DoPlay();
    EXPECT_EQ(process.status, 1);
    EXPECT_FALSE(audio.bPaused);
    player().DoPause();
    player().DoPause();
    EXPECT_EQ(process.status, 1);
    EXPECT_EQ(view.buttons[PlayerButton::Pause], "pause.gif");
}

TEST_F(FileSourceTest, FollowsTheProcessToTheNextTrack) {
    Play(5);
    clock.Advance(1100);
    process.track = 1;
    process.bitRate = 0;
    clock.Advance(1000);
    EXPECT_EQ(audio.CurrentTrack, 1);
    EXPECT_EQ(audio.PlayingIndex, 1);
    EXPECT_EQ(view.title, "Song2");
    EXPECT_EQ(view.bitRate, "");
    EXPECT_EQ(Saved("currenttrack"), "1");
    process.bitRate = 320; // known only a little later
    clock.Advance(1000);
    EXPECT_EQ(view.bitRate, "320 KB/s");
}

TEST_F(FileSourceTest, SurvivesAProcessThatAnswersNonsense) {
    Play(5);
    for (std::int32_t nonsense : {-1, 5, 99999, INT32_MIN, INT32_MAX}) {
        process.track = process.length = process.positionMs = nonsense;
        clock.Advance(2000);
        player().runok();
        player().SaveAudioData();
    }
    EXPECT_EQ(list.ItemCount(), 5);
}

TEST_F(FileSourceTest, ADiscTrackShowsItsTextAndTheDiscsSign) {
    audio.PlayMode = PlayAudio;
    audio.VolumeSerial = 77;
    volumes.ready.insert("/media/disc");
    audio.ListFile = app.Write("cd.m3u", "/media/disc/Track01.cda\n");
    player().ReShow();
    EXPECT_EQ(view.title, "CD Audio Track #1");
    EXPECT_EQ(view.artist, "");
    EXPECT_EQ(view.bitRate, "");
    EXPECT_EQ(view.mediaType, "cdicon.gif");
    Play(1);
    EXPECT_EQ(view.mediaType, "mp3icon.gif");
}

} // namespace vk::test
