// One film that is open in libVLC, from its opening to its end.
#pragma once

#include "platform/dvd/disc_index.h"
#include "platform/linux/vlc/frame_buffers.h"
#include "platform/linux/vlc/vlc_handles.h"
#include "platform/linux/vlc/vlc_library.h"
#include "platform/media_player.h"
#include "platform/mpeg/key_pictures.h"
#include "platform/ui_thread.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace vk {

/// The tracks of one kind.
struct FilmTracks {
    std::vector<FilmTrack> all;
    int chosen = FilmTrack::None;
};

/// What libVLC has reported since the last look.
struct FilmNotes {
    bool picture = false, ended = false, failed = false;
    bool tracks = false; ///< they are to be read anew
    bool tracksRead = false;
    bool openAgain = false;    ///< what was searched for comes when the film is opened
    int title = -1;            ///< of a disc, 0 for its menu; -1: no other one
    std::int64_t timeMs = -1;  ///< -1: nothing new
    std::int64_t lengthMs = 0; ///< 0 until it is known
};

/// What is to be opened.
struct FilmSource {
    std::string path;
    bool disc = false; ///< its folder or image, and not a file
    double startSeconds = 0;
    PixelSize screen; ///< larger pictures are made to fit it
};

/// libVLC's threads take notes, the user-interface thread reads them; everything else is done on
/// the worker. `heed` is called on the user-interface thread, once for all notes that it then
/// finds.
class FilmSession : public std::enable_shared_from_this<FilmSession> {
  public:
    /// A picture whose shape is not known yet waits no longer than that.
    static constexpr auto ShapeWait = std::chrono::milliseconds(250);

    FilmSession(UiThread& ui, std::function<void()> heed) : ui_(ui), heed_(std::move(heed)) {}

    // On the user-interface thread.
    FilmNotes TakeNotes();
    std::shared_ptr<const FilmPicture> Picture();
    /// A picture of it has been taken.
    bool Seen() const { return seen_; }
    /// Pictures like the one on show are not told while it is paused. With `frozen` the one on show
    /// stays until something else is asked for, although another one may wait, and libVLC shows
    /// some more until it stands.
    void SetPaused(bool paused, bool frozen) {
        paused_ = paused;
        frozen_ = frozen;
    }
    void Thaw() { frozen_ = false; }
    /// Nothing is told any more.
    void Abandon();
    /// As they were read last.
    FilmTracks Tracks(TrackKind kind) const;
    /// Of a disc. Until it is read, nothing is forbidden.
    DiscIndex Index() const;

    // On the worker.
    void Open(VlcLibrary& library, const FilmSource& source);
    void Close();
    /// Goes to a moment, seconds, or to one near it that can be shown sooner. Notes when no search
    /// leads there.
    void Seek(double seconds);
    void ReadTracks();
    void Choose(TrackKind kind, int id);
    /// Null when it could not be opened.
    libvlc_media_player_t* Player() const { return player_.get(); }
    libvlc_media_t* Media() const { return media_.get(); }

  private:
    static void OnEvent(const libvlc_event_t* event, void* self);
    static unsigned OnFormat(void** self, char* chroma, unsigned* width, unsigned* height,
                             unsigned* pitch, unsigned* lines);
    static void* OnLock(void* self, void** planes);
    static void OnDisplay(void* self, void* picture);
    void Note(const libvlc_event_t& event);
    void Format(unsigned& width, unsigned& height);
    void Display(FrameBuffers::Buffer* written);
    bool KnowShape(const FilmPicture& picture);
    double ToldShape() const;
    FilmTracks Angles() const;
    template<class Change> void Tell(Change change);
    void Listen();

    UiThread& ui_;
    std::function<void()> heed_; ///< of the user-interface thread
    bool seen_ = false;          ///< of the user-interface thread
    std::atomic<bool> abandoned_ = false, paused_ = false, frozen_ = false;
    const std::shared_ptr<FrameBuffers> frames_ = std::make_shared<FrameBuffers>();

    mutable std::mutex mutex_; ///< of what stands in this paragraph
    FilmNotes notes_;
    bool posted_ = false;
    bool playing_ = false; ///< what is told of titles before is no more than a beginning
    FilmTracks audio_, subtitles_;
    int angle_ = 1;
    DiscIndex index_;
    int title_ = 0; ///< of the disc that is shown

    double Entry(double seconds);
    void ReadIndex();

    FilmSource source_;                 ///< from the opening on
    double fileShape_ = 0;              ///< as the file itself tells it; 0: it does not
    std::unique_ptr<KeyPictures> keys_; ///< of the file, from the first search on
    bool keysRead_ = false;
    // Of the thread that shows the pictures.
    double pixelAspect_ = 0;
    int shown_ = 0; ///< pictures since the format
    std::chrono::steady_clock::time_point formatAt_;

    std::shared_ptr<libvlc_instance_t> library_;
    VlcMedia media_;
    VlcPlayer player_;
};

} // namespace vk
