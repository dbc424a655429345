// The wave of the sound, with an afterglow.
#pragma once

#include "visuals/scenes/scene.h"

#include <vector>

namespace vk {

class ScopeScene : public Scene {
  public:
    ScopeScene(int width, int height);
    Area Draw(const Canvas& canvas, const SoundPicture& sound, double seconds) override;

  private:
    void Fade(double seconds);
    void DrawWave(const SoundPicture& sound);
    void DrawColumn(int x, float from, float to);

    int width_, height_;
    int top_, bottom_;                ///< the lines that the wave can reach
    int glow_;                        ///< pixels from the middle of the wave to the end of its glow
    std::vector<std::uint8_t> light_; ///< how bright the wave is, line by line from `top_`
    std::vector<Pixel> shades_;       ///< by column and brightness
    std::vector<float> glowing_;      ///< by tenths of a pixel from the middle
    double last_ = 0, owed_ = 0;
    bool drawn_ = false;
};

} // namespace vk
