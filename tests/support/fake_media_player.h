// A player of films that only writes down what was asked of it.
#pragma once

#include "platform/dvd_player.h"
#include "platform/media_player.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vk::test {

/// The film that the player has open; outlives the player.
struct FakeFilm {
    std::vector<std::string> opened; ///< each as "path@seconds"
    std::string path;                ///< "" while none is open
    PlayStateValue state = PlayStateValue::Stopped;
    double position = 0, duration = 100;
    PixelSize screen;
    std::shared_ptr<const FilmPicture> picture = std::make_shared<FilmPicture>();
    std::map<TrackKind, std::vector<FilmTrack>> tracks;
    std::map<TrackKind, int> track;
    std::vector<std::string> done; ///< what was asked of a disc
    DvdDomain domain = DvdDomain::None;
    int title = 0;
    int forbidden = 0;             ///< flags of `uop`
    MediaPlayer* player = nullptr; ///< null until the first film, and after the player's end
    bool missing = false;          ///< there is nothing to play films with
};

class FakeMediaPlayer : public MediaPlayer, public DvdPlayer {
  public:
    explicit FakeMediaPlayer(FakeFilm& film) : film_(film) { film_.player = this; }
    ~FakeMediaPlayer() override { film_.player = nullptr; }

    void FileName(const std::string& path) override {
        Stop();
        film_.path = path;
    }
    const std::string& FileName() const override { return film_.path; }
    void Play() override {
        if (film_.path.empty()) return;
        if (film_.state == PlayStateValue::Stopped)
            film_.opened.push_back(film_.path.substr(film_.path.rfind('/') + 1) + "@" +
                                   std::to_string(static_cast<int>(film_.position)));
        film_.state = PlayStateValue::Playing;
    }
    void Pause() override { film_.state = PlayStateValue::Paused; }
    void Stop() override {
        film_.state = PlayStateValue::Stopped;
        film_.position = 0;
    }
    PlayStateValue PlayState() const override { return film_.state; }
    double CurrentPosition() const override { return film_.position; }
    void CurrentPosition(double seconds) override { film_.position = seconds; }
    double Duration() const override { return film_.duration; }
    void Volume(int) override {}
    int Volume() const override { return 100; }
    void Mute(bool) override {}
    bool Mute() const override { return false; }
    std::vector<FilmTrack> Tracks(TrackKind kind) const override { return film_.tracks[kind]; }
    int Track(TrackKind kind) const override { return film_.track[kind]; }
    void Track(TrackKind kind, int id) override { film_.track[kind] = id; }
    void Screen(PixelSize size) override { film_.screen = size; }
    std::shared_ptr<const FilmPicture> Picture() override { return film_.picture; }

    DvdPlayer& Dvd() override { return *this; }
    void Directory(const std::string& path) override { FileName(path); }
    const std::string& Directory() const override { return film_.path; }
    void Press(DvdKey key) override { film_.done.push_back("key " + std::to_string(int(key))); }
    void Touch(double x, double y) override {
        film_.done.push_back("touch " + std::to_string(int(x * 100)) + " " +
                             std::to_string(int(y * 100)));
    }
    void RootMenu() override { film_.done.push_back("menu"); }
    void NextChapter() override { film_.done.push_back("next"); }
    void PreviousChapter() override { film_.done.push_back("previous"); }
    int Title() const override { return film_.title; }
    void Title(int title) override {
        film_.done.push_back("title " + std::to_string(title));
        Enter(title);
    }
    DvdDomain CurrentDomain() const override { return film_.domain; }
    bool InMenu() const override { return film_.domain == DvdDomain::TitleMenu; }
    bool UOPValid(int flag) const override { return (film_.forbidden & flag) == 0; }

    /// The disc gets to a title, or 0 to its menu.
    void Enter(int title) {
        film_.title = title;
        film_.domain = title > 0 ? DvdDomain::Title : DvdDomain::TitleMenu;
        Notify(int(DvdEvent::DomainChange), int(film_.domain));
    }
    void Notify(int code, int first) const {
        if (onNotify) onNotify(code, first, 0);
    }

  private:
    FakeFilm& film_;
};

} // namespace vk::test
