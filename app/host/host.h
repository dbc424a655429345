// What every module stands on: the ports, and what the process has once.
#pragma once

#include "app/host/host_window.h"
#include "app/host/modules.h"
#include "app/host/ports.h"
#include "app/host/stacking.h"
#include "core/base.h"
#include "core/ini_file.h"
#include "home/daylight.h"
#include "input/key_map.h"
#include "input/remote_map.h"
#include "platform/qt/qt_input_hooks.h"
#include "platform/qt/qt_window_layer.h"
#include "skin/controls/black_background.h"
#include "skin/controls/control_context.h"
#include "skin/controls/picture_cache.h"
#include "skin/dialogs/skin_dialogs.h"

#include <functional>
#include <string>

namespace vk {

/// One a process. Its members are made in this order, each on those above it.
struct Host {
    Host(const Folders& folders, const Ports& machine);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// Leaves the named screen, when it is in front, as its quit does.
    void LeaveScreen(const char* name);

    Ports ports;
    HostWindow window;
    QtWindowLayer layer{window};
    QtInputHooks hooks{window};
    AppState state;
    Screens screens;
    Pump pump{ports.machine.clock};
    Commands commands{pump, screens, ports.machine.clock};
    Surfaces surfaces;
    Stacking stacking{window, surfaces};
    SkinDialogs dialogs{&window, ports.machine.volumes, ports.machine.clock, pump, surfaces};
    DebugLog log;
    ErrorReport report{log, dialogs};
    QueuedFileWriter fileWriter;
    Ini ini{state.DecimalSymbol, report, fileWriter};
    SettingsStore settings;
    Base base{state,    settings, log,     report, ports.machine.clock,  pump,
              commands, screens,  dialogs, layer,  ports.machine.locale, ports.machine.volumes};
    KeyMap keys;
    RemoteMap remoteKeys;
    SkinStore skin;
    PictureCache pictures{skin};
    ControlContext controls{state, settings.values, skin, pictures, ports.machine.clock,
                            pump,  commands};
    BlackBackground background{state, screens, skin, &window};
    Daylight daylight{base, skin};
    Modules modules;
    /// Ends the system in good order; `osShutdown` when the operating system wants it. May be
    /// called from anywhere and returns at once.
    std::function<void(bool osShutdown)> quit;
};

} // namespace vk
