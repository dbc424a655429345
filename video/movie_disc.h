// The disc that the movie player plays: `DVD1`, made when the player is loaded, and where it goes
// on.
#pragma once

#include "core/base.h"
#include "playback/loudness.h"
#include "video/disc/dvd_control.h"
#include "video/film_deck.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// Where a disc was left.
struct DiscPlace {
    int title = 0; ///< 0: in its menus, or nowhere
    double seconds = 0;
};

class MovieDisc {
  public:
    /// All of it outlives this object; `say` shows a text for a moment.
    struct Needs {
        Base& base;
        Loudness& loudness;
        FilmDeck& deck;
        std::function<void(const std::string& text)> say;
    };
    explicit MovieDisc(Needs needs) : n_(std::move(needs)) {}

    /// The configured drive with a disc, as it is now; "" for none.
    std::string Drive() const;
    /// Plays a disc, from `place` on when that names a title. False, which the log tells, when it
    /// cannot be played.
    bool Open(const std::string& directory, const DiscPlace& place);
    void Close();
    bool IsOpen() const { return open_; }
    /// The title that plays, 0 for none.
    int Title() const { return open_ ? n_.deck.Loaded()->Dvd().Title() : 0; }
    /// What it is called on the screen, and what its choices are kept under.
    std::string Name() const;

    /// `DVD1`; only while a disc is open.
    DVD& Control() { return *DVD1; }
    bool InMenu() const { return open_ && DVD1->InMenu(); }
    /// A key for its buttons; only while it is open.
    void Press(DvdKey key);
    /// Goes on, or pauses.
    void Pause();
    void GoOn() { DVD1->Play(); }

  private:
    DVD* Made();
    void Told(const DvdStatus& status);

    Needs n_;
    std::unique_ptr<DVD> DVD1;
    DiscPlace wanted_;   ///< until the disc has got there
    bool asked_ = false; ///< for its title
    bool open_ = false;
};

} // namespace vk
