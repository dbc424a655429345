// Veils of light that the music moves, over the cover far out of focus; before them the cover with
// artist and title.
#pragma once

#include "visuals/scenes/scene.h"

#include <array>
#include <vector>

namespace vk {

class AuroraScene : public Scene {
  public:
    AuroraScene(int width, int height);
    LookSizes Sizes() const override;
    void SetTrack(TrackLook look) override;
    Area Draw(const Canvas& canvas, const SoundPicture& sound, double seconds) override;

  private:
    static constexpr std::size_t Veils = 3;
    /// One veil at this moment: where its foot is, by column, and its light by the way above that.
    struct Veil {
        std::vector<int> foot;
        std::vector<Pixel> light;
        double phase = 0;
    };
    void MoveVeil(std::size_t number, float level, double seconds);
    void DrawLine(int y);
    void Enlarge(const Canvas& canvas, int y) const;
    void DrawTrack(const Canvas& canvas) const;
    void DrawText(const Canvas& canvas) const;

    int width_, height_;
    int wide_, high_;       ///< of the veils, which are drawn half as large
    int side_, left_, top_; ///< of the cover
    std::array<Veil, Veils> veils_;
    std::array<Pixel, Veils> colours_{};
    std::array<float, Veils> calm_{}; ///< the levels, smoothed once more
    std::vector<Pixel> line_;
    TrackLook look_;
    double last_ = 0;
};

} // namespace vk
