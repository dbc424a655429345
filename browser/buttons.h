// The browser's touch buttons that stay on the screen.
#pragma once

#include "browser/chooser.h"
#include "browser/lists.h"

namespace vk {

/// What is given outlives it.
class BrowserButtons {
  public:
    BrowserButtons(BrowserLists& lists, Chooser& chooser)
        : lists_(lists), desk_(lists.desk), chooser_(chooser) {}

    /// Play or pause of the player (`Image6`).
    void PlayPause();
    /// Opens or closes the frame with the rarer buttons (`Image7`).
    void ToggleToolFrame();
    void CloseToolFrame();
    /// Lets the next chosen folder be listed whole, or not (`Image12`).
    void ToggleRecurse() { chooser_.SetRecurse(!chooser_.RecurseArmed()); }
    /// Changes between the applications and the media (`Image14`).
    void ToggleApplications();
    /// Opens the disc drive (`Image16`).
    void Eject();
    /// Goes on with the list that was last played (`Image19`).
    void Resume();
    bool HasDiscDrive() const { return lists_.place.Drives().HasDiscDrive(); }

    /// Shows what can change by itself: the time, and whether the player plays.
    void ShowState();

  private:
    BrowserLists& lists_;
    ListDesk& desk_;
    Chooser& chooser_;
    bool toolFrameOpen_ = false;
};

} // namespace vk
