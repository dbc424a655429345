// The ways out of the browser that hand nothing over.
#pragma once

#include "browser/list_desk.h"

#include <functional>
#include <utility>

namespace vk {

/// What is given outlives it.
class WaysOut {
  public:
    /// `leave` is called before another screen is shown.
    WaysOut(ListDesk& desk, std::function<void()> leave) : desk_(desk), leave_(std::move(leave)) {}

    /// Back to where the browser was entered from; what plays goes on as it is.
    void Back();
    /// To the main menu.
    void GoHome();
    /// Opens the GPS screen.
    void ShowGPS();
    bool HasGPS() const { return desk_.needs.base.screens.Find("frmGPS") != nullptr; }
    /// Switches to the tuner.
    void ShowRadio();
    bool HasRadio() const; ///< a tuner is enabled
    /// Shows which tuner the radio button leads to.
    void SetPlayerButton();

  private:
    PlayModeValue Radio() const;
    void EndPlayer();

    ListDesk& desk_;
    std::function<void()> leave_;
};

} // namespace vk
