#include "visuals/scenes/spectrum_scene.h"

#include "visuals/scenes/colours.h"

#include <cmath>
#include <utility>

namespace vk {

namespace {

constexpr double FloorShare = 0.70, TallestShare = 0.60, DeepestShare = 0.24; // of the height
constexpr double MarginShare = 0.045;                                         // of the width
constexpr double BarShare = 0.66;                                             // of a bar's cell
constexpr double DarkFoot = 0.55; // how bright a bar is at its foot
constexpr float Mirror = 0.34f;   // how bright its reflection begins
constexpr int LeastHeight = 2;    // pixels that a silent bar keeps

unsigned Share256(float share) {
    return static_cast<unsigned>(std::clamp(share, 0.0f, 1.0f) * 256);
}

} // namespace

SpectrumScene::SpectrumScene(int width, int height)
    : width_(width), height_(height), floor_(static_cast<int>(height * FloorShare)),
      tallest_(static_cast<int>(height * TallestShare)),
      deepest_(static_cast<int>(height * DeepestShare)) {
    for (int y = 0; y < height; ++y)
        ground_.push_back(GroundColour(static_cast<double>(y) / height));
    const double margin = width * MarginShare;
    const double cell = (width - 2 * margin) / SoundPicture::Bands;
    for (std::size_t i = 0; i < SoundPicture::Bands; ++i) {
        Bar bar;
        bar.width = std::max(1, static_cast<int>(std::lround(cell * BarShare)));
        bar.left = static_cast<int>(margin + cell * (static_cast<double>(i) + 0.5)) - bar.width / 2;
        const Pixel colour = ScaleColour(static_cast<double>(i) / (SoundPicture::Bands - 1));
        for (int row = 0; row <= tallest_; ++row) {
            const double bright = DarkFoot + (1 - DarkFoot) * row / tallest_;
            bar.column.push_back(Mix(ground_[0], colour, static_cast<unsigned>(bright * 256)));
        }
        bars_.push_back(std::move(bar));
    }
}

// Near its end a bar is as narrow as a round one: `rounded` pixels from the very end.
void SpectrumScene::DrawRow(const Canvas& canvas, const Bar& bar, int y, Pixel colour, float share,
                            int rounded) const {
    const Pixel ground = ground_[static_cast<std::size_t>(y)];
    const double radius = bar.width / 2.0, up = radius - rounded - 0.5;
    Pixel* line = canvas.Line(y) + bar.left;
    const Pixel full = Mix(ground, colour, Share256(share));
    if (up <= 0) return void(std::fill_n(line, bar.width, full));
    const double half = std::sqrt(std::max(0.0, radius * radius - up * up));
    for (int x = 0; x < bar.width; ++x) {
        const double inside = std::clamp(half + 0.5 - std::abs(x + 0.5 - radius), 0.0, 1.0);
        line[x] = inside >= 1 ? full : Mix(ground, full, Share256(static_cast<float>(inside)));
    }
}

void SpectrumScene::DrawBar(const Canvas& canvas, const Bar& bar, float level, float peak) const {
    const float exact = std::max(level * static_cast<float>(tallest_), float{LeastHeight});
    const int high = static_cast<int>(std::ceil(exact)), cap = bar.width / 4 + 1;
    const int peakFoot = static_cast<int>(peak * static_cast<float>(tallest_ - cap)) + cap;
    for (int row = 0; row <= tallest_; ++row) {
        const int y = floor_ - 1 - row;
        const Pixel colour = bar.column[static_cast<std::size_t>(row)];
        const int below = high - 1 - row;
        const bool isPeak = row >= peakFoot && row < peakFoot + cap && row > high;
        if (below >= 0)
            DrawRow(canvas, bar, y, colour,
                    below == 0 ? exact - static_cast<float>(high - 1) : 1.0f, below);
        else
            std::fill_n(canvas.Line(y) + bar.left, bar.width,
                        isPeak ? Mix(ground_[static_cast<std::size_t>(y)], colour, 150)
                               : ground_[static_cast<std::size_t>(y)]);
    }
    for (int row = 0; row < deepest_; ++row) {
        const int y = floor_ + 2 + row;
        if (y >= height_) break;
        const float away = static_cast<float>(row) / static_cast<float>(deepest_);
        const float share = row * 2 < high ? Mirror * (1 - away) * (1 - away) : 0.0f;
        const int from = std::min(row * 2, tallest_);
        std::fill_n(canvas.Line(y) + bar.left, bar.width,
                    Mix(ground_[static_cast<std::size_t>(y)],
                        bar.column[static_cast<std::size_t>(from)], Share256(share)));
    }
}

Area SpectrumScene::Draw(const Canvas& canvas, const SoundPicture& sound, double /*seconds*/) {
    const bool whole = !std::exchange(drawn_, true);
    if (whole) DrawGround(canvas);
    for (std::size_t i = 0; i < bars_.size(); ++i)
        DrawBar(canvas, bars_[i], sound.bands[i], sound.peaks[i]);
    if (whole) return {0, 0, width_, height_};
    const int top = floor_ - 1 - tallest_;
    return {0, top, width_, std::min(height_, floor_ + 2 + deepest_) - top};
}

} // namespace vk
