#include "tests/library/tag_bytes.h"
#include "tests/playback/audio_fixture.h"

#include <thread>

namespace vk::test {

using namespace std::string_literals;

struct CoverArtTest : testing::Test, AudioFixture {
    /// The picture on show after what the background does.
    std::string Cover() {
        view.FinishCover();
        return view.cover;
    }
    std::string Picture(const std::string& name) {
        return app.Write("media/" + name, "picture " + name);
    }
    std::string Tagged(const std::string& name, const std::string& picture) {
        return app.Write(name, ID3v2(3, Frame(3, "APIC", "\0image/jpeg\0\3\0"s + picture)));
    }
    static constexpr const char* Error = "error in playmp3.ShowCoverArt(), ";
};

TEST_F(CoverArtTest, TurnsThePicturesOfTheFolderEveryFifteenSeconds) {
    for (const char* name : {"a.bmp", "b.GIF", "c.jpg", "d.JPEG", ".c.jpg", "e.png", "notes.txt"})
        Picture(name);
    Play(2);
    EXPECT_EQ(Cover(), "picture d.JPEG");
    std::vector<std::string> shown;
    for (int tick = 1; tick <= 1200; ++tick) {
        const std::string before = view.cover;
        clock.Advance(100);
        if (Cover() != before) shown.push_back(std::to_string(tick) + view.cover.substr(7));
    }
    // The first tick is the forced second; the 59th second counts as the 60th.
    EXPECT_THAT(shown, ElementsAre("142 c.jpg", "292 b.GIF", "442 a.bmp", "582 d.JPEG", "732 c.jpg",
                                   "882 b.GIF", "1032 a.bmp", "1172 d.JPEG"));
}

TEST_F(CoverArtTest, PrefersThePictureInTheTagAndRemovesItsFile) {
    Picture("folder.jpg");
    Picture("back.jpg");
    const std::string songs = MakeList(2);
    Tagged("media/" + FileNameOf(Song(1)), "picture in tag");
    Tagged("media/" + FileNameOf(Song(2)), "broken");
    PlayList(songs);
    EXPECT_EQ(Cover(), "picture in tag");
    EXPECT_FALSE(FileExists(app.File("coverart.tmp")));
    clock.Advance(60000);
    EXPECT_EQ(view.covers.size(), 1u);
    player().MoveAhead();
    EXPECT_EQ(Cover(), "picture in tag") << "a picture that fails leaves the old one";
    EXPECT_TRUE(Logged(std::string(Error) +
                       "Not a picture that can be shown: " + app.File("coverart.tmp")));
    EXPECT_FALSE(FileExists(app.File("coverart.tmp")));
    settings.values.ExtendedTags = true;
    player().sources().Current()->UpdateScreen();
    EXPECT_EQ(Cover(), "picture back.jpg") << "those of the folder have their turn";
}

TEST_F(CoverArtTest, ThreadsThatReadTagsAtOnceDoNotSpoilEachOthersPicture) {
    const auto read = [&](const std::string& name) {
        const CoverRequest request{"", Tagged(name, name), app.File("coverart.tmp")};
        for (int i = 0; i < 100; ++i)
            LoadCover(request, [&](const std::string& path) {
                EXPECT_EQ(ReadWholeFile(path).value_or(""), name);
                return true;
            });
    };
    std::thread other(read, "other");
    read("one");
    other.join();
}

TEST_F(CoverArtTest, OnePictureStandsStillADiscShowsNoneAndABrokenOneIsPassedOver) {
    const std::string only = Picture("front.jpg");
    Play(3);
    EXPECT_EQ(Cover(), "picture front.jpg");
    clock.Advance(60000);
    EXPECT_EQ(view.covers.size(), 1u);
    for (const int disc : {77, 0}) {
        audio.VolumeSerial = disc;
        player().sources().Current()->UpdateScreen();
        EXPECT_EQ(Cover(), disc ? "" : "picture front.jpg");
    }
    DeleteFileAt(only);
    player().MoveAhead();
    EXPECT_EQ(Cover(), "");
    EXPECT_FALSE(Logged(Error));
    Picture("a.jpeg");
    app.Write("media/b.jpg", "broken"); // logged once and passed over
    player().MoveAhead();
    Cover();
    for (int second = 0; second < 120; ++second) {
        clock.Advance(1000);
        EXPECT_EQ(Cover(), "picture a.jpeg");
    }
    EXPECT_EQ(LinesLogged(Error), 1);
}

} // namespace vk::test
