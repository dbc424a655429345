// The home screen's logic wired on fakes.
#pragma once

#include "home/main_menu.h"
#include "tests/startup/start_fixture.h"
#include "tests/support/sound_card.h"

namespace vk::test {

struct MenuFixture : StartFixture {
    MainMenu::Needs MenuNeeds() {
        const auto unload = [this] {
            if (!settingsBusy) screens.Remove("settings");
            return !settingsBusy;
        };
        return {base,
                skin,
                daylight,
                keys,
                audio,
                video,
                browser,
                winamp,
                sound.loudness,
                {[this] { ++settingsOpened; },
                 unload,
                 [] {},
                 [this] { ++exits; },
                 [this] { ++powerActions; },
                 {}}};
    }
    AudioState audio;
    VideoState video;
    BrowserState browser;
    cWinamp winamp{{player, pump, report, app.Path()}};
    Daylight daylight{base, skin};
    SoundCard sound{*this};
    int exits = 0, settingsOpened = 0, powerActions = 0;
    bool settingsBusy = false; ///< a dialog of the settings is open
};

} // namespace vk::test
