// The lower layer wired on fakes: what most tests start from.
#pragma once

#include "core/app_state.h"
#include "core/base.h"
#include "core/commands.h"
#include "core/debug_log.h"
#include "core/error_report.h"
#include "core/ini_file.h"
#include "core/pump.h"
#include "core/screens.h"
#include "core/settings.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fakes.h"
#include "tests/support/temp_folder.h"

namespace vk::test {

/// An application directory of its own with clock, dialogs, log, report, INI access and settings.
struct CoreFixture {
    TempFolder app;
    FakeClock clock;
    FakeDialogs dialogs;
    FakeLocale locale;
    FakeVolumes volumes;
    FakeWindowLayer window;
    FakeFonts fonts;
    DebugLog log{app.Path(), clock};
    ErrorReport report{log, dialogs};
    AppState state;
    Ini ini{state.DecimalSymbol, report};
    SettingsStore settings{app.Path(), ini};
    Screens screens;
    Pump pump{clock};
    Commands commands{pump, screens, clock};
    Base base{state,    settings, log,     report, clock,  pump,
              commands, screens,  dialogs, window, locale, volumes};

    bool Logged(const std::string& text) const { return LinesLogged(text) > 0; }
    /// How many times a text is in the log.
    int LinesLogged(const std::string& text) const {
        const std::string lines = app.Read("debug.log");
        int count = 0;
        for (auto at = lines.find(text); at != std::string::npos; at = lines.find(text, at + 1))
            ++count;
        return count;
    }
};

} // namespace vk::test
