// What keys, the remote, the wheel and touches of the picture do on the films' screen.
#pragma once

#include "core/base.h"
#include "input/key_map.h"
#include "platform/dvd_player.h"
#include "playback/loudness.h"
#include "video/movie_player.h"

#include <string>

namespace vk {

/// The screen as others meet it. A disc's menu has the arrows and Enter for itself, and up and down
/// are the disc's even in a title.
class MovieKeys {
  public:
    /// All of it outlives this object.
    struct Needs {
        Base& base;
        MoviePlayer& player;
        Loudness& loudness;
        const KeyMap& keys;
    };
    explicit MovieKeys(Needs needs) : n_(needs) {}

    bool Form_KeyDown(const std::string& code) { return DoAction(InputCode(code, n_.keys)); }
    bool DoAction(const InputCode& code);
    bool Repeats(const InputCode& key) const;
    /// Pauses or goes on; in the menu of a disc presses its button.
    void runok();
    void MoveUp();
    void MoveDown();
    void MoveBack();
    void MoveAhead();
    /// Ten seconds, in the menu of a disc, too.
    void DoFF() { Films().FF_Click(MovieHolds::StepSeconds); }
    void DoRW() { Films().RW_Click(MovieHolds::StepSeconds); }
    void VolUp() { n_.loudness.VolUp(); }
    void VolDown() { n_.loudness.VolDown(); }
    void domute() { n_.loudness.domute(); }
    /// The wheel: positive is up.
    void Wheel(int delta);
    /// A touch of the picture, pixels of a screen that is so large.
    void PictureTouched(int x, int y, int width, int height);
    /// Where the picture lies on the screen now, pixels.
    void PicturePlaced(int left, int top, int width, int height);

    // What the player does.
    void ReShow() { n_.player.ReShow(); }
    void ReDisplay() { n_.player.ReDisplay(); }
    void switchingform() { n_.player.switchingform(); }
    void doquit() { n_.player.doquit(); }
    void DoPause() { n_.player.DoPause(); }

  private:
    static const ActionRow<MovieKeys> Rows[];
    FilmRun& Films() { return n_.player.films(); }
    bool DiscKey(DvdKey key);
    void Play() { Films().UnPauseIt(); }
    void Next() { Films().NextMovie(); }
    void Previous() { Films().PreviousMovie(); }
    void Swap() { n_.player.Swap(); }
    void LoadGPS() { n_.player.LoadGPS(); }

    Needs n_;
};

} // namespace vk
