// Real discs in the real player.
#include "platform/dvd_player.h"
#include "tests/paths.h"
#include "tests/support/film_loop.h"

#include <gtest/gtest.h>

#include <cstdlib>

// What fonts and codecs keep for the life of the process stands in plug-ins that libVLC has
// unloaded by its end, where no suppression can name it.
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizer's own name
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}
// NOLINTEND(bugprone-reserved-identifier)

namespace vk::test {
namespace {

struct DvdPlayerTest : testing::Test {
    DvdPlayerTest() {
        player->Screen({640, 480});
        player->onPicture = [this] { picture = player->Picture(); };
        disc.onNotify = [this](int code, std::int64_t first, std::int64_t) {
            told += std::to_string(code) + ":" + std::to_string(first) + " ";
        };
    }
    void Begin(const std::string& name) {
        disc.Directory(std::string(VK_TEST_FILMS "/") + name);
        player->Play();
    }
    /// A colour at a place of 720 by 576 points is seen.
    bool Sees(int x, int y, int red, int green, int blue) {
        return loop.Until([=, this] {
            if (!picture || picture->width != 640 || picture->height != 480) return false;
            const auto* row = picture->pixels + y * 480 / 576 * picture->stride / 4;
            const auto near = [&](int shift, int wanted) {
                return std::abs(static_cast<int>(row[x * 640 / 720] >> shift & 0xFF) - wanted) < 60;
            };
            return near(16, red) && near(8, green) && near(0, blue);
        });
    }
    bool SeesRed() { return Sees(360, 288, 250, 0, 0); }
    bool SeesBlue() { return Sees(360, 288, 0, 0, 250); }
    /// The frame around a button of the menu.
    bool SeesChosen(int x, int y) { return Sees(x + 10, y + 10, 250, 250, 0); }

    FilmLoop loop;
    std::string reason;
    std::unique_ptr<MediaPlayer> player = LoadMediaPlayer(VK_APP_DIR, loop, reason);
    DvdPlayer& disc = player->Dvd();
    std::shared_ptr<const FilmPicture> picture;
    std::string told;
};

TEST_F(DvdPlayerTest, AMenuIsWorkedByKeysAndTouchAndLeadsToItsTitles) {
    Begin("disc.iso");
    ASSERT_TRUE(SeesChosen(80, 120));
    EXPECT_TRUE(disc.InMenu() && disc.Title() == 0);
    EXPECT_FALSE(disc.UOPValid(uop::NextChapter));
    disc.Press(DvdKey::Right);
    ASSERT_TRUE(SeesChosen(400, 120));
    disc.Press(DvdKey::Left);
    ASSERT_TRUE(SeesChosen(80, 120));
    disc.Press(DvdKey::Enter);
    ASSERT_TRUE(SeesRed());
    ASSERT_TRUE(loop.Until([this] { return disc.Title() == 1; }));
    EXPECT_FALSE(disc.UOPValid(uop::Buttons));
    EXPECT_TRUE(disc.UOPValid(uop::RootMenu) && disc.UOPValid(uop::NextChapter));
    disc.RootMenu();
    ASSERT_TRUE(SeesChosen(80, 120));
    disc.Touch(200.0 / 720, 400.0 / 576);
    ASSERT_TRUE(SeesBlue());
    EXPECT_EQ(disc.Title(), 2);
    EXPECT_EQ(told, "257:3 257:4 258:1 257:3 257:4 258:2 ");
}

TEST_F(DvdPlayerTest, ADiscWithoutAMenuPlaysAndHasNoneToLeadTo) {
    Begin("plain.iso");
    ASSERT_TRUE(SeesBlue());
    EXPECT_EQ(disc.CurrentDomain(), DvdDomain::Title);
    EXPECT_FALSE(disc.UOPValid(uop::RootMenu));
    player->CurrentPosition(14);
    player->onEnded = [this] { told += "end"; };
    ASSERT_TRUE(loop.Until([this] { return told.ends_with("end"); }));
    EXPECT_EQ(told, "257:4 258:1 257:5 end");
}

TEST_F(DvdPlayerTest, WhatATitleForbidsIsKnownWhileItPlays) {
    Begin("strict");
    ASSERT_TRUE(SeesChosen(80, 120));
    EXPECT_TRUE(disc.UOPValid(uop::PauseOn)) << "in the menu";
    disc.Title(1);
    ASSERT_TRUE(loop.Until([this] { return disc.Title() == 1; }));
    EXPECT_FALSE(disc.UOPValid(uop::PauseOn) || disc.UOPValid(uop::NextChapter));
    EXPECT_TRUE(disc.UOPValid(uop::PreviousChapter));
}

TEST_F(DvdPlayerTest, ASceneIsSeenFromTheAngleThatWasChosen) {
    Begin("strict");
    ASSERT_TRUE(SeesChosen(80, 120));
    EXPECT_TRUE(player->Tracks(TrackKind::Angle).empty()) << "in the menu";
    disc.Title(1);
    ASSERT_TRUE(SeesRed());
    ASSERT_TRUE(loop.Until([this] { return player->Tracks(TrackKind::Angle).size() == 2; }));
    EXPECT_EQ(player->Track(TrackKind::Angle), 1);
    player->Track(TrackKind::Angle, 2);
    disc.RootMenu();
    ASSERT_TRUE(SeesChosen(80, 120));
    disc.Title(1);
    EXPECT_TRUE(Sees(360, 288, 0, 125, 0));
    EXPECT_TRUE(loop.Until([this] { return player->Track(TrackKind::Angle) == 2; }));
}

} // namespace
} // namespace vk::test
