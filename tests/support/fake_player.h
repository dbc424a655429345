// A player of films and discs that does at once what it is told, and notes it.
#pragma once

#include "platform/dvd_player.h"
#include "platform/media_player.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vk::test {

struct FakeDvd : DvdPlayer {
    explicit FakeDvd(std::vector<std::string>& noted) : done(noted) {}
    void Directory(const std::string& path) override { directory = path; }
    const std::string& Directory() const override { return directory; }
    void Press(DvdKey key) override { done.push_back("key " + std::to_string(int(key))); }
    void Touch(double x, double y) override {
        done.push_back("touch " + std::to_string(int(x * 100)) + " " +
                       std::to_string(int(y * 100)));
    }
    void RootMenu() override { done.push_back("menu"); }
    void NextChapter() override { done.push_back("next"); }
    void PreviousChapter() override { done.push_back("previous"); }
    int Title() const override { return title; }
    void Title(int wanted) override {
        done.push_back("title " + std::to_string(wanted));
        Enter(wanted);
    }
    DvdDomain CurrentDomain() const override { return domain; }
    bool InMenu() const override { return domain == DvdDomain::TitleMenu; }
    bool UOPValid(int flag) const override { return (forbidden & flag) == 0; }

    /// The disc gets to a title, or 0 to its menu.
    void Enter(int number) {
        title = number;
        domain = number > 0 ? DvdDomain::Title : DvdDomain::TitleMenu;
        Notify(int(DvdEvent::DomainChange), int(domain));
    }
    void Notify(int code, int first) const {
        if (onNotify) onNotify(code, first, 0);
    }

    std::vector<std::string>& done;
    std::string directory;
    DvdDomain domain = DvdDomain::None;
    int title = 0;
    int forbidden = 0;
};

struct FakePlayer : MediaPlayer {
    void FileName(const std::string& path) override { Open(path); }
    const std::string& FileName() const override { return file; }
    void Play() override { state = PlayStateValue::Playing; }
    void Pause() override { state = PlayStateValue::Paused; }
    void Stop() override { state = PlayStateValue::Stopped; }
    PlayStateValue PlayState() const override { return state; }
    double CurrentPosition() const override { return position; }
    void CurrentPosition(double seconds) override { position = seconds; }
    double Duration() const override { return duration; }
    void Volume(int) override {}
    int Volume() const override { return 100; }
    void Mute(bool) override {}
    bool Mute() const override { return false; }
    std::vector<FilmTrack> Tracks(TrackKind kind) const override {
        const auto found = tracks.find(kind);
        return found == tracks.end() ? std::vector<FilmTrack>() : found->second;
    }
    int Track(TrackKind kind) const override {
        const auto found = chosen.find(kind);
        return found == chosen.end() ? FilmTrack::None : found->second;
    }
    void Track(TrackKind kind, int id) override { chosen[kind] = id; }
    std::shared_ptr<const FilmPicture> Picture() override { return picture; }
    DvdPlayer& Dvd() override { return dvd; }

    void Open(const std::string& path) {
        file = path;
        state = PlayStateValue::Stopped;
        position = 0;
        if (path.empty()) dvd.directory.clear();
    }

    std::vector<std::string> done;
    FakeDvd dvd{done};
    std::string file;
    PlayStateValue state = PlayStateValue::Stopped;
    double position = 0, duration = 60;
    std::map<TrackKind, std::vector<FilmTrack>> tracks;
    std::map<TrackKind, int> chosen;
    std::shared_ptr<const FilmPicture> picture;
};

} // namespace vk::test
