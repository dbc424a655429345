// Shuffle, which the player process does and winamp.ini remembers.
#pragma once

#include "core/base.h"
#include "playback/audio/player_view.h"
#include "playback/audio_state.h"
#include "playback/c_winamp.h"

#include <string>

namespace vk {

class Shuffle {
  public:
    /// All of it outlives this object.
    Shuffle(Base& base, AudioState& audio, cWinamp& winamp, PlayerView& view)
        : base_(base), audio_(audio), winamp_(winamp), view_(view) {}

    /// Shows what winamp.ini says.
    void Show();
    /// For a source that knows no shuffle.
    void ShowNone() { Draw(false); }
    void setshuffle();

  private:
    bool Read(std::string& text) const;
    void Draw(bool on);

    Base& base_;
    AudioState& audio_;
    cWinamp& winamp_;
    PlayerView& view_;
};

} // namespace vk
