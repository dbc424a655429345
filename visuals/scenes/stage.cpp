#include "visuals/scenes/stage.h"

#include <utility>

namespace vk {

namespace {

constexpr double FadeSeconds = 0.9, TurnSeconds = 60;

} // namespace

Stage::Stage(int width, int height, std::function<TrackLook(const LookSizes&)> makeLook,
             unsigned seed)
    : width_(std::max(width, LeastCanvas)), height_(std::max(height, LeastCanvas)),
      makeLook_(std::move(makeLook)), random_(seed), now_(width_, height_) {}

void Stage::Play(const std::string& scene, double seconds) {
    byItself_ = scene == Random;
    if (byItself_)
        ChangeAtRandom(seconds);
    else
        Change(scene, seconds);
}

// Each of the others is as likely.
void Stage::ChangeAtRandom(double seconds) {
    const auto& names = SceneNames();
    std::size_t next = random_() % (names.size() - (scene_ ? 1 : 0));
    if (scene_ && names[next] == name_) next = names.size() - 1;
    Change(std::string(names[next]), seconds);
}

void Stage::Change(const std::string& scene, double seconds) {
    if (scene_ && scene == name_) return;
    if (scene_) before_ = Picture(); // in the middle of a change: what is to be seen of it
    fading_ = scene_ != nullptr;
    mixed_ = before_;
    name_ = scene;
    scene_ = MakeScene(scene, width_, height_);
    scene_->SetTrack(makeLook_(scene_->Sizes()));
    changedAt_ = seconds;
}

void Stage::TrackChanged(bool another, double seconds) {
    if (another && byItself_) return ChangeAtRandom(seconds);
    if (scene_) scene_->SetTrack(makeLook_(scene_->Sizes()));
}

void Stage::MixPictures(double share) {
    const double eased = share * share * (3 - 2 * share);
    const auto weight = static_cast<unsigned>(eased * 256);
    for (std::size_t i = 0; i < mixed_.pixels.size(); ++i)
        mixed_.pixels[i] = Mix(before_.pixels[i], now_.pixels[i], weight);
}

Area Stage::Draw(const SoundPicture& sound, double seconds) {
    if (!scene_) return {};
    if (byItself_ && seconds - changedAt_ >= TurnSeconds) ChangeAtRandom(seconds);
    const Area changed =
        scene_->Draw({now_.pixels.data(), width_, height_, width_}, sound, seconds);
    if (!fading_) return changed;
    const double share = (seconds - changedAt_) / FadeSeconds;
    fading_ = share < 1;
    if (fading_)
        MixPictures(share);
    else
        before_ = mixed_ = Bitmap();
    return {0, 0, width_, height_};
}

} // namespace vk
