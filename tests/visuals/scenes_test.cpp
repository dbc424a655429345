// The scenes on canvases of every size, and the change from one to another.
#include "visuals/scenes/stage.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace vk::test {
namespace {

constexpr Pixel Guard = 0x12345678;
constexpr int Margin = 3; // pixels of guards around a canvas

struct Sheet {
    Sheet(int width, int height)
        : pixels(static_cast<std::size_t>((width + 2 * Margin) * (height + 2 * Margin)), Guard),
          canvas{pixels.data() + Margin * (width + 2 * Margin) + Margin, width, height,
                 width + 2 * Margin} {}
    std::vector<Pixel> Inside() const {
        std::vector<Pixel> all;
        for (int y = 0; y < canvas.height; ++y)
            all.insert(all.end(), canvas.Line(y), canvas.Line(y) + canvas.width);
        return all;
    }
    std::vector<Pixel> pixels;
    Canvas canvas;
};

SoundPicture Loud() {
    SoundPicture sound;
    sound.bands.fill(1);
    sound.peaks.fill(1);
    for (std::size_t i = 0; i < sound.wave.size(); ++i)
        sound.wave[i] = i / 8 % 2 ? 1.0f : -1.0f;
    sound.bass = sound.middle = sound.treble = 1;
    return sound;
}

TrackLook Look(const LookSizes& sizes, Pixel colour) {
    TrackLook look;
    look.cover = Bitmap(sizes.cover, sizes.cover);
    std::ranges::fill(look.cover.pixels, colour);
    look.text = Bitmap(sizes.textWidth, sizes.textHeight);
    std::ranges::fill(look.text.pixels, 0xFFFFFFFF);
    return look;
}

TEST(ScenesTest, DrawInsideOfTheirCanvasWhatTheySayAndFollowTheSound) {
    for (const std::string_view name : SceneNames())
        for (const auto& [width, height] : {std::pair(64, 64), {65, 301}, {321, 200}, {801, 97}}) {
            SCOPED_TRACE(std::string(name) + " " + std::to_string(width));
            const auto scene = MakeScene(name, width, height);
            scene->SetTrack(Look(scene->Sizes(), Rgb(250, 20, 20)));
            Sheet sheet(width, height);
            scene->Draw(sheet.canvas, {}, 0);
            const auto quiet = sheet.Inside();
            EXPECT_EQ(std::ranges::count(quiet, Guard), 0) << "the first picture is whole";
            EXPECT_EQ(std::ranges::count(sheet.pixels, Guard) + width * height,
                      static_cast<std::ptrdiff_t>(sheet.pixels.size()));
            const Area area = scene->Draw(sheet.canvas, Loud(), 0.5);
            const auto loud = sheet.Inside();
            EXPECT_NE(loud, quiet);
            for (std::size_t i = 0; i < loud.size(); ++i) {
                const int x = static_cast<int>(i) % width, y = static_cast<int>(i) / width;
                const bool told = x >= area.x && x < area.x + area.width && y >= area.y &&
                                  y < area.y + area.height;
                ASSERT_TRUE(told || loud[i] == quiet[i]) << x << ", " << y;
            }
            const bool shows = scene->Sizes().cover > 0;
            EXPECT_EQ(std::ranges::count(loud, Rgb(250, 20, 20)) > 100, shows);
        }
}

struct StageTest : testing::Test {
    Stage stage{320, 200,
                [this](const LookSizes& sizes) {
                    looks.insert(sizes.cover);
                    return Look(sizes, Rgb(1, 2, 3));
                },
                5};
    std::set<int> looks; ///< the sizes of covers asked for
};

TEST_F(StageTest, ASceneComesUpSlowlyOutOfTheOneBefore) {
    stage.Play("spectrum", 0);
    stage.Draw({}, 0);
    const Pixel before = stage.Picture().Line(100)[160];
    stage.Play("cover", 1);
    stage.Draw({}, 1);
    EXPECT_EQ(stage.Picture().Line(100)[160], before);
    stage.Draw({}, 1.5);
    EXPECT_NE(stage.Picture().Line(100)[160], before);
    EXPECT_NE(stage.Picture().Line(100)[160], Rgb(1, 2, 3));
    stage.Play("scope", 1.6); // in the middle of it
    for (const double at : {1.6, 2.0, 3.0, 3.1})
        stage.Draw({}, at);
    stage.Play("cover", 4);
    stage.Draw({}, 5);
    EXPECT_EQ(stage.Picture().Line(100)[160], Rgb(1, 2, 3));
    EXPECT_EQ(looks.size(), 2u) << "each scene gets what it has room for";
}

TEST_F(StageTest, ByItselfItTakesAnotherWithEachTrackAndEachMinute) {
    stage.Play(Stage::Random, 0);
    std::set<std::string> seen;
    for (int track = 1; track <= 60; ++track) {
        const std::string before = stage.Scene();
        seen.insert(before);
        if (track % 2)
            stage.TrackChanged(true, track * 100);
        else
            stage.Draw({}, track * 100);
        EXPECT_NE(stage.Scene(), before);
        const std::string now = stage.Scene();
        stage.TrackChanged(false, track * 100 + 1); // its cover is there
        stage.Draw({}, track * 100 + 59);
        EXPECT_EQ(stage.Scene(), now);
    }
    EXPECT_EQ(seen.size(), SceneNames().size());
    stage.Play("aurora", 9000);
    stage.TrackChanged(true, 9001);
    EXPECT_EQ(stage.Scene(), "aurora");
}

} // namespace
} // namespace vk::test
