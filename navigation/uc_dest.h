// The navigation engine, as the GPS screen uses it: texts in and out, and the receiver's sentences
// as events.
#pragma once

#include "navigation/dest_events.h"
#include "navigation/kept_settings.h"
#include "navigation/map_pane.h"
#include "navigation/nmea.h"
#include "platform/navigation_engine.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vk {

/// Nothing waits for the engine: what it is asked it answers later, once, or by then fails. Answers
/// that come after this object's end are dropped.
class UCDest : public MapPane {
  public:
    struct Needs {
        NavigationEngine& engine;
        MapWindow::Needs window;
        std::function<EngineSetup()> setup; ///< as the settings are now
        std::function<bool()> threeD;
        std::function<bool()> night;
        KeptSettings kept;
    };
    /// What is needed outlives this object.
    explicit UCDest(Needs needs);
    ~UCDest() override;

    /// 0 is success, -4 an address that was not found, anything else another failure.
    using Status = std::function<void(std::int32_t status)>;
    void CalculateRouteToAddress(const std::string& city, const std::string& street,
                                 const std::string& houseNumber, Status done);
    /// Starts the engine, as it was left and as the settings are now; its window is taken when it
    /// is there. Another map in the old one's place is taken up.
    void CreateDestWindow();
    void SetDestParent(WindowHandle window);
    void CancelRoute() { n_.engine.CancelRoute(); }
    /// False without a route.
    bool ShowCurrentRoute() { return n_.engine.ShowCurrentRoute(); }
    /// House number, street, city, state and postal code of where the vehicle is, joined by "|"; ""
    /// when that is not known.
    void ReverseGeoCode(std::function<void(const std::string&)> done);
    /// Nine values joined by "|", see `EngineSettings`.
    std::string GetDestSettings() const;
    /// They are kept for the next start.
    void SetDestSettings(const EngineSettings& settings);
    /// Twice as near, or half: by the settings, so that a restart keeps it.
    void Zoom(bool in);
    void OpenComPort();
    void CloseComPort();

    void Enter() override;
    void Leave() override { CloseComPort(); }
    bool EverySecond() override;
    MapWindow& Window() override { return window_; }
    std::string Complaint() const override;

    /// Whoever waits for answers goes: they are dropped.
    void DropAnswers() { alive_ = std::make_shared<int>(); }

    DestEvents onEvent; ///< what the receiver tells

  private:
    void EngineChanged();
    void Silent();
    void FollowDaylight();
    template<class... Arguments> auto Guarded(std::function<void(Arguments...)> done) const;

    Needs n_;
    MapWindow window_;
    SentenceAssembler sentences_;
    std::optional<bool> night_;                            ///< the map's colours
    std::shared_ptr<int> alive_ = std::make_shared<int>(); ///< of those that wait for answers
};

} // namespace vk
