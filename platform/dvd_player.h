// Video discs: what the film's player does besides with menus, titles and chapters.
#pragma once

#include "platform/dvd_events.h"

#include <string>

namespace vk {

/// Where a disc is worked in its menus.
enum class DvdKey { Up, Down, Left, Right, Enter };

/// The inner control of a disc: pictures, position, pause, tracks and ends are those of the
/// `MediaPlayer` that it belongs to. All on the user-interface thread, and nothing of it waits.
class DvdPlayer {
  public:
    virtual ~DvdPlayer() = default;
    /// The disc that `MediaPlayer::Play` begins: a drive, the folder of a disc, or its image. What
    /// is open is closed.
    virtual void Directory(const std::string& path) = 0;
    /// "" while no disc is open.
    virtual const std::string& Directory() const = 0;

    virtual void Press(DvdKey key) = 0;
    /// Presses the button of a menu there; of the picture's width and height, 0 to 1.
    virtual void Touch(double x, double y) = 0;
    /// The disc's own menu, where it has one.
    virtual void RootMenu() = 0;
    virtual void NextChapter() = 0;
    virtual void PreviousChapter() = 0;
    /// The title that plays, from 1; 0 in menus.
    virtual int Title() const = 0;
    virtual void Title(int title) = 0;
    virtual DvdDomain CurrentDomain() const = 0;
    /// True in a menu.
    virtual bool InMenu() const = 0;
    /// Whether the disc allows this now; a flag of `uop`.
    virtual bool UOPValid(int flag) const = 0;

    DvdNotify onNotify; ///< called from the event loop; empty: nobody listens
};

} // namespace vk
