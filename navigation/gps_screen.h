// The logic of the map's screen: what is done on it by keys, remote, wheel and touch.
#pragma once

#include "core/base.h"
#include "input/actions.h"
#include "library/browser_state.h"
#include "navigation/address_entry.h"
#include "navigation/gps_status.h"
#include "navigation/gps_view.h"
#include "navigation/map_pane.h"
#include "navigation/message_bar.h"
#include "navigation/music_fields.h"
#include "navigation/saved_places.h"
#include "navigation/uc_dest.h"
#include "playback/loudness.h"
#include "playback/transport.h"
#include "skin/list_model.h"
#include "skin/text_entry.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vk {

/// The name that others know it by.
inline constexpr const char* GPSName = "frmGPS";

/// What fails in an operation is logged, and the screen stays as it is.
class GPSScreen {
  public:
    /// All of it outlives this object.
    struct Needs {
        Base& base;
        MapPane& map;
        UCDest* dest; ///< null where another program shows the map
        Transport& transport;
        Loudness& loudness;
        const AudioState& audio;
        BrowserState& browser;
        const KeyMap& keys;
        std::function<void()> checkDaylight; ///< every second: day or night skin
    };
    /// What the screen has of its own; it outlives this object as well.
    struct Parts {
        GPSView& view;
        ListModel& list;
        TextEntry& text;
    };
    GPSScreen(const Needs& needs, const Parts& parts);
    ~GPSScreen();

    /// Comes to the front over the screen that leads here, which `doquit` goes back to.
    void ReShow();
    void switchingform();
    void doquit();
    void runok();
    /// In the list of places the cursor; else the map comes nearer, and goes.
    void MoveUp() { Move(true); }
    void MoveDown() { Move(false); }
    /// The audio player's.
    void MoveBack() { n_.transport.MoveBack(); }
    void MoveAhead() { n_.transport.MoveAhead(); }
    void DoPause() { n_.transport.DoPause(); }
    void DoFF() { n_.transport.DoFF(); }
    void DoRW() { n_.transport.DoRW(); }
    void VolUp() { n_.loudness.VolUp(); }
    void VolDown() { n_.loudness.VolDown(); }
    void domute() { n_.loudness.domute(); }
    bool Form_KeyDown(const std::string& code);
    bool DoAction(const InputCode& code);
    bool Repeats(const InputCode& key) const;
    /// The wheel: positive is up.
    void Wheel(int delta);

    /// Asks for an address, and makes a route to it.
    void FindRouteNow();
    /// Asks for a name for where the vehicle is.
    void SaveCurrentPosition();
    /// Shows the saved places, or hides them again.
    void PopulateGPSList();
    void CancelRoute();
    /// The map shows all of the route.
    void ShowRoute();
    /// The map comes nearer, and goes.
    void ZoomIn() { Zoom(true); }
    void ZoomOut() { Zoom(false); }
    /// What stands in the status group anew.
    void ReDrawStatus();
    /// Shows a text for three seconds.
    void SetfrmGPSText(const std::string& text) { messages_.Say(text); }
    /// The screen was laid out: the map has another place.
    void PlaceMap();
    /// The drawn keyboard comes, and has gone.
    void CoverMap(bool covered);

    /// A touch area by its name in the skin: what it does, and for the volume for how long.
    void PressArea(std::string_view name);
    void ReleaseArea();
    void ClickArea(std::string_view name);

  private:
    void TakeEvent(DestEvent event, const std::string& text);
    void Enter();
    void GoBack();
    void EverySecond();
    void Move(bool up);
    void Zoom(bool in) {
        if (n_.dest) n_.dest->Zoom(in);
    }
    void RefreshMap();
    void ShowList(bool shown);
    void ChoosePlace();
    void HoldVolume(int mode);
    void ShowVolume(const std::string& level);
    void HideOldVolume();
    void CalculateRoute(const std::string& city, const std::string& street,
                        const std::string& houseNumber, const char* notFound);
    void AskName(const std::string& pendingAddress);
    void SavePlace(const std::string& name, const std::string& pendingAddress);
    bool InFront() const { return base_.screens.CurrentForm == GPSName; }

    Needs n_;
    Base& base_;
    GPSView& view_;
    ListModel& list_;
    TextEntry& text_;
    MessageBar messages_;
    MusicFields music_;
    AddressEntry entry_;
    SavedPlaces places_;
    GPSStatus status_;
    LoudnessListener volume_;
    std::unique_ptr<Timer> Timer1_, Timer2_;
    std::string opener_;             ///< the screen that led here
    int statusMode_ = 0;             ///< 0: GPS fields; 1, 2: the volume, which went up or down
    std::int64_t volumeShownMs_ = 0; ///< when it changed last, of the clock's ticks
    bool listShown_ = false, keyboard_ = false;
};

} // namespace vk
