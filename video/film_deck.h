// The film that is open, on a player that is loaded when the first one is.
#pragma once

#include "core/base.h"
#include "platform/media_player.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// What happens to a film; empty ones are not called.
struct FilmEvents {
    std::function<void(std::shared_ptr<const FilmPicture>)> picture;
    std::function<void()> tracks, ended, failed;
};

class FilmDeck {
  public:
    /// `base` outlives the deck.
    FilmDeck(Base& base, MakeMediaPlayer make, FilmEvents events);
    ~FilmDeck();

    /// The player; null, which the log tells once, where there is none.
    MediaPlayer* Player();
    /// `Player` without loading it: null before the first film.
    MediaPlayer* Loaded() const { return player_.get(); }
    /// Plays a file from `seconds` on; false without a player.
    bool Open(const std::string& path, double seconds);
    /// The same for what `play` begins on the player, which is there then.
    bool OpenDisc(const std::function<bool()>& play);
    /// Closes the film and lets its memory go.
    void Close();
    bool IsOpen() const { return open_; }
    bool Playing() const { return StateIs(PlayStateValue::Playing); }
    bool Paused() const { return StateIs(PlayStateValue::Paused); }

    // Of what is open; nothing happens, and 0 is told, while nothing is.
    void Pause();
    void Play();
    double Position() const { return open_ ? player_->CurrentPosition() : 0; }
    void Position(double seconds);
    double Duration() const { return open_ ? player_->Duration() : 0; }

  private:
    bool StateIs(PlayStateValue state) const { return open_ && player_->PlayState() == state; }
    void Listen();
    void Prepare();

    Base& base_;
    const MakeMediaPlayer make_;
    const FilmEvents events_;
    std::unique_ptr<MediaPlayer> player_;
    bool open_ = false;
    bool told_ = false; ///< that there is no player
};

} // namespace vk
