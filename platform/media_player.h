// Films: opened by name, decoded by the machine, and handed over picture by picture, so that
// whatever lies over them is ours to draw.
#pragma once

#include "platform/picture_fit.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

class DvdPlayer;

/// What a film is doing, under the numbers of the system's own.
enum class PlayStateValue { Stopped = 0, Paused = 1, Playing = 2 };

/// One picture of a film. Its memory stays as it is for as long as somebody holds it; who holds
/// more than one makes the film wait.
struct FilmPicture {
    const std::uint32_t* pixels = nullptr; ///< 0x00RRGGBB each, the upper byte is anything
    int width = 0, height = 0;             ///< the visible part, pixels
    int stride = 0;                        ///< bytes from one row to the next
    double pixelAspect = 1;                ///< the width of one of its pixels over the height
};

/// `Angle` is a disc's alone: from where a scene was filmed.
enum class TrackKind { Audio, Subtitles, Angle };

struct FilmTrack {
    static constexpr int None = -1;
    int id = None;    ///< as long as the film is open
    std::string name; ///< UTF-8, as the film calls it
};

/// The player behind the films' screen. All of it is used on the user-interface thread, nothing of
/// it waits for the medium, and the functions below are called from the event loop.
class MediaPlayer {
  public:
    virtual ~MediaPlayer() = default;

    /// The film that `Play` begins; what is open is closed. "" closes it and lets all memory go.
    virtual void FileName(const std::string& path) = 0;
    virtual const std::string& FileName() const = 0;
    /// Begins the film at the position that was set meanwhile, else at its beginning; a paused one
    /// goes on.
    virtual void Play() = 0;
    virtual void Pause() = 0;
    /// The film is closed; its name stays.
    virtual void Stop() = 0;
    /// As it was asked for last: a film that is still being opened is playing.
    virtual PlayStateValue PlayState() const = 0;

    /// Seconds into the film. Right after it was set it is that, also before the medium has got
    /// there.
    virtual double CurrentPosition() const = 0;
    virtual void CurrentPosition(double seconds) = 0;
    /// Seconds; 0 until it is known, and for what has none.
    virtual double Duration() const = 0;

    /// Of this player alone, 0 to 100, and its mute. How loud the system is, is the sound card's.
    virtual void Volume(int percent) = 0;
    virtual int Volume() const = 0;
    virtual void Mute(bool on) = 0;
    virtual bool Mute() const = 0;

    /// What there is to choose from, without "none"; empty until the film has told.
    virtual std::vector<FilmTrack> Tracks(TrackKind kind) const = 0;
    /// The id of the chosen one, `FilmTrack::None` for none.
    virtual int Track(TrackKind kind) const = 0;
    virtual void Track(TrackKind kind, int id) = 0;

    /// Where pictures are shown: larger ones of films that are opened from now on come in the size
    /// that fits there, since that costs least while they are decoded. All others come as they are.
    virtual void Screen(PixelSize size) = 0;
    /// The picture that `onPicture` tells of, within that call. One that could not be told of yet
    /// is dropped for the next. While the film is paused there is no new one but after a change of
    /// position.
    virtual std::shared_ptr<const FilmPicture> Picture() = 0;

    /// The menus, titles and chapters of a disc, which is opened there and is a film here.
    virtual DvdPlayer& Dvd() = 0;

    std::function<void()> onPicture; ///< there is a new one
    std::function<void()> onTracks;  ///< what can be chosen, or what is chosen, has changed
    std::function<void()> onEnded;   ///< it came to its end
    std::function<void()> onFailed;  ///< it cannot be played, or cannot be played on
};

/// Makes one, null with the cause in `reason` where there is nothing to play films with. What it
/// stands on is loaded by the first call.
using MakeMediaPlayer = std::function<std::unique_ptr<MediaPlayer>(std::string& reason)>;

} // namespace vk
