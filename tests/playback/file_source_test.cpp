#include "tests/playback/audio_fixture.h"

namespace vk::test {

using testing::Each, testing::HasSubstr;

struct FileSourceTest : testing::Test, AudioFixture {
    void Resume(std::int32_t seconds) {
        audio.bResuming = true;
        audio.ResumePosition = seconds;
    }
    void Tag(int song, const std::string& artist, const std::string& title) {
        TagRecord& tag = tags[FileNameOf(Song(song))];
        tag.Artist = artist;
        tag.Title = title;
    }
    std::string Row(int row) const {
        return list.Row(row).first + list.Row(row).second + ", " + list.Row(row).picture;
    }
    std::string Shown() const { return view.artist + " - " + view.title + ", " + view.bitRate; }
    /// All that count tracks, which agree but after a choice of the user.
    std::vector<std::int32_t> Places() const {
        return {audio.CurrentTrack, audio.PlayingIndex, audio.TrackToSelect, list.iSelected};
    }
};

TEST_F(FileSourceTest, StartsAListInTheFixedOrderAndOkRestartsTheTrackOrPlaysAnother) {
    Play(5, 2);
    auto start = process.Sent();
    start.resize(5);
    EXPECT_THAT(start, ElementsAre(WinampStop, 101, 121, WinampPlay, 104));
    EXPECT_THAT(process.wire.ran, ElementsAre(HasSubstr("/ADD \"" + audio.ListFile + "\"")));
    EXPECT_EQ(process.State(), "playing 1 at 0");
    EXPECT_THAT(Places(), ElementsAre(1, 1, 2, 1));
    EXPECT_EQ(list.iHighlight, 1);
    EXPECT_EQ(Shown() + view.loading, "Artist2 - Song2, 128 KB/s");
    EXPECT_FALSE(audio.bStartPlaying);
    process.wire.sent.clear();
    player().runok();
    EXPECT_THAT(process.Sent(), ElementsAre(WinampPlay));
    player().DoPause();
    player().MoveDown();
    process.wire.sent.clear();
    player().runok();
    EXPECT_THAT(process.Sent(), ElementsAre(WinampPlay, 121, WinampPlay, 126));
    EXPECT_THAT(Places(), ElementsAre(2, 2, 3, 2));
    EXPECT_EQ(view.title, "Song3");
    EXPECT_EQ(Saved("currenttrack"), "2");
    EXPECT_FALSE(audio.bPaused);
    process.positionMs = 61000;
    for (const auto goOn : {&AudioPlayer::DoPlay, &AudioPlayer::DoPause}) {
        player().DoPause();
        EXPECT_EQ(process.State(), "paused 2 at 61");
        EXPECT_EQ(view.buttons[PlayerButton::Pause], "play.gif");
        EXPECT_EQ(Saved("CurrentPosition"), "61");
        (player().*goOn)();
        EXPECT_EQ(process.State(), "playing 2 at 61");
        EXPECT_EQ(view.buttons[PlayerButton::Pause], "pause.gif");
    }
}

TEST_F(FileSourceTest, ResumesOnceAtThePositionUnlessTheEntryIsMissing) {
    Resume(42);
    PlayList(app.File("none.m3u"));
    EXPECT_EQ(process.Count(WinampPlay), 0);
    EXPECT_EQ(view.title, "");
    MakeList(3);
    Resume(42);
    PlayList(app.Write("gone.m3u", Song(1) + "\n/gone.mp3\n" + Song(3)), 2);
    EXPECT_EQ(process.State(), "playing 1 at 0");
    EXPECT_EQ(process.Count(106), 0);
    Resume(42);
    Play(3, 2);
    EXPECT_EQ(process.State(), "playing 1 at 42");
    EXPECT_EQ(Saved("CurrentPosition"), "42");
    Play(3, 1);
    EXPECT_EQ(process.State(), "playing 0 at 0");
}

TEST_F(FileSourceTest, BuildsRowsFromTagsAndNamesOfAListThatIsOnlyShown) {
    settings.values.numberedList = true;
    Tag(1, "The Band", "The Tune");
    Tag(2, "", "The Tune");
    InsertDisc();
    MakeList(2);
    ChooseList(app.Write("l.m3u", "# Road music\n" + Song(1) + "\n" + Song(2) + "\nTrack01.CDA\n" +
                                      app.Write("media/x.wma", "x") + "\n"),
               3);
    audio.bStartPlaying = false;
    Enter();
    EXPECT_EQ(process.Count(WinampPlay), 0);
    EXPECT_EQ(view.listTitle + Shown(), "Road music - CD Audio Track #3, ");
    EXPECT_EQ(view.mediaType, "cdicon.gif");
    EXPECT_EQ(list.iSelected, 2);
    EXPECT_EQ(Row(0), "1 - The Band - The Tune, mp3.gif");
    EXPECT_EQ(Row(1), "2 - The Tune, mp3.gif");
    EXPECT_EQ(Row(2), "3 - CD Audio Track #3, audiocd.gif");
    EXPECT_EQ(list.Row(3).picture, "wmafile.gif");
    Play(1); // a file on the disc
    EXPECT_EQ(view.mediaType, "mp3icon.gif");
}

TEST_F(FileSourceTest, ReadsOnlyTheTagsOfRowsThatCameOnShow) {
    Play(60);
    EXPECT_LE(tagsRead, 12);
    player().PgDn();
    for (int row = list.TopRow(); row < list.TopRow() + 10; ++row)
        EXPECT_EQ(list.Row(row).second, "Song" + std::to_string(row + 1));
    EXPECT_LE(tagsRead, 24);
    settings.values.hideDupeArtist = true; // asks for the artists until two differ
    tagsRead = 0;
    Play(60);
    EXPECT_LE(tagsRead, 13);
    for (int i = 1; i <= 60; ++i)
        Tag(i, "One", "T" + std::to_string(i));
    Play(60);
    EXPECT_EQ(list.ShownFirst(59), "");
}

TEST_F(FileSourceTest, KeepsTheSystemAliveWhileALongListIsReadAndLeavesAtOnce) {
    const std::string song = app.Write("media/song.mp3", "x") + "\n";
    std::string lines;
    for (int i = 0; i < 100000; ++i)
        lines += song;
    clock.workMs = 5;
    PlayList(app.Write("long.m3u", lines), 70001);
    EXPECT_EQ(list.ItemCount(), 100000);
    EXPECT_EQ(process.track, 70000);
    EXPECT_GE(clock.eventRuns, 100);
    EXPECT_LE(tagsRead, 12);
    process.wire.sent.clear();
    clock.onEvents = [this] { QuitMeanwhile(); };
    ChooseList(app.Write("longer.m3u", lines + lines));
    Command(&AudioPlayer::ReDisplay);
    EXPECT_EQ(list.ItemCount(), 100000) << "the rows of before";
    EXPECT_EQ(process.Count(WinampPlay), 0);
    EXPECT_EQ(menu.Count("ReShow"), 1);
}

TEST_F(FileSourceTest, FollowsTheProcessToWhateverItChooses) {
    Play(5);
    clock.Advance(1100);
    process.track = 1;
    process.bitRate = 0;
    clock.Advance(1000);
    EXPECT_THAT(Places(), Each(1));
    EXPECT_EQ(Shown() + Saved("currenttrack"), "Artist2 - Song2, 1");
    process.bitRate = 320; // known only a little later
    clock.Advance(1000);
    EXPECT_EQ(Shown(), "Artist2 - Song2, 320 KB/s");
    process.track = 2; // its own shuffle
    player().MoveAhead();
    process.positionMs = 7000;
    clock.Advance(200); // the time follows at once
    EXPECT_EQ(view.time, "TrackTime: 2:52");
    EXPECT_THAT(Places(), Each(3));
    player().MoveBack();
    EXPECT_EQ(view.title, "Song3");
    for (std::int32_t nonsense : {-1, 5, 99999, INT32_MIN, INT32_MAX}) {
        process.track = process.length = process.positionMs = nonsense;
        clock.Advance(2000);
        player().runok();
        player().SaveAudioData();
    }
    EXPECT_EQ(list.ItemCount(), 5);
}

TEST_F(FileSourceTest, AStreamIsCalledWhatItTells) {
    MakeList(1);
    PlayList(app.Write("s.m3u", Song(1) + "\nhttp://radio/live\n"), 2);
    EXPECT_EQ(view.title, "http://radio/live");
    const std::pair<const char*, const char*> titles[] = {
        {"Winamp", "http://radio/live"},
        {"2. Anna - One - Winamp", "Anna - One"},
        {"2. 9. Symphony - Winamp [Paused]", "9. Symphony"}};
    for (const auto& [told, title] : titles) {
        process.wire.title = told;
        clock.Advance(1100);
        EXPECT_EQ(view.title, title);
        EXPECT_EQ(list.Row(1).first, title);
    }
    EXPECT_EQ(process.State(), "playing 1 at 0") << "nothing begins anew for it";
}

TEST_F(FileSourceTest, AQuerysTracksAreHandedOverByName) {
    MakeList(3);
    query = [&](const std::string&) {
        return std::vector<CatalogueRow>{{Song(3), "", "Three"}, {Song(1), "", "One"}};
    };
    PlayList(app.Write("q.m3u", "# SELECT Path FROM Media\n" + Song(2)), 2);
    EXPECT_EQ(view.title, "One");
    EXPECT_THAT(process.wire.ran, ElementsAre(HasSubstr(app.File("vk_audio_expanded.m3u"))));
    EXPECT_EQ(app.Read("vk_audio_expanded.m3u"),
              Song(3) + "\r\n" + Song(1) + "\r\n" + Song(2) + "\r\n");
    EXPECT_EQ(audio.ListFile, app.File("q.m3u"));
}

TEST_F(FileSourceTest, AddsAFavouriteOnceAndSaysWhatFailed) {
    const std::string file = app.Write("favorites.m3u", "#EXTM3U\n" + Song(1));
    Play(3, 2);
    const auto add = [&] {
        player().AddToFavorites();
        return view.clocks.back();
    };
    EXPECT_EQ(add(), "ADDING: " + Song(2));
    clock.Advance(700);
    EXPECT_EQ(view.clocks.back(), "ADDING: " + Song(2));
    clock.Advance(100);
    EXPECT_EQ(view.clocks.back(), "Saturday, November 21, 2026    12:0");
    add();
    EXPECT_EQ(app.Read("favorites.m3u"), "#EXTM3U\n" + Song(1) + "\r\n" + Song(2) + "\r\n");
    DeleteFileAt(file);
    audio.VolumeSerial = 77;
    add();
    EXPECT_FALSE(FileExists(file)) << "nothing of a disc";
    audio.VolumeSerial = -1;
    app.MakeFolder("favorites.m3u"); // cannot be replaced
    EXPECT_THAT(add(), testing::StartsWith("favorites.m3u cannot be written: "));
    EXPECT_TRUE(Logged("An error occured in playmp3.AddToFavorites() favorites.m3u cannot be"));
    std::filesystem::remove(file);
    app.Write("favorites.m3u", std::string(17 << 20, 'x'));
    EXPECT_EQ(add(), "favorites.m3u cannot be read");
    EXPECT_EQ(FileLength(file), 17u << 20);
}

} // namespace vk::test
