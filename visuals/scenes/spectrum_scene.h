// The bars of the spectrum over their reflection.
#pragma once

#include "visuals/scenes/scene.h"

#include <vector>

namespace vk {

class SpectrumScene : public Scene {
  public:
    SpectrumScene(int width, int height);
    Area Draw(const Canvas& canvas, const SoundPicture& sound, double seconds) override;

  private:
    /// Where a bar stands, in pixels.
    struct Bar {
        int left = 0, width = 0;
        std::vector<Pixel> column; ///< its colour at each height above the floor
    };
    void DrawBar(const Canvas& canvas, const Bar& bar, float level, float peak) const;
    void DrawRow(const Canvas& canvas, const Bar& bar, int y, Pixel colour, float share,
                 int rounded) const;

    int width_, height_;
    int floor_, tallest_, deepest_; ///< the line that bars stand on; how high, how deep they reach
    std::vector<Bar> bars_;
    std::vector<Pixel> ground_; ///< by line
    bool drawn_ = false;
};

} // namespace vk
