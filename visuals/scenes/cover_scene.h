// The cover, round, in a wreath of rays.
#pragma once

#include "visuals/scenes/scene.h"

#include <array>
#include <vector>

namespace vk {

class CoverScene : public Scene {
  public:
    CoverScene(int width, int height);
    LookSizes Sizes() const override { return {.cover = 2 * radius_}; }
    void SetTrack(TrackLook look) override;
    Area Draw(const Canvas& canvas, const SoundPicture& sound, double seconds) override;

  private:
    static constexpr std::size_t Rays = 96;
    /// A pixel of the wreath that lies on a ray.
    struct RayPixel {
        std::uint32_t at;       ///< in the square that the wreath fills
        std::uint16_t distance; ///< from the cover's edge, in sixteenths of a pixel
        std::uint8_t ray;
        std::uint8_t share; ///< how much of it, of 255
    };
    void MakeRays();
    void MakeGround();
    void DrawWhole(const Canvas& canvas);
    void DrawCover(const Canvas& canvas) const;
    Pixel Ground(int x, int y) const;

    int width_, height_;
    int radius_, inner_, outer_; ///< of the cover; where rays begin, and end at most
    int left_, top_;             ///< of the wreath's square
    std::vector<RayPixel> pixels_;
    std::vector<Pixel> ground_; ///< of each of them
    std::array<Pixel, Rays> colours_{};
    TrackLook look_;
    bool whole_ = true;
};

} // namespace vk
