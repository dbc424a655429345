// From a sentence of the receiver to the label on the map's screen, and what an hour of them costs.
#include "navigation/screen/frm_gps.h"
#include "tests/sim/fake_navigation_engine.h"
#include "tests/sim/fake_windows.h"
#include "tests/support/core_fixture.h"
#include "tests/support/recording_screen.h"
#include "tests/support/sound_card.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace vk::test {
namespace {

constexpr const char* Moving = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,,*6A\r\n";
constexpr const char* Turned = "$GPRMC,123520,A,4807.038,N,01131.000,E,031.7,184.4,230394,,*6A\r\n";

struct MapScreen : CoreFixture {
    MapScreen() {
        settings.values.GPSModule = 1;
        state.ScreenWidth = 800;
        state.ScreenHeight = 480;
        state.CurrentSkinFile = "Torque.skn";
        std::filesystem::create_directory_symlink(VK_APP_DIR "/skins", app.File("skins"));
        skin.LoadSkin();
        host.resize(800, 480);
        gps = std::make_unique<frmGPS>(
            context,
            GPSScreen::Needs{base, dest, &dest, player, sound.loudness, audio, place, keys, [] {}},
            isn, &host);
        screens.Add(GPSName, gps->screen(), *gps);
        dest.CreateDestWindow();
        host.show();
        gps->screen().ReShow();
    }
    RecordingPlayerScreen player;
    SoundCard sound{*this};
    AudioState audio;
    BrowserState place;
    KeyMap keys;
    FakeNavigationEngine engine;
    FakeForeignWindows windows;
    Surfaces surfaces;
    UCDest dest{{engine,
                 {&windows, surfaces, [] { return WindowHandle{5}; }},
                 [] { return EngineSetup{}; },
                 [] { return false; },
                 [] { return false; }}};
    SkinStore skin{{state, settings, fonts, dialogs, report, [] { return 800; }}};
    PictureCache pictures{skin};
    ControlContext context{state, settings.values, skin, pictures, clock, pump, commands};
    IsnFile isn{skin, app.Path(), log};
    QWidget host;
    std::unique_ptr<frmGPS> gps;
};

QApplication& App() {
    static int argc = 1;
    static char name[] = "bench_map_screen";
    static char* argv[] = {name, nullptr};
    if (!std::getenv("DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static QApplication app(argc, argv);
    return app;
}

// Bytes in, the label painted.
void SentenceToLabel(benchmark::State& state) {
    App();
    MapScreen map;
    QCoreApplication::processEvents();
    bool turned = false;
    for (auto _ : state) {
        map.engine.Receive(turned ? Moving : Turned);
        turned = !turned;
        QCoreApplication::processEvents();
    }
}
BENCHMARK(SentenceToLabel)->Unit(benchmark::kMicrosecond);

// 36,000 sentences, as ten a second for an hour make them.
void AnHourOfSentences(benchmark::State& state) {
    SentenceAssembler assembler(
        [](DestEvent, const std::string& text) { benchmark::DoNotOptimize(text.data()); });
    for (auto _ : state)
        for (int i = 0; i < 36'000; ++i)
            assembler.Feed(Moving);
}
BENCHMARK(AnHourOfSentences)->Unit(benchmark::kMillisecond);

// What the screen does each second beside.
void ASecondOfTheScreen(benchmark::State& state) {
    App();
    MapScreen map;
    for (auto _ : state) {
        map.clock.Advance(1000);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(ASecondOfTheScreen)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace vk::test
