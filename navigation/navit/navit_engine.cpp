#include "navigation/navit/navit_engine.h"

#include "navigation/engine/map_file.h"
#include "navigation/navit/navit_layout.h"
#include "platform/files.h"

#include <QMetaObject>

#include <algorithm>
#include <charconv>
#include <utility>

namespace vk {

namespace {

constexpr int AnswerMs = 5000;
// The engine reckons the pitch by the size that its window has when it is told: it is told when the
// window has its place, and again and again. What is no news costs it nothing.
constexpr int LaidOutMs = 300;
constexpr const char* ThreeDPitch = "30"; // degrees
constexpr int RouteShownFor = 12;         // positions, one a second; then the map follows again
// Of the scale at which all of the route just fits: the name of the place at its end begins there.
constexpr int MarginPercent = 60;

/// Of `EngineSettings`.
enum Place : std::size_t {
    Zoom,
    Orientation,
    Follow,
    AutoZoom,
    Profile,
    Units,
    Colours,
    Pitch,
    Map
};

std::optional<int> Number(const std::string& text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && last == end ? std::optional(number) : std::nullopt;
}

bool Usable(std::size_t place, const std::string& value) {
    switch (place) {
    case Profile:
        return std::ranges::find(VehicleProfiles, value) != std::end(VehicleProfiles);
    case Units:
        return value == "metric" || value == "imperial";
    case Colours:
        return value == "day" || value == "night";
    case Map:
        return true;
    case Zoom:
        return Number(value).value_or(0) > 0;
    default:
        return Number(value).has_value();
    }
}

// What the engine learns only from its configuration.
bool NeedsRestart(std::size_t place) {
    return place == Profile || place == Map;
}

} // namespace

NavitEngine::NavitEngine(Clock& clock, MakeSentenceFeed feeds, NavitPlace place, NavitTimes times,
                         NavitPauses pauses)
    : clock_(clock), place_(std::move(place)), times_(times), pauses_(pauses),
      source_(clock, std::move(feeds)), launch_(clock.MakeTimer([this] { Launch(); })),
      routeShown_(clock.MakeTimer([this] { FollowAgain(); })) {
    source_.onBytes = [this](std::string_view bytes) {
        receiver_.Write(bytes);
        if (onData) onData(bytes);
    };
    source_.onSilent = [this] {
        if (onSilent) onSilent();
    };
    source_.onLog = [this](const std::string& text) { Log(text); };
}

// Questions that are open are answered by the end of the run.
NavitEngine::~NavitEngine() {
    onChanged = {};
    onLog = {};
    run_.reset();
}

void NavitEngine::Log(const std::string& text) const {
    if (onLog) onLog(text);
}

// Life
// ---------------------------------------------------------------------------------------------

std::string NavitEngine::Installed() const {
    if (!FileExists(place_.program)) return "";
    const std::string packages = ReadWholeFile("/var/lib/dpkg/status", 64u << 20).value_or("");
    constexpr std::string_view Name = "\nPackage: navit\n", Version = "\nVersion: ";
    const auto package = packages.find(Name);
    const auto version = packages.find(Version, package);
    if (package == std::string::npos || version == std::string::npos) return "navit";
    const auto from = version + Version.size();
    return packages.substr(from, packages.find('\n', from) - from);
}

void NavitEngine::Start(const EngineSetup& setup) {
    if (wanted_ && setup == setup_ && StampOf(setup.map).SameAs(map_)) return;
    wanted_ = true;
    setup_ = setup;
    settings_[Map] = setup.map;
    pauseMs_ = 0;
    if (portOpen_) OpenPort();
    WaitFor(EngineState::Starting, "", 1);
}

void NavitEngine::Stop() {
    wanted_ = false;
    ClosePort();
    WaitFor(EngineState::Stopped, "", 1);
}

void NavitEngine::WaitFor(EngineState state, const std::string& complaint, int pauseMs) {
    waitsSince_ = clock_.TickMs();
    launchAt_ = waitsSince_ + pauseMs;
    launch_->Start(pauseMs);
    Become(state, complaint);
}

// Whoever opens the map wants it now: a pause that has grown is cut to the first of them, which
// stays the least that lies between two tries. The next one is as long as it would have been.
void NavitEngine::TrySoon() {
    const std::int64_t now = clock_.TickMs();
    const std::int64_t soon = std::max(now + 1, waitsSince_ + pauses_.first);
    if (!launch_->Enabled() || soon >= launchAt_) return;
    launchAt_ = soon;
    launch_->Start(static_cast<int>(soon - now));
}

void NavitEngine::Become(EngineState state, const std::string& complaint) {
    if (state == state_ && complaint == complaint_) return;
    if (!complaint.empty()) Log(complaint);
    state_ = state;
    complaint_ = complaint;
    TellChange();
}

// Told later: this may come from within the bus, where nobody may let events run.
void NavitEngine::TellChange() {
    QMetaObject::invokeMethod(
        &context_,
        [this] {
            if (onChanged) onChanged();
        },
        Qt::QueuedConnection);
}

// The old run is let go here alone, where it does not tell. That its window has gone is told, as
// the display may give the next one the same number.
void NavitEngine::Launch() {
    launch_->Stop();
    if (run_) TellChange();
    run_.reset();
    if (!wanted_) return;
    if (!FileExists(place_.program) || !FileExists(place_.busProgram))
        return WaitFor(EngineState::MissingProgram, "The navigation engine is not installed",
                       pauses_.missing);
    if (!IsMapFile(setup_.map))
        return WaitFor(EngineState::NoMap, "There is no map at " + setup_.map, pauses_.map);
    if (state_ != EngineState::Restarting) Become(EngineState::Starting, "");
    receiver_.Clear();
    map_ = StampOf(setup_.map);
    run_ = std::make_unique<NavitRun>(clock_, place_, times_);
    run_->onUp = [this] { CameUp(); };
    run_->onZoom = [this](const std::string& zoom) {
        if (Usable(Zoom, zoom)) settings_[Zoom] = zoom;
        if (!routeShown_->Enabled()) Apply(Pitch);
    };
    run_->onDown = [this](const std::string& why) { WentDown(why); };
    run_->Start(Config());
}

NavitConfig NavitEngine::Config() const {
    return {.map = setup_.map,
            .receiver = receiver_.Path(),
            .window = place_.windows != nullptr,
            .night = settings_[Colours] == "night",
            .imperial = settings_[Units] == "imperial",
            .profile = settings_[Profile],
            .zoom = Number(settings_[Zoom]).value_or(32),
            .orientation = Number(settings_[Orientation]).value_or(-1),
            .autoZoom = settings_[AutoZoom] != "0",
            .drawnAt = setup_.drawnAt};
}

void NavitEngine::CameUp() {
    routeShown_->Start(LaidOutMs);
    upSince_ = clock_.TickMs();
    if (settings_[Follow] == "0") Apply(Follow);
    if (destination_)
        run_->Bus().SetDestination(destination_->point, destination_->name, [](bool) {});
    else if (cancelled_)
        run_->Bus().ClearDestination();
    Become(EngineState::Running, "");
}

void NavitEngine::WentDown(const std::string& why) {
    const bool steady = upSince_ != 0 && clock_.TickMs() - upSince_ >= pauses_.steady;
    upSince_ = 0;
    if (steady) pauseMs_ = 0;
    pauseMs_ = std::clamp(2 * pauseMs_, pauses_.first, pauses_.longest);
    WaitFor(EngineState::Restarting, "The navigation engine " + why + " and is started again",
            pauseMs_);
}

// Questions
// ----------------------------------------------------------------------------------------

// Told later, as a change of the state is, and in time.
template<class T>
std::function<void(T)> NavitEngine::Once(std::function<void(T)> done, T withoutAnswer) {
    struct Open {
        std::function<void(T)> done;
        std::unique_ptr<Timer> timer;
        void Tell(const T& value) {
            timer->Stop();
            if (const auto told = std::exchange(done, {})) told(value);
        }
    };
    const auto open = std::make_shared<Open>();
    open->done = std::move(done);
    open->timer = clock_.MakeTimer([weak = std::weak_ptr(open), withoutAnswer] {
        if (const auto still = weak.lock()) still->Tell(withoutAnswer);
    });
    open->timer->Start(AnswerMs);
    return [this, open](T value) {
        QMetaObject::invokeMethod(
            &context_, [open, value = std::move(value)] { open->Tell(value); },
            Qt::QueuedConnection);
    };
}

Answer<std::optional<std::string>> NavitEngine::Ask(const char* name) {
    return Answer<std::optional<std::string>>([this, name](NavitBus::Text done) {
        if (Up())
            run_->Bus().Evaluate(name, std::move(done));
        else
            done({});
    });
}

Answer<std::optional<GeoPosition>> NavitEngine::AskPosition() {
    return Answer<std::optional<GeoPosition>>(
        [this](std::function<void(std::optional<GeoPosition>)> done) {
            if (!Up()) return done({});
            run_->Bus().Evaluate("vehicle.position_coord_geo",
                                 [done = std::move(done)](const std::optional<std::string>& text) {
                                     done(ParsePosition(text.value_or("")));
                                 });
        });
}

void NavitEngine::Position(std::function<void(std::optional<GeoPosition>)> done) {
    const auto told = Once(std::move(done), std::optional<GeoPosition>());
    if (!Up()) return told({});
    run_->Bus().Evaluate(
        "vehicle.position_coord_geo",
        [told](const std::optional<std::string>& text) { told(ParsePosition(text.value_or(""))); });
}

void NavitEngine::CalculateRoute(const Address& to, std::function<void(RouteStatus)> done) {
    RouteChain(to, Once(std::move(done), RouteFailed));
}

Chain NavitEngine::RouteChain(Address to, std::function<void(RouteStatus)> done) {
    RouteStatus status = RouteFailed;
    if (Up()) status = co_await RouteTo(to);
    done(status);
}

Task<RouteStatus> NavitEngine::RouteTo(Address to) {
    auto where = AskPosition();
    const std::optional<GeoPosition> from = co_await where;
    Answer<std::optional<MapPoint>> find([&](std::function<void(std::optional<MapPoint>)> done) {
        if (!Up()) return done({});
        run_->Streets().Find(to, MapPointOf(from.value_or(GeoPosition{})), std::move(done));
    });
    const std::optional<MapPoint> place = co_await find;
    if (!Up()) co_return RouteFailed;
    if (!place) co_return AddressNotFound;
    const Destination wanted{*place, to.city + " " + to.street + " " + to.houseNumber};
    Answer<bool> taken([&](NavitBus::Done done) {
        run_->Bus().SetDestination(wanted.point, wanted.name, std::move(done));
    });
    if (!co_await taken) co_return RouteFailed;
    destination_ = wanted;
    cancelled_ = false;
    // Without a place to start from the way is looked for when there is one.
    if (!from) co_return RouteFound;
    co_return co_await WayFound() ? RouteFound : RouteFailed;
}

// The engine looks for it between two answers.
Task<bool> NavitEngine::WayFound() {
    std::string status = "13";
    while (IsBeingBuilt(status)) {
        auto asked = Ask("route.route_status");
        status = (co_await asked).value_or("");
    }
    if (Up()) {
        run_->SetHasRoute(IsRoute(status));
        run_->Bus().Draw();
    }
    co_return !status.empty() && !IsNoRoute(status);
}

void NavitEngine::ReverseGeocode(const GeoPosition& place,
                                 std::function<void(std::optional<GeoAddress>)> done) {
    NearestChain(MapPointOf(place), Once(std::move(done), std::optional<GeoAddress>()));
}

Chain NavitEngine::NearestChain(MapPoint place,
                                std::function<void(std::optional<GeoAddress>)> done) {
    constexpr double HereMetres = 100;
    auto where = AskPosition();
    const std::optional<GeoPosition> vehicle = co_await where;
    const bool here = vehicle && MetresBetween(MapPointOf(*vehicle), place) < HereMetres;
    if (Up())
        run_->Streets().Nearest(place, here, done);
    else
        done({});
}

// What is told to it
// ---------------------------------------------------------------------------------

void NavitEngine::CancelRoute() {
    destination_.reset();
    cancelled_ = true;
    if (!Up()) return;
    run_->Bus().ClearDestination();
    run_->Bus().Draw();
    run_->SetHasRoute(false);
}

bool NavitEngine::ShowCurrentRoute() {
    if (!Up() || !run_->HasRoute()) return false;
    if (!routeShown_->Enabled()) zoomBefore_ = settings_[Zoom];
    run_->Bus().SetNumber("pitch", 0); // seen from above all of it is seen
    run_->Bus().ZoomToRoute();
    LeaveMargin();
    run_->Bus().SetNumber("follow", RouteShownFor);
    routeShown_->Start(RouteShownFor * 1000);
    return true;
}

// The engine takes the route to the very edges of its window.
void NavitEngine::LeaveMargin() {
    run_->Bus().Evaluate("zoom", [this](const std::optional<std::string>& zoom) {
        const int fits = Number(zoom.value_or("")).value_or(0);
        if (fits > 0 && Up())
            run_->Bus().SetNumber("zoom", fits + std::max(1, fits * MarginPercent / 100));
    });
}

// As it was, but for what was chosen meanwhile.
void NavitEngine::FollowAgain() {
    routeShown_->Stop();
    if (!zoomBefore_.empty()) settings_[Zoom] = std::exchange(zoomBefore_, {});
    Apply(Zoom);
    Apply(Pitch);
}

void NavitEngine::SetSettings(const EngineSettings& settings) {
    bool restart = false;
    for (std::size_t at = 0; at < settings.size(); ++at) {
        if (settings[at].empty() || settings[at] == settings_[at] || !Usable(at, settings[at]))
            continue;
        if (at == Zoom) zoomBefore_.clear();
        settings_[at] = settings[at];
        restart = restart || NeedsRestart(at);
        Apply(at);
    }
    setup_.map = settings_[Map];
    if (restart && wanted_) WaitFor(EngineState::Starting, "", 1);
}

void NavitEngine::Apply(std::size_t setting) {
    if (!Up()) return;
    const std::string& value = settings_[setting];
    const int number = Number(value).value_or(0);
    NavitBus& bus = run_->Bus();
    switch (setting) {
    case Zoom:
        return bus.SetNumber("zoom", number);
    case Orientation:
        return bus.SetNumber("orientation", number);
    case Follow:
        return bus.SetNumber("follow", number);
    case AutoZoom:
        return bus.SetSwitch("autozoom_active", number != 0);
    case Units:
        return bus.SetNumber("imperial", value == "imperial");
    case Colours:
        return bus.SetLayout(value == "night" ? NightLayout : DayLayout);
    case Pitch:
        return bus.SetNumber("pitch", number);
    default:
        return;
    }
}

void NavitEngine::OpenPort() {
    portOpen_ = true;
    source_.Open(setup_.source, setup_.serialSettings);
    TrySoon();
}

void NavitEngine::ClosePort() {
    portOpen_ = false;
    source_.Close();
}

void NavitEngine::SetThreeD(bool on) {
    EngineSettings wanted;
    wanted[Pitch] = std::string(on ? ThreeDPitch : "0");
    SetSettings(wanted);
}

void NavitEngine::SetNight(bool on) {
    EngineSettings wanted;
    wanted[Colours] = on ? "night" : "day";
    SetSettings(wanted);
}

} // namespace vk
