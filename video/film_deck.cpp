#include "video/film_deck.h"

#include <utility>

namespace vk {

FilmDeck::FilmDeck(Base& base, MakeMediaPlayer make, FilmEvents events)
    : base_(base), make_(std::move(make)), events_(std::move(events)) {}

FilmDeck::~FilmDeck() = default;

MediaPlayer* FilmDeck::Player() {
    if (player_) return player_.get();
    std::string reason = "there is none";
    if (make_) player_ = make_(reason);
    if (player_)
        Listen();
    else if (!std::exchange(told_, true))
        base_.log.WriteDebugLog("No player of films: " + reason);
    return player_.get();
}

// What was on its way when a film was closed is nobody's.
void FilmDeck::Listen() {
    player_->onPicture = [this] {
        if (open_ && events_.picture) events_.picture(player_->Picture());
    };
    const auto pass = [this](const std::function<void()>& event) {
        return [this, &event] {
            if (open_ && event) event();
        };
    };
    player_->onTracks = pass(events_.tracks);
    player_->onEnded = pass(events_.ended);
    player_->onFailed = pass(events_.failed);
}

// Films fill the screen, which the settings may have changed since the last one.
void FilmDeck::Prepare() {
    player_->Screen({base_.state.ScreenWidth, base_.state.ScreenHeight});
}

bool FilmDeck::Open(const std::string& path, double seconds) {
    MediaPlayer* player = Player();
    if (!player) return false;
    Prepare();
    player->FileName(path);
    if (seconds > 0) player->CurrentPosition(seconds);
    open_ = true;
    player->Play();
    return true;
}

bool FilmDeck::OpenDisc(const std::function<bool()>& play) {
    open_ = Player() != nullptr;
    if (open_) Prepare();
    return open_ = open_ && play();
}

void FilmDeck::Close() {
    if (!std::exchange(open_, false)) return;
    player_->FileName("");
}

void FilmDeck::Pause() {
    if (Playing()) player_->Pause();
}

void FilmDeck::Play() {
    if (open_ && !Playing()) player_->Play();
}

void FilmDeck::Position(double seconds) {
    if (open_) player_->CurrentPosition(seconds);
}

} // namespace vk
