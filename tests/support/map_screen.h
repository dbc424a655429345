// The map's screen on an engine and a display that only are what is asked of them.
#pragma once

#include "navigation/screen/frm_gps.h"
#include "tests/sim/fake_navigation_engine.h"
#include "tests/sim/fake_windows.h"
#include "tests/support/core_fixture.h"
#include "tests/support/recording_screen.h"
#include "tests/support/sound_card.h"

#include <filesystem>
#include <memory>

namespace vk::test {

struct MapScreen : CoreFixture {
    /// `skins` holds the rendered ones.
    explicit MapScreen(const std::filesystem::path& skins) {
        settings.values.GPSModule = 1;
        settings.values.ListSpacing = "3";
        std::filesystem::create_directory_symlink(skins, app.File("skins"));
        state.CurrentSkinFile = "Torque.skn";
        skin.LoadSkin();
        windows.list.push_back({.handle = Map});
    }
    /// The screen in that size, entered from the menu.
    void Make(QSize size) {
        gps.reset();
        Resize(size);
        screens.CurrentForm = HomeScreen;
        gps = std::make_unique<frmGPS>(
            context,
            GPSScreen::Needs{base, dest, &dest, player, sound.loudness, audio, place, keys, [] {}},
            isn, &host);
        screens.Add(GPSName, Logic(), *gps);
        dest.CreateDestWindow();
        host.show();
        Logic().ReShow();
    }
    void Resize(QSize size) {
        state.ScreenWidth = size.width();
        state.ScreenHeight = size.height();
        host.resize(size);
        if (gps) gps->DoLayout();
    }
    GPSScreen& Logic() { return gps->screen(); }

    static constexpr WindowHandle Map = 77; ///< what the engine's first window is
    RecordingPlayerScreen player;
    SoundCard sound{*this};
    AudioState audio;
    BrowserState place;
    KeyMap keys;
    FakeNavigationEngine engine;
    FakeForeignWindows windows;
    Surfaces surfaces;
    bool night = false;
    UCDest dest{{engine,
                 {&windows, surfaces, [] { return WindowHandle{5}; }},
                 [] { return EngineSetup{.map = "town.bin"}; },
                 [this] { return settings.values.Use3Dmaps; },
                 [this] { return night; },
                 KeptSettings(settings)}};
    SkinStore skin{{state, settings, fonts, dialogs, report, [] { return 800; }}};
    PictureCache pictures{skin};
    ControlContext context{state, settings.values, skin, pictures, clock, pump, commands};
    IsnFile isn{skin, app.Path(), log};
    QWidget host;
    std::unique_ptr<frmGPS> gps;
};

} // namespace vk::test
