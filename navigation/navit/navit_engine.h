// The navigation engine on navit, which is kept alive as a child of this process.
#pragma once

#include "navigation/engine/sentence_source.h"
#include "navigation/navit/map_point.h"
#include "navigation/navit/navit_run.h"
#include "navigation/navit/receiver_pty.h"
#include "platform/file_state.h"
#include "platform/navigation_engine.h"

#include <QObject>

#include <memory>
#include <optional>
#include <string>

namespace vk {

/// Milliseconds between two tries.
struct NavitPauses {
    int first = 1000, longest = 60000; ///< after it has ended or hung; doubled each time
    int steady = 60000;                ///< after this long a life it begins with the first again
    int missing = 10000;               ///< looks whether it has been installed
    int map = 3000;                    ///< looks for the map
};

class NavitEngine : public NavigationEngine {
  public:
    NavitEngine(Clock& clock, MakeSentenceFeed feeds, NavitPlace place, NavitTimes times = {},
                NavitPauses pauses = {});
    ~NavitEngine() override;

    std::string Installed() const override;
    void Start(const EngineSetup& setup) override;
    void Stop() override;
    EngineState State() const override { return state_; }
    std::string Complaint() const override { return complaint_; }
    WindowHandle MapWindow() const override { return Up() ? run_->Window() : 0; }
    void CalculateRoute(const Address& to, std::function<void(RouteStatus)> done) override;
    void CancelRoute() override;
    bool ShowCurrentRoute() override;
    void Position(std::function<void(std::optional<GeoPosition>)> done) override;
    void ReverseGeocode(const GeoPosition& place,
                        std::function<void(std::optional<GeoAddress>)> done) override;
    EngineSettings Settings() const override { return settings_; }
    void SetSettings(const EngineSettings& settings) override;
    void OpenPort() override;
    void ClosePort() override;
    void SetThreeD(bool on) override;
    void SetNight(bool on) override;

  private:
    struct Destination {
        MapPoint point;
        std::string name;
    };
    bool Up() const { return run_ && run_->Up(); }
    void Launch();
    void Become(EngineState state, const std::string& complaint);
    void TellChange();
    void WaitFor(EngineState state, const std::string& complaint, int pauseMs);
    void TrySoon();
    NavitConfig Config() const;
    void CameUp();
    void WentDown(const std::string& why);
    void Apply(std::size_t setting);
    void FollowAgain();
    void LeaveMargin();
    void Log(const std::string& text) const;
    template<class T> std::function<void(T)> Once(std::function<void(T)> done, T withoutAnswer);
    Chain RouteChain(Address to, std::function<void(RouteStatus)> done);
    Task<RouteStatus> RouteTo(Address to);
    Task<bool> WayFound();
    Chain NearestChain(MapPoint place, std::function<void(std::optional<GeoAddress>)> done);
    Answer<std::optional<GeoPosition>> AskPosition();
    Answer<std::optional<std::string>> Ask(const char* name);

    Clock& clock_;
    NavitPlace place_;
    NavitTimes times_;
    NavitPauses pauses_;
    QObject context_; // what is told later is told as long as this is there
    SentenceSource source_;
    ReceiverPty receiver_;
    std::unique_ptr<Timer> launch_, routeShown_;
    std::string zoomBefore_; ///< the scale from which all of the route was shown
    EngineSetup setup_;
    FileStamp map_; ///< of the map that is shown
    EngineSettings settings_{"32", "-1", "1", "1", "car", "metric", "day", "0", ""};
    EngineState state_ = EngineState::Stopped;
    std::string complaint_;
    std::optional<Destination> destination_;
    bool wanted_ = false, cancelled_ = false, portOpen_ = false;
    int pauseMs_ = 0;
    std::int64_t upSince_ = 0;
    std::int64_t waitsSince_ = 0, launchAt_ = 0; ///< of the clock's ticks
    std::unique_ptr<NavitRun> run_;
};

} // namespace vk
