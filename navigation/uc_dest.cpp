#include "navigation/uc_dest.h"

#include "core/text.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace vk {

namespace {

// Of the map's scale, the engine's own measure: a crossing, and a continent.
constexpr std::int64_t Nearest = 1, Farthest = 1 << 20;

} // namespace

UCDest::UCDest(Needs needs)
    : n_(std::move(needs)), window_(n_.window),
      sentences_([this](DestEvent event, const std::string& text) {
          if (onEvent) onEvent(event, text);
      }) {
    n_.engine.onData = [this](std::string_view bytes) { sentences_.Feed(bytes); };
    n_.engine.onSilent = [this] { Silent(); };
    n_.engine.onChanged = [this] { EngineChanged(); };
}

UCDest::~UCDest() {
    n_.engine.onData = {};
    n_.engine.onSilent = {};
    n_.engine.onChanged = {};
    n_.engine.Stop();
}

template<class... Arguments> auto UCDest::Guarded(std::function<void(Arguments...)> done) const {
    return [alive = std::weak_ptr<int>(alive_), done = std::move(done)](Arguments... arguments) {
        if (!alive.expired()) done(arguments...);
    };
}

void UCDest::CalculateRouteToAddress(const std::string& city, const std::string& street,
                                     const std::string& houseNumber, Status done) {
    n_.engine.CalculateRoute({city, street, houseNumber}, Guarded(std::move(done)));
}

void UCDest::CreateDestWindow() {
    n_.engine.SetSettings(n_.kept.Read());
    n_.engine.Start(n_.setup());
    n_.engine.SetThreeD(n_.threeD());
    night_.reset();
    FollowDaylight();
    EngineChanged();
}

void UCDest::Enter() {
    FollowDaylight();
    OpenComPort();
}

bool UCDest::EverySecond() {
    FollowDaylight();
    return true;
}

void UCDest::FollowDaylight() {
    const bool night = n_.night();
    if (night_ != night) n_.engine.SetNight(night);
    night_ = night;
}

void UCDest::SetDestParent(WindowHandle window) {
    window_.Take(window, true); // it has menus of its own, which lead nowhere
}

// The window of an engine that has been started anew is another one.
void UCDest::EngineChanged() {
    SetDestParent(n_.engine.MapWindow());
    if (onChanged) onChanged();
}

std::string UCDest::Complaint() const {
    std::string complaint = n_.engine.Complaint();
    if (!complaint.empty()) return complaint;
    if (!window_.CanTake()) return "The map cannot be shown on this display";
    const bool there = n_.engine.State() == EngineState::Running && window_.Handle() != 0;
    return there ? "" : "The map is being started";
}

void UCDest::ReverseGeoCode(std::function<void(const std::string&)> done) {
    using Place = std::optional<GeoPosition>;
    const auto joined = [done = std::move(done)](const std::optional<GeoAddress>& address) {
        std::vector<std::string> parts;
        for (const std::string& part : address.value_or(GeoAddress{}))
            parts.push_back(ReplaceAll(part, "|", " "));
        done(address ? Join(parts, "|") : "");
    };
    const auto answer = Guarded(std::function<void(std::optional<GeoAddress>)>(joined));
    n_.engine.Position(Guarded(std::function<void(Place)>([this, answer](Place place) {
        place ? n_.engine.ReverseGeocode(*place, answer) : answer({});
    })));
}

std::string UCDest::GetDestSettings() const {
    const EngineSettings values = n_.engine.Settings();
    return Join({values.begin(), values.end()}, "|");
}

void UCDest::SetDestSettings(const EngineSettings& settings) {
    n_.engine.SetSettings(settings);
    n_.kept.Write(n_.engine.Settings());
}

void UCDest::Zoom(bool in) {
    const std::int64_t zoom = ParseInteger(Split(GetDestSettings(), '|').front()).value_or(0);
    if (zoom <= 0) return; // no map yet
    // By hand: the engine's own zoom would undo it with the next position.
    SetDestSettings(
        {std::to_string(std::clamp(in ? zoom / 2 : zoom * 2, Nearest, Farthest)), "", "", "0"});
}

void UCDest::OpenComPort() {
    sentences_.Clear();
    n_.engine.OpenPort();
}

void UCDest::CloseComPort() {
    n_.engine.ClosePort();
}

// The engine keeps the last position of a receiver that has fallen silent; the driver is not to
// take it for where he is.
void UCDest::Silent() {
    if (!onEvent) return;
    onEvent(DestEvent::GPSStatusChange, "0");
    onEvent(DestEvent::GPSSpeedUpdate, "0.00");
    onEvent(DestEvent::GPSTrackUpdate, "0");
}

} // namespace vk
