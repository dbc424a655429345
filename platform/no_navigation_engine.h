// Where no navigation engine is known for the platform.
#pragma once

#include "platform/navigation_engine.h"

namespace vk {

/// Says so, and has nothing to show.
class NoNavigationEngine : public NavigationEngine {
  public:
    std::string Installed() const override { return ""; }
    void Start(const EngineSetup&) override {
        state_ = EngineState::MissingProgram;
        if (onChanged) onChanged();
    }
    void Stop() override { state_ = EngineState::Stopped; }
    EngineState State() const override { return state_; }
    std::string Complaint() const override {
        return state_ == EngineState::Stopped ? "" : "No navigation engine is installed";
    }
    WindowHandle MapWindow() const override { return 0; }
    void CalculateRoute(const Address&, std::function<void(RouteStatus)> done) override {
        done(RouteFailed);
    }
    void CancelRoute() override {}
    bool ShowCurrentRoute() override { return false; }
    void Position(std::function<void(std::optional<GeoPosition>)> done) override { done({}); }
    void ReverseGeocode(const GeoPosition&,
                        std::function<void(std::optional<GeoAddress>)> done) override {
        done({});
    }
    EngineSettings Settings() const override { return {}; }
    void SetSettings(const EngineSettings&) override {}
    void OpenPort() override {}
    void ClosePort() override {}
    void SetThreeD(bool) override {}
    void SetNight(bool) override {}

  private:
    EngineState state_ = EngineState::Stopped;
};

} // namespace vk
