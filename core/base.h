// What every subsystem stands on: the process's state and the ports of the machine that more than
// one of them needs.
#pragma once

#include "core/app_state.h"
#include "core/commands.h"
#include "core/debug_log.h"
#include "core/error_report.h"
#include "core/pump.h"
#include "core/screens.h"
#include "core/settings.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/locale_info.h"
#include "platform/volumes.h"
#include "platform/window_layer.h"

namespace vk {

/// References only; one object, made by the composition root or a test's fixture, that is handed to
/// what is made on it by constructor. All of it outlives that.
struct Base {
    AppState& state;
    SettingsStore& settings;
    DebugLog& log;
    ErrorReport& report;
    Clock& clock;
    Pump& pump;
    Commands& commands;
    Screens& screens;
    Dialogs& dialogs;
    WindowLayer& window;
    const LocaleInfo& locale;
    Volumes& volumes;
};

} // namespace vk
