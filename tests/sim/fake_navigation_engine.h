// A navigation engine without a map: keeps what it was asked, answers what a test says.
#pragma once

#include "platform/navigation_engine.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vk::test {

class FakeNavigationEngine : public NavigationEngine {
  public:
    std::string Installed() const override { return version; }
    void Start(const EngineSetup& wanted) override {
        asked.push_back("start " + wanted.map + " " + wanted.source);
        setup = wanted;
        Become(version.empty() ? EngineState::MissingProgram : onStart);
    }
    void Stop() override {
        asked.push_back("stop");
        portOpen = false;
        Become(EngineState::Stopped, 0);
    }
    EngineState State() const override { return state; }
    std::string Complaint() const override { return complaint; }
    WindowHandle MapWindow() const override { return window; }
    void CalculateRoute(const Address& to, std::function<void(RouteStatus)> done) override {
        asked.push_back("route " + to.city + "|" + to.street + "|" + to.houseNumber);
        Answer([this, done = std::move(done)] {
            hasRoute = state == EngineState::Running && routeStatus == RouteFound;
            done(state == EngineState::Running ? routeStatus : RouteFailed);
        });
    }
    void CancelRoute() override {
        asked.push_back("cancel");
        hasRoute = false;
    }
    bool ShowCurrentRoute() override {
        asked.push_back("show route");
        return hasRoute;
    }
    void Position(std::function<void(std::optional<GeoPosition>)> done) override {
        Answer([this, done = std::move(done)] { done(position); });
    }
    void ReverseGeocode(const GeoPosition&,
                        std::function<void(std::optional<GeoAddress>)> done) override {
        Answer([this, done = std::move(done)] { done(address); });
    }
    EngineSettings Settings() const override { return settings; }
    void SetSettings(const EngineSettings& wanted) override {
        for (std::size_t at = 0; at < wanted.size(); ++at)
            if (!wanted[at].empty()) settings[at] = wanted[at];
    }
    void OpenPort() override { portOpen = true; }
    void ClosePort() override { portOpen = false; }
    void SetThreeD(bool on) override { threeD = on; }
    void SetNight(bool on) override { night = on; }

    /// Becomes so, and tells it.
    void Become(EngineState now, WindowHandle withWindow = 77, std::string why = {}) {
        state = now;
        window = now == EngineState::Running ? withWindow : 0;
        complaint = std::move(why);
        if (onChanged) onChanged();
    }
    /// Sentences arrive, when the port is open.
    void Receive(std::string_view bytes) {
        if (portOpen && onData) onData(bytes);
    }
    void FallSilent() {
        if (portOpen && onSilent) onSilent();
    }
    /// Gives the answers that `hold` kept back.
    void Release() {
        for (const auto& answer : std::exchange(held, {}))
            answer();
    }

    std::string version = "0.0";                ///< "": it is not installed
    EngineState onStart = EngineState::Running; ///< what it becomes when it is started
    EngineState state = EngineState::Stopped;
    std::string complaint;
    WindowHandle window = 0;
    EngineSetup setup;
    RouteStatus routeStatus = RouteFound;
    bool hasRoute = false, portOpen = false, threeD = false, night = false;
    std::optional<GeoPosition> position = GeoPosition{};
    std::optional<GeoAddress> address;
    EngineSettings settings{"1", "-1", "1", "1", "car", "metric", "day", "0", ""};
    bool hold = false;              ///< answers wait for `Release`
    std::vector<std::string> asked; ///< in words

  private:
    void Answer(std::function<void()> answer) {
        if (hold)
            held.push_back(std::move(answer));
        else
            answer();
    }
    std::vector<std::function<void()>> held;
};

} // namespace vk::test
