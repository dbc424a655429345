// Real films in the real player.
#include "platform/mpeg/key_pictures.h"
#include "tests/paths.h"
#include "tests/support/film_loop.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <optional>
#include <sstream>

namespace vk::test {
namespace {

/// The player, and what it has told of the film that was opened last.
struct FilmPlayerTest : testing::Test {
    FilmPlayerTest() {
        player->onPicture = [this] {
            picture = player->Picture();
            ++pictures;
        };
        player->onEnded = player->onFailed = [this] { over = true; };
    }
    void Open(const std::string& name, double seconds = 0) {
        picture.reset();
        over = false;
        player->FileName(std::string(VK_TEST_FILMS "/") + name);
        if (seconds > 0) player->CurrentPosition(seconds);
        player->Play();
    }
    bool Sees() {
        return loop.Until([this] { return picture || over; }) && picture;
    }
    bool Ends() {
        return loop.Until([this] { return over; });
    }

    FilmLoop loop;
    std::string reason;
    std::unique_ptr<MediaPlayer> player = LoadMediaPlayer(VK_APP_DIR, loop, reason);
    std::shared_ptr<const FilmPicture> picture;
    int pictures = 0;
    bool over = false;
};

TEST_F(FilmPlayerTest, EveryKindOfFilmShowsItsPicturesInTheirShape) {
    struct Kind {
        const char* name;
        PixelSize size, screen;
        double shape; ///< width over height, as it is to be seen
    };
    const PixelSize small{320, 240}, panel{800, 480};
    for (const Kind& kind : {Kind{"mpeg2.mpg", small, panel, 4.0 / 3},
                             {"mpeg4.avi", small, panel, 4.0 / 3},
                             {"theora.mkv", small, panel, 4.0 / 3},
                             {"h264.mp4", small, panel, 4.0 / 3},
                             {"h265.mkv", small, panel, 4.0 / 3},
                             {"vp9.webm", small, panel, 4.0 / 3},
                             {"h264.ts", small, panel, 4.0 / 3},
                             {"silent.avi", small, panel, 4.0 / 3},
                             {"wrongname.mpg", small, panel, 4.0 / 3},
                             {"anamorphic.mpg", {800, 450}, panel, 16.0 / 9},
                             {"anamorphic.mpg", {720, 576}, {1024, 768}, 16.0 / 9},
                             {"interlaced.mpg", {600, 480}, panel, 5.0 / 4},
                             {"portrait.mp4", {240, 320}, panel, 3.0 / 4},
                             {"scope.mkv", {320, 136}, {320, 240}, 640.0 / 272},
                             {"portrait.mp4", {75, 100}, {400, 100}, 3.0 / 4}}) {
        player->Screen(kind.screen);
        Open(kind.name);
        ASSERT_TRUE(Sees()) << kind.name;
        EXPECT_EQ((PixelSize{picture->width, picture->height}), kind.size) << kind.name;
        const double shape = picture->width * picture->pixelAspect / picture->height;
        EXPECT_NEAR(shape, kind.shape, 0.02) << kind.name;
    }
}

TEST_F(FilmPlayerTest, WhateverAFileHoldsItsEndIsTold) {
    struct Case {
        const char* name;
        double from;
        std::optional<bool> seen; ///< it has pictures; libVLC may end before it shows a single one
    };
    for (const Case& c : {Case{"oneframe.avi", 0, std::nullopt},
                          {"cut.mpg", 1, true},
                          {"cut.mkv", 1, true},
                          {"soundonly.mp4", 1.5, false},
                          {"noise.avi", 0, false},
                          {"cutindex.mp4", 0, false},
                          {"empty.avi", 0, false},
                          {"nowhere.avi", 0, false},
                          {"", 0, false}}) {
        Open(c.name, c.from);
        ASSERT_TRUE(Ends()) << c.name;
        EXPECT_EQ(picture != nullptr, c.seen.value_or(picture != nullptr)) << c.name;
    }
}

TEST_F(FilmPlayerTest, SoundAndSubtitlesAreToldAndChosen) {
    using enum TrackKind;
    Open("tracks.mkv");
    const auto found = [this] {
        return player->Tracks(Audio).size() == 2 && player->Tracks(Subtitles).size() == 2;
    };
    ASSERT_TRUE(loop.Until([&] { return picture && found() && player->Duration() > 0; }));
    EXPECT_NEAR(player->Duration(), 20, 0.5);
    for (const TrackKind kind : {Audio, Subtitles}) {
        const int second = player->Tracks(kind)[1].id;
        EXPECT_NE(player->Track(kind), second);
        player->Track(kind, second);
        EXPECT_TRUE(loop.Until([&] { return player->Track(kind) == second; }));
    }
    player->Track(Subtitles, FilmTrack::None);
    EXPECT_TRUE(loop.Until([&] { return player->Track(Subtitles) == FilmTrack::None; }));
    Open("beside.mp4");
    EXPECT_TRUE(loop.Until([this] { return player->Tracks(TrackKind::Subtitles).size() == 1; }));
}

/// How far apart two pictures are, 0 to 255 a pixel.
double Distance(const FilmPicture& a, const FilmPicture& b) {
    double sum = 0;
    const int pixels = a.stride / 4 * a.height;
    for (int i = 0; i < pixels; ++i)
        sum += std::abs(static_cast<int>(a.pixels[i] & 255) - static_cast<int>(b.pixels[i] & 255));
    return sum / pixels;
}

// In one of them the second picture is decoded before its sound begins.
TEST_F(FilmPlayerTest, AFilmGoesToAMomentAndIsPaused) {
    for (const char* name : {"mpeg2.mpg", "h264.mp4", "h264.ts"}) {
        Open(name);
        ASSERT_TRUE(Sees()) << name;
        const auto first = picture;
        pictures = 0;
        player->CurrentPosition(2);
        EXPECT_TRUE(loop.Until([this] { return player->CurrentPosition() > 2.1; })) << name;
        EXPECT_LT(pictures, 40) << name << ": those in between were not shown";
        double farthest = 0;
        player->CurrentPosition(0);
        EXPECT_TRUE(loop.Until([&] {
            farthest = std::max(farthest, Distance(*first, *picture));
            return player->CurrentPosition() > 0.3;
        })) << name;
        EXPECT_LT(farthest, 60) << name << ": a picture without the one that it is made from";
        player->CurrentPosition(2.5);
        player->Pause();
        EXPECT_EQ(player->PlayState(), PlayStateValue::Paused);
        player->Play();
        EXPECT_TRUE(Ends()) << name;
    }
}

// Each of these has a picture that needs no other one every 12 pictures.
TEST(KeyPictures, AreFoundWhereFilmsTellThem) {
    const auto near = [](const std::string& name, double seconds) {
        const auto keys = KeyPicturesOf(std::string(VK_TEST_FILMS "/") + name);
        return keys ? keys->Near(seconds) : std::nullopt;
    };
    for (const char* name : {"mpeg2.mpg", "h264.ts", "h264.mp4"}) {
        for (const double seconds : {0.0, 0.4, 1.0, 1.5, 2.3, 2.7}) {
            const double expected = std::round(seconds / 0.48) * 0.48;
            EXPECT_NEAR(near(name, seconds).value_or(-1), expected, 0.1) << name << seconds;
        }
        EXPECT_FALSE(near(name, 100)) << name;
    }
    EXPECT_TRUE(near("cut.mpg", 1) && near("anamorphic.mpg", 1));
    for (const char* name : {"noise.avi", "empty.avi", "nowhere.avi", "wrongname.mpg", "h265.mkv"})
        EXPECT_FALSE(near(name, 1)) << name;
}

// Whatever an index has been left with, it is read to an end.
TEST(KeyPictures, TornAndHostileIndexesAreRead) {
    const TempFolder folder;
    std::stringstream whole;
    whole << std::ifstream(VK_TEST_FILMS "/h264.mp4").rdbuf();
    const std::string bytes = whole.str();
    const auto index = bytes.find("moov");
    ASSERT_NE(index, bytes.npos);
    for (std::size_t at = 0; at < bytes.size() - index; at += 23) {
        std::string wild = bytes.substr(index - 4);
        wild[at] = at % 2 ? '\xFF' : '\x7F';
        if (const auto keys = KeyPicturesOf(folder.Write("wild.mp4", wild))) keys->Near(1);
    }
}

TEST_F(FilmPlayerTest, FilmsFollowOneAnotherWithoutWaiting) {
    for (const char* name : {"h264.mp4", "noise.avi", "mpeg2.mpg", "", "vp9.webm", "empty.avi"})
        Open(name); // closed before it was open
    Open("theora.mkv");
    EXPECT_TRUE(Sees());
    player->FileName("");
    EXPECT_EQ(player->Picture(), nullptr);
    const auto held = picture;
    player.reset();
    EXPECT_EQ(held->pixels[0] & 0, 0u) << "its memory stays, also beyond the player's end";
}

} // namespace
} // namespace vk::test
