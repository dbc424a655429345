// What the system needs of the machine: made by main for the platform, by tests from fakes.
#pragma once

#include "input/remote/remote.h"
#include "platform/backlight.h"
#include "platform/beeper.h"
#include "platform/child_process.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/fonts.h"
#include "platform/foreign_windows.h"
#include "platform/gamma.h"
#include "platform/input_line.h"
#include "platform/installed_programs.h"
#include "platform/instance_lock.h"
#include "platform/locale_info.h"
#include "platform/media_player.h"
#include "platform/medium_probe.h"
#include "platform/mixer.h"
#include "platform/navigation_engine.h"
#include "platform/player_window.h"
#include "platform/power.h"
#include "platform/programs.h"
#include "platform/registry.h"
#include "platform/screen_metrics.h"
#include "platform/screen_saver.h"
#include "platform/serial_list.h"
#include "platform/serial_port.h"
#include "platform/sound_route.h"
#include "platform/ui_thread.h"
#include "platform/volumes.h"
#include "platform/wave_input.h"
#include "tuners/fm/radio.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// The machine and its user.
struct MachinePorts {
    Clock& clock;
    UiThread& ui;
    const LocaleInfo& locale;
    Volumes& volumes;
    Programs& programs;
    InstanceLock& instance;
    MakeChildProcess child; ///< programs that talk to us
    Registry& registry;
    Desktop& desktop;
    std::function<std::string(const std::string&)> environment;    ///< "" for a missing variable
    std::function<std::vector<InstalledProgram>()> installed = {}; ///< empty: none
};

struct ScreenPorts {
    const Fonts& fonts;
    std::function<ScreenMetrics()> metrics;
    /// An object of its own for everybody who asks, as each hears of what it has asked for alone;
    /// null, and empty, on a display whose windows cannot be taken.
    std::function<std::unique_ptr<ForeignWindows>()> foreignWindows = {};
};

/// Who is told of the sound card, on the user-interface thread; set by what uses the card.
struct SoundCardListener {
    std::function<void(bool present)> changed;
    std::function<void(const std::string&)> log; ///< a peculiarity of the card
};

struct SoundPorts {
    Mixer& mixer;
    WaveInput& input;
    PlayerWindow& player;
    Beeper& beeper;
    SoundCardListener& listener;
};

/// The vehicle, as far as it is there.
struct VehiclePorts {
    Power& power;
    Gamma* gamma = nullptr;
    Backlight* backlight = nullptr;
    std::function<std::unique_ptr<InputLine>()> gpio = {};
};

struct TunerPorts {
    LoadRadio radio;                                     ///< the FM tuner's library
    std::function<std::unique_ptr<SerialPort>()> serial; ///< a port for the satellite receiver
    std::function<SerialList()> serialList;
    SoundRoute& route; ///< for an FM tuner that is a sound device of its own
};

struct NavigationPorts {
    NavigationEngine& engine;
};

struct FilmPorts {
    MakeMediaPlayer player; ///< loaded by the first film
    ScreenSaver& saver;
    MediumProbe& probe; ///< of what a film comes from
};

/// References only: what they name outlives the application.
struct Ports {
    MachinePorts machine;
    ScreenPorts screen;
    SoundPorts sound;
    RemoteDevices remote;
    VehiclePorts vehicle;
    TunerPorts tuners;
    NavigationPorts navigation;
    FilmPorts films;
};

} // namespace vk
