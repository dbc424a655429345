// The control that plays a video disc for the movie player: one flat set of operations.
#pragma once

#include "platform/dvd_player.h"
#include "platform/media_player.h"
#include "platform/volumes.h"
#include "playback/loudness.h"
#include "video/disc/dvd_status.h"

#include <functional>
#include <string>

namespace vk {

/// An operation that the disc does not allow at this moment is not tried, and told to `onRefused`.
/// Loudness is that of the whole system.
class DVD {
  public:
    /// How far `ffwd` and `rwnd` go, seconds.
    static constexpr int SkipSeconds = 10;

    /// All of it outlives this object.
    struct Needs {
        MediaPlayer& inner;
        Loudness& loudness;
        Volumes& volumes;
    };
    explicit DVD(Needs needs);
    ~DVD() { Disc().onNotify = {}; }
    DVD(const DVD&) = delete;
    DVD& operator=(const DVD&) = delete;

    /// Percent of the scale.
    std::int32_t Volume() const { return n_.loudness.Percent(); }
    void Volume(std::int32_t percent) { n_.loudness.SetPercent(percent); }
    bool Mute() const { return n_.loudness.Muted(); }
    void Mute(bool on);
    /// The disc: a drive's root, a folder with a VIDEO_TS in it, that folder, or a disc's image.
    const std::string& directory() const { return directory_; }
    void directory(const std::string& root) { directory_ = root; }
    PlayStateValue state() const { return n_.inner.PlayState(); }

    void volumedown() { n_.loudness.VolDown(); }
    void volumeup() { n_.loudness.VolUp(); }
    /// Steps of the volume, negative ones down.
    void incvolume(int steps);
    /// Touches go to the disc no more, until it is played anew.
    void disablemouse() { mouse_ = false; }
    void ffwd() { Skip(uop::Forwards, SkipSeconds); }
    void rwnd() { Skip(uop::Backwards, -SkipSeconds); }
    /// Stops, and opens the drive that the disc is in.
    void eject();
    void nextchapter();
    void prevchapter();
    void menu();
    void uparrow() { Press(DvdKey::Up); }
    void downarrow() { Press(DvdKey::Down); }
    void leftarrow() { Press(DvdKey::Left); }
    void rightarrow() { Press(DvdKey::Right); }
    void enterbutton() { Press(DvdKey::Enter); }
    /// False when the disc cannot be shown at all.
    bool Play();
    void stopdvd();
    void pause();
    /// The same whether or not the disc allows it: nobody watches any more.
    void hold();
    /// Hands the disc to the player.
    void setdvd() { Disc().Directory(directory_); }
    /// What tells the disc from others; 0 without one.
    std::int32_t id() const { return n_.volumes.Serial(directory_); }
    /// Where the picture lies on the screen, pixels.
    void setwnd(int left, int top, int width, int height) { box_ = {left, top, width, height}; }
    /// Whether there is a disc that could be shown.
    bool renderit() const;
    DvdDomain GetCurrentDomain() const { return Disc().CurrentDomain(); }
    bool CheckUOPValid(int flag) const { return Disc().UOPValid(flag); }

    /// A touch on the screen, pixels: presses the button of a menu there. False outside of menus
    /// and beside the picture.
    bool touch(int x, int y);
    bool InMenu() const { return Disc().InMenu(); }
    /// The screen is to stay awake: a disc plays.
    bool DisableScreenSaver() const { return awake_; }

    /// What the disc tells. `onPosted` hears the same, for who watches the disc.
    std::function<void(const DvdStatus&status)> DVDStatusCode, onPosted;
    std::function<void()> onRefused;
    /// The last one raised.
    const std::string& StatusText() const { return text_; }

  private:
    struct Box {
        int left = 0, top = 0, width = 0, height = 0;
    };
    DvdPlayer& Disc() const { return n_.inner.Dvd(); }
    bool Allowed(int flag) const;
    void Press(DvdKey key);
    void Skip(int flag, int seconds);
    void Notified(int code, std::int64_t first, std::int64_t second);

    Needs n_;
    std::string directory_;
    std::string text_;
    Box box_;
    bool mouse_ = false;
    bool awake_ = false;
    bool DVDPauseOn = false;
};

} // namespace vk
