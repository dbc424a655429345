#include "playback/audio/track_list.h"
#include "tests/support/core_test.h"

namespace vk::test {

struct TrackListTest : testing::Test {
    TempFolder folder;
    std::string song = folder.Write("a song.mp3", "x"), other = folder.Write("other.wma", "x");
    TrackListNeeds needs;
    TrackList Read(const std::string& lines, std::int32_t wanted = 1) {
        return ReadTrackList(folder.Write("list.m3u", lines), wanted, needs);
    }
};

TEST_F(TrackListTest, TakesFilesAndDiscTracksAndLeavesOutTheRest) {
    const auto list = Read("# Road music\r\n#EXTM3U\n#EXTINF:1,x\n" + song +
                           "\n\n/no/such.mp3\n/media/disc/Track02.cda\r\nTRACK.CDA\n" + other +
                           "\nhttps://radio/live\n");
    ASSERT_EQ(list.tracks.size(), 5u);
    EXPECT_EQ(list.title, "Road music");
    EXPECT_EQ(list.tracks[0].path, song);
    EXPECT_FALSE(list.tracks[0].tagged);
    EXPECT_EQ(list.tracks[1].title, "CD Audio Track #2");
    EXPECT_EQ(list.tracks[2].title, "CD Audio Track #3");
    EXPECT_TRUE(list.tracks[2].IsDiscTrack());
    EXPECT_EQ(list.tracks[3].path, other);
    EXPECT_TRUE(list.tracks[4].IsStream());
    EXPECT_EQ(list.tracks[4].title, "https://radio/live") << "until it tells its own";
    EXPECT_TRUE(Read(song + "\n/gone.mp3\n" + other, 2).wantedMissing);
    EXPECT_TRUE(Read("/gone.mp3\n" + song, 1).wantedMissing);
    EXPECT_FALSE(Read("/gone.mp3\n" + song + "\n" + other, 2).wantedMissing);
    EXPECT_FALSE(Read("# a comment\n" + song, 1).wantedMissing);
}

TEST_F(TrackListTest, AsksTheCatalogueForAStoredQuery) {
    std::string asked;
    needs.query = [&](const std::string& sql) {
        asked = sql;
        return std::vector<CatalogueRow>{{"/gone.mp3", "G", "Gone"},
                                         {song, "Singer", "Song"},
                                         {"/gone2.mp3", "H", "Gone too"},
                                         {"/disc/Track01.cda", "", "First"}};
    };
    const auto list = Read("# SELECT Path, Artist, Title FROM Media\n", 2);
    EXPECT_EQ(asked, "SELECT Path, Artist, Title, MediaType FROM Media");
    ASSERT_EQ(list.tracks.size(), 2u);
    EXPECT_EQ(list.tracks[0].artist, "Singer");
    EXPECT_EQ(list.tracks[1].path, "/disc/Track01.cda");
    EXPECT_TRUE(list.wantedMissing); // the second missing one stood where entry 2 was wanted
    EXPECT_FALSE(Read("# SELECT Path FROM Media\n", 1).wantedMissing);
    const std::string with = "SELECT Path, MediaType FROM Media";
    const std::pair<std::string, std::string> queries[] = {
        {with, with}, // it is there already, and behind " FROM" it does not count
        {"SELECT Path FROM Media WHERE MediaType=1", with + " WHERE MediaType=1"},
        {"SELECT 1", "SELECT 1"}};
    for (const auto& [query, passedOn] : queries) {
        Read("# " + query);
        EXPECT_EQ(asked, passedOn);
    }
}

TEST_F(TrackListTest, LogsAQueryThatNoCatalogueCanAnswer) {
    std::vector<std::string> lines;
    needs.log = [&](const std::string& text) { lines.push_back(text); };
    for (const std::size_t logged : {1u, 2u}) {
        EXPECT_EQ(Read("# SELECT Path FROM Media\n" + song).tracks.size(), 1u);
        EXPECT_EQ(lines.size(), logged);
        needs.query = [](const std::string& sql) -> std::vector<CatalogueRow> {
            throw std::runtime_error("no such table in " + sql);
        };
    }
}

} // namespace vk::test
