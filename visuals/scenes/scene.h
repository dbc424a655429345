// A picture that follows the music.
#pragma once

#include "visuals/scenes/canvas.h"
#include "visuals/sound/spectrum.h"

#include <memory>
#include <string_view>
#include <vector>

namespace vk {

/// What belongs to the track that plays, in the sizes that the scene has asked for.
struct TrackLook {
    Bitmap cover;                     ///< a square
    Bitmap ground;                    ///< the cover, far out of focus, half as large as the canvas
    Bitmap text;                      ///< artist and title
    Pixel accent = Rgb(76, 125, 255); ///< the cover's liveliest colour
};

/// What a scene has room for, in pixels; 0: nothing.
struct LookSizes {
    int cover = 0;
    bool ground = false;
    int textWidth = 0, textHeight = 0;
};

/// One canvas of one size; what was drawn stays on it from picture to picture.
class Scene {
  public:
    virtual ~Scene() = default;
    virtual LookSizes Sizes() const { return {}; }
    /// Another track plays. The next picture is drawn whole.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): kept by most scenes
    virtual void SetTrack(TrackLook /*look*/) {}
    /// Draws what the music has changed, `seconds` after the beginning; what it has touched.
    virtual Area Draw(const Canvas& canvas, const SoundPicture& sound, double seconds) = 0;
};

/// Whatever the canvas is: at least this many pixels wide and high.
inline constexpr int LeastCanvas = 64;

/// "spectrum", "scope", "cover" or "aurora"; the first for any other name.
std::unique_ptr<Scene> MakeScene(std::string_view name, int width, int height);

/// All those names.
const std::vector<std::string_view>& SceneNames();

} // namespace vk
