// The home screen's logic wired on fakes.
#pragma once

#include "home/main_menu.h"
#include "tests/startup/start_fixture.h"
#include "tests/support/fake_mixer.h"

namespace vk::test {

struct MenuFixture : StartFixture {
    MainMenu::Needs MenuNeeds() {
        return {.base = base,
                .skin = skin,
                .daylight = daylight,
                .keys = keys,
                .audio = audio,
                .browser = browser,
                .winamp = winamp,
                .loudness = loudness,
                .doors = {.openSettings = [this] { ++settingsOpened; },
                          .unloadSettings =
                              [this] {
                                  if (!settingsBusy) screens.Remove("settings");
                                  return !settingsBusy;
                              },
                          .loadGPS = [] {},
                          .exitApplication = [this] { ++exits; },
                          .powerAction = {},
                          .setDimmer = {}}};
    }
    AudioState audio;
    BrowserState browser;
    cWinamp winamp{{player, pump, report, app.Path()}};
    Daylight daylight{base, skin};
    FakeMixer mixer;
    FakeWaveInput input;
    cVolume volume{{mixer, input, dialogs, report}};
    Loudness loudness{base, volume};
    int exits = 0, settingsOpened = 0;
    bool settingsBusy = false; ///< a dialog of the settings is open
};

} // namespace vk::test
