// One scene at a time, and the change from one to the next.
#pragma once

#include "visuals/scenes/scene.h"

#include <functional>
#include <memory>
#include <random>
#include <string>

namespace vk {

/// Keeps the picture that the scenes draw on. A scene that follows another one comes up out of it
/// slowly.
class Stage {
  public:
    /// The name under which the stage chooses by itself: another scene with each track, and after
    /// each minute of one.
    static constexpr const char* Random = "random";

    /// `makeLook` makes the look of the track that plays, in those sizes.
    Stage(int width, int height, std::function<TrackLook(const LookSizes&)> makeLook,
          unsigned seed);

    /// What is shown from now on, by the name of a scene or `Random`.
    void Play(const std::string& scene, double seconds);
    /// Another track plays, or more is known of it.
    void TrackChanged(bool another, double seconds);
    /// The next picture, in `Picture`; what of it has changed.
    Area Draw(const SoundPicture& sound, double seconds);
    const Bitmap& Picture() const { return fading_ ? mixed_ : now_; }
    /// The scene that is shown.
    const std::string& Scene() const { return name_; }

  private:
    void Change(const std::string& scene, double seconds);
    void ChangeAtRandom(double seconds);
    void MixPictures(double share);

    int width_, height_;
    std::function<TrackLook(const LookSizes&)> makeLook_;
    std::minstd_rand random_;
    std::unique_ptr<vk::Scene> scene_;
    std::string name_;
    Bitmap now_, before_, mixed_; ///< of the scene, of the one before it, and between them
    double changedAt_ = 0;        ///< seconds
    bool byItself_ = false, fading_ = false;
};

} // namespace vk
