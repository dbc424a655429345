// The movie player's screen: where the picture and the bars stand, and what touches do.
#include "tests/skin/controls_fixture.h"
#include "tests/support/widgets.h"
#include "tests/video/movie_fixture.h"
#include "video/screen/playmovie.h"

#include <QApplication>

namespace vk::test {
namespace {

constexpr QRgb Seen = 0xFF20C040;

/// A picture of one colour.
std::shared_ptr<const FilmPicture> Plain(int width, int height, double pixelAspect) {
    struct Own {
        std::vector<std::uint32_t> memory;
        FilmPicture picture;
    };
    auto own = std::make_shared<Own>();
    own->memory.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), Seen);
    own->picture = {own->memory.data(), width, height, width * 4, pixelAspect};
    return {own, &own->picture};
}

QImage Shot(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

TEST(FilmWidget, APictureKeepsItsShapeAndTheRestIsBlack) {
    struct Case {
        int width, height;
        double aspect;
        QSize place; ///< on 800x480
    };
    for (const Case& c : {Case{720, 576, 16.0 / 15, {640, 480}},
                          {720, 576, 64.0 / 45, {800, 450}},
                          {1280, 720, 1, {800, 450}},
                          {1280, 544, 1, {800, 340}},
                          {1920, 1080, 1, {800, 450}},
                          {360, 640, 1, {270, 480}},
                          {1, 1, 1, {480, 480}}}) {
        FilmWidget film(nullptr);
        film.resize(800, 480);
        film.Show(Plain(c.width, c.height, c.aspect));
        EXPECT_EQ(film.Place().size(), c.place) << c.width << "x" << c.height;
        const QImage shot = Shot(film);
        const int seen = ControlsFixture::Count(shot, Seen);
        EXPECT_EQ(seen, c.place.width() * c.place.height()) << c.width << "x" << c.height;
        EXPECT_EQ(seen + ControlsFixture::Count(shot, qRgb(0, 0, 0)), 800 * 480);
        film.Show({});
        EXPECT_EQ(ControlsFixture::Count(Shot(film), qRgb(0, 0, 0)), 800 * 480);
    }
}

struct MovieScreenTest : testing::Test, ControlsFixture {
    MoviePlayer::Needs Needs() {
        return {
            .base = base,
            .video = video,
            .browser = browsed,
            .loudness = sound.loudness,
            .saver = saver,
            .makePlayer = [this](std::string&) { return std::make_unique<FakeMediaPlayer>(film); },
            .probe = probe,
            .tagOf = [](const std::string&) { return TagRecord{}; }};
    }
    MovieScreenTest() {
        settings.values.MovShowBar = true;
        app.Write("list.m3u", app.Write("a.mpg", "film") + "\n");
        video.ListFile = app.File("list.m3u");
        screens.Add(HomeScreen, menu);
    }
    VideoState video;
    BrowserState browsed;
    SoundCard sound{*this};
    KeyMap keys;
    FakeMediumProbe probe;
    FakeScreenSaver saver;
    FakeFilm film;
    RecordingScreen menu;
};

TEST_F(MovieScreenTest, TheBarsFitEveryPanelAndLieOverTheFilm) {
    for (const QSize size : PanelSizes) {
        state.ScreenWidth = size.width();
        state.ScreenHeight = size.height();
        host.resize(size);
        playmovie screen({state, settings.values, skin, pictures, clock, pump, commands}, Needs(),
                         keys, &host);
        screen.player().ReShow();
        film.picture = Plain(720, 576, 1);
        film.player->onPicture();
        EXPECT_FALSE(screen.findChild<QWidget*>("frmButtonBar")->isVisible());
        Tap(screen, screen.rect().center());
        EXPECT_TRUE(screen.findChild<QWidget*>("frmInfoBar")->isVisible());
        ExpectChildrenInside(screen);
        screen.keys().domute();
        screen.DoLayout(); // as for another skin
        ExpectChildrenInside(screen);
        EXPECT_EQ(film.screen, (PixelSize{size.width(), size.height()}));
        EXPECT_EQ(film.state, PlayStateValue::Playing) << "that touch only brought the bars";
        Click(*screen.findChild<QWidget*>("PauseBtn"), {20, 20});
        EXPECT_EQ(film.state, PlayStateValue::Paused);
        EXPECT_TRUE(screen.Buttons().Enter()) << "by keys, too";
        screen.Buttons().Leave();
        Click(*screen.findChild<QWidget*>("DoQuitBtn"), {20, 20});
    }
    EXPECT_EQ(menu.Count("ReShow"), 5);
}

} // namespace
} // namespace vk::test
