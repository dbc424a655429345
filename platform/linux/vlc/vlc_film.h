// Films by libVLC, decoded into memory.
#pragma once

#include "platform/linux/vlc/film_session.h"
#include "platform/linux/vlc/vlc_dvd.h"
#include "platform/linux/vlc/vlc_worker.h"
#include "platform/media_player.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// Nothing here waits: libVLC is asked on a thread of its own, and what it says is kept.
class VlcFilm : public MediaPlayer {
  public:
    /// How long what was asked for counts as the position, when the film reports another one.
    static constexpr auto SeekTrust = std::chrono::milliseconds(1500);

    /// `ui` outlives this object.
    explicit VlcFilm(UiThread& ui);
    ~VlcFilm() override;

    void FileName(const std::string& path) override;
    const std::string& FileName() const override { return path_; }
    void Play() override;
    void Pause() override;
    void Stop() override;
    PlayStateValue PlayState() const override { return state_; }
    double CurrentPosition() const override;
    void CurrentPosition(double seconds) override;
    double Duration() const override;
    void Volume(int percent) override;
    int Volume() const override { return volume_; }
    void Mute(bool on) override;
    bool Mute() const override { return mute_; }
    std::vector<FilmTrack> Tracks(TrackKind kind) const override;
    int Track(TrackKind kind) const override;
    void Track(TrackKind kind, int id) override;
    void Screen(PixelSize size) override { screen_ = size; }
    std::shared_ptr<const FilmPicture> Picture() override { return picture_; }
    DvdPlayer& Dvd() override { return dvd_; }

  private:
    friend class VlcDvd;
    using SteadyTime = std::chrono::steady_clock::time_point;
    using Call = std::function<void(libvlc_media_player_t*)>;

    void Name(const std::string& path, bool disc);
    void Open();
    void OpenAgain();
    void SendPause();
    void Close();
    /// Asks the open film something on the worker; nothing while none is open.
    void Ask(Call call);
    void Heed();
    void HeedTime(const FilmNotes& notes);
    void SetLoudness();
    void ChooseAgain();

    UiThread& ui_;
    const std::shared_ptr<VlcLibrary> library_ = std::make_shared<VlcLibrary>();
    std::shared_ptr<FilmSession> session_; ///< null: nothing is open
    VlcDvd dvd_{*this};
    std::string path_;
    bool disc_ = false;
    PixelSize screen_;
    PlayStateValue state_ = PlayStateValue::Stopped;
    double wanted_ = -1; ///< the position that was asked for, seconds; -1: the film tells it
    SteadyTime wantedAt_;
    std::int64_t timeMs_ = 0, lengthMs_ = 0;
    std::shared_ptr<const FilmPicture> picture_; ///< while it is told
    bool pauseDue_ = false;                      ///< it is paused, but for the first picture
    std::map<TrackKind, int> chosen_;            ///< of the film
    std::map<TrackKind, int> chooseAgain_;       ///< of those, when it is opened anew
    int volume_ = 100;
    bool mute_ = false;
    VlcWorker worker_; ///< last: what it runs uses what is above
};

} // namespace vk
