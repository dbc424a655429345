#include "settings/first_receiver.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

struct ButtonName {
    Action action;
    const char* name;
};

// The names that lircd's configurations share: those of linux/input-event-codes.h.
constexpr ButtonName UsualNames[] = {
    {Action::ok, "KEY_OK"},
    {Action::quit, "KEY_EXIT"},
    {Action::up, "KEY_UP"},
    {Action::down, "KEY_DOWN"},
    {Action::back, "KEY_LEFT"},
    {Action::forward, "KEY_RIGHT"},
    {Action::vup, "KEY_VOLUMEUP"},
    {Action::Vdown, "KEY_VOLUMEDOWN"},
    {Action::mute, "KEY_MUTE"},
    {Action::play, "KEY_PLAY"},
    {Action::pause, "KEY_PAUSE"},
    {Action::FF, "KEY_FASTFORWARD"},
    {Action::REW, "KEY_REWIND"},
    {Action::pageup, "KEY_CHANNELUP"},
    {Action::pagedown, "KEY_CHANNELDOWN"},
    {Action::SWMP, "KEY_MENU"},
    {Action::shuffle, "KEY_SHUFFLE"},
    {Action::MP3toRadio, "KEY_RADIO"},
    {Action::Search, "KEY_SEARCH"},
    {Action::addfav, "KEY_FAVORITES"},
    {Action::power, "KEY_POWER"},
};

struct Wanted {
    Action action;
    const char* name;
};

// Those that work every question, the most needed first.
constexpr Wanted Buttons[] = {
    {Action::ok, "OK"},     {Action::down, "DOWN"},     {Action::up, "UP"},
    {Action::back, "LEFT"}, {Action::forward, "RIGHT"}, {Action::quit, "BACK (Escape)"},
};

std::string Prompt(const std::string& receiver, const Wanted& wanted) {
    return "The receiver of a remote was found: " + receiver +
           "\nHold the button of your remote that is to mean\n\n" + wanted.name +
           (wanted.action == Action::ok ? "" : "\n\nPress OK when it has none.");
}

} // namespace

FirstReceiver::FirstReceiver(Needs needs) : n_(std::move(needs)), search_(n_.search) {
    search_.onFound = [this](const RemoteSearch::Found& found) {
        Trap(n_.base.report, "An error occured in settings.FirstRun ", [&] { Found(found); });
    };
}

void FirstReceiver::Begin() {
    if (n_.base.settings.values.remoteStatus) return;
    if (TakeLirc()) return Keep();
    search_.Start();
}

bool FirstReceiver::TakeLirc() {
    SettingsStore& settings = n_.base.settings;
    const std::string type = settings.Get(setting::remoteType);
    Use(true, "LIRC", settings.Text(setting::comport));
    if (!n_.open()) {
        Use(false, type, settings.Text(setting::comport));
        n_.open(); // waits for nobody
        return false;
    }
    const RemoteMap known = ReadRemoteMap(settings.ini(), settings.File("keys.ini"));
    learnt_ = {};
    for (const ButtonName& button : UsualNames)
        if (known[button.action].empty()) learnt_[button.action] = button.name;
    return true;
}

void FirstReceiver::Use(bool enabled, const std::string& type, const std::string& port) {
    SettingsStore& settings = n_.base.settings;
    settings.Write({{setting::remoteStatus, enabled}, {setting::remoteType, type}});
    settings.Write("remote", setting::comport.Key(), port);
}

// A device that only looked like a receiver is looked past, until it is taken for one again.
void FirstReceiver::Found(const RemoteSearch::Found& found) {
    SettingsStore& settings = n_.base.settings;
    const std::string type = settings.Get(setting::remoteType);
    const std::string port = settings.Text(setting::comport);
    n_.base.log.WriteDebugLog("Remote receiver found: " + found.type + " at " + found.name);
    Use(true, found.type, found.port.empty() ? port : found.port);
    n_.open();
    n_.listen([this](const std::string& code, bool held) { return Hear(code, held); });
    const bool wanted = Learn(found.name);
    n_.listen({});
    if (Works()) return Keep();
    Use(false, type, port);
    n_.open();
    if (wanted) search_.Start();
}

bool FirstReceiver::Learn(const std::string& name) {
    learnt_ = {};
    for (const Wanted& each : Buttons) {
        code_.clear();
        candidate_.clear();
        const std::int64_t limit = n_.base.clock.TickMs() + WaitMs;
        const bool waited = n_.base.dialogs.Await(Prompt(name, each), "Remote", "Skip", [&] {
            return !code_.empty() || n_.base.clock.TickMs() >= limit;
        });
        const bool fresh = std::ranges::none_of(
            Buttons, [this](const Wanted& other) { return learnt_[other.action] == code_; });
        if (fresh) learnt_[each.action] = code_;
        if (learnt_[Action::ok].empty()) return waited;
    }
    return true;
}

// Noise has no second button.
bool FirstReceiver::Works() const {
    return !learnt_[Action::ok].empty() &&
           (!learnt_[Action::down].empty() || !learnt_[Action::up].empty());
}

// A code counts when it was heard twice, in a press that began after the question: the receiver
// also hears the sun, and the button that answered the question before is still held.
bool FirstReceiver::Hear(const std::string& code, bool held) {
    if (held ? candidate_ == code : std::exchange(candidate_, code) == code) code_ = code;
    return true;
}

void FirstReceiver::Keep() {
    const std::string file = n_.base.settings.File("keys.ini");
    for (const ActionNames& names : Actions)
        if (!learnt_[names.action].empty())
            WriteRemoteKey(n_.base.settings.ini(), file, names.action, learnt_[names.action]);
    n_.codes = ReadRemoteMap(n_.base.settings.ini(), file);
}

} // namespace vk
