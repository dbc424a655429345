#include "visuals/scenes/aurora_scene.h"

#include "visuals/scenes/colours.h"

#include <cmath>
#include <utility>

namespace vk {

namespace {

constexpr double SideShare = 0.46, LeftShare = 0.075; // of the height, of the width
constexpr double TextHeightShare = 0.42, TextGapShare = 0.05;
constexpr double BelowShare = 0.035, AboveShare = 0.55; // how far a veil's light reaches
constexpr double CalmSeconds = 0.12;

/// How a veil hangs: in shares of the height, and in turns.
struct Hang {
    double foot, swing, waves, speed, light;
};
constexpr Hang Hangs[] = {{0.62, 0.060, 1.3, 0.11, 0.46},
                          {0.74, 0.050, 2.1, -0.16, 0.42},
                          {0.86, 0.035, 3.2, 0.23, 0.40}};

// Channel by channel, at most white.
Pixel Sum(Pixel a, Pixel b) {
    const Pixel sum = (a & 0xFEFEFE) + (b & 0xFEFEFE);
    const Pixel over = sum & 0x1010100;
    return 0xFF000000u | ((sum | (over - (over >> 8))) & 0xFFFFFF);
}

} // namespace

AuroraScene::AuroraScene(int width, int height)
    : width_(width), height_(height), wide_((width + 1) / 2), high_((height + 1) / 2),
      side_(static_cast<int>(std::min(width, height) * SideShare)),
      left_(static_cast<int>(width * LeftShare)), top_((height - side_) / 2),
      line_(static_cast<std::size_t>(wide_)) {
    for (std::size_t i = 0; i < Veils; ++i) {
        veils_[i].foot.resize(static_cast<std::size_t>(wide_));
        veils_[i].light.resize(static_cast<std::size_t>(high_) * 2);
        veils_[i].phase = static_cast<double>(i) * 2.1;
    }
    AuroraScene::SetTrack({});
}

LookSizes AuroraScene::Sizes() const {
    const int text = left_ + side_ + static_cast<int>(width_ * TextGapShare);
    return {.cover = side_,
            .ground = true,
            .textWidth = std::max(1, width_ - text - left_ / 2),
            .textHeight = static_cast<int>(height_ * TextHeightShare)};
}

void AuroraScene::SetTrack(TrackLook look) {
    look_ = std::move(look);
    if (look_.ground.width != wide_ || look_.ground.height != high_) {
        look_.ground = Bitmap(wide_, high_);
        for (int y = 0; y < high_; ++y)
            std::fill_n(look_.ground.Line(y), wide_, GroundColour(static_cast<double>(y) / high_));
    }
    for (std::size_t i = 0; i < Veils; ++i)
        colours_[i] = Mix(ScaleColour(0.1 + 0.38 * static_cast<double>(i)), look_.accent, 60);
}

// The foot is bright, and the light fades upwards like a curtain's.
void AuroraScene::MoveVeil(std::size_t number, float level, double seconds) {
    constexpr double Circle = 6.283185307;
    const Hang& hang = Hangs[number];
    Veil& veil = veils_[number];
    const double swing = high_ * hang.swing * (0.6 + 1.4 * level);
    const double turn = veil.phase + seconds * hang.speed * Circle;
    for (int x = 0; x < wide_; ++x) {
        const double at = static_cast<double>(x) / wide_ * Circle * hang.waves;
        const double wave = std::sin(at + turn) + 0.5 * std::sin(at * 1.7 - turn * 0.6);
        veil.foot[static_cast<std::size_t>(x)] = static_cast<int>(high_ * hang.foot - swing * wave);
    }
    const double above = high_ * AboveShare * (0.25 + 0.75 * level), below = high_ * BelowShare;
    for (int i = 0; i < 2 * high_; ++i) {
        const double away = i - high_; // above is positive
        const double shape = away >= 0 ? std::exp(-3.2 * away / above) : 1 + away / below;
        const double share = std::clamp(shape, 0.0, 1.0) * hang.light * (0.30 + 0.70 * level);
        veil.light[static_cast<std::size_t>(i)] =
            Mix(0, colours_[number], static_cast<unsigned>(share * 256)) & 0xFFFFFF;
    }
}

void AuroraScene::DrawLine(int y) {
    std::copy_n(look_.ground.Line(y), wide_, line_.begin());
    for (const Veil& veil : veils_) {
        const int last = 2 * high_ - 1;
        for (std::size_t x = 0; x < line_.size(); ++x) {
            const int away = std::clamp(veil.foot[x] - y + high_, 0, last);
            line_[x] = Sum(line_[x], veil.light[static_cast<std::size_t>(away)]);
        }
    }
}

// Each pixel becomes four.
void AuroraScene::Enlarge(const Canvas& canvas, int y) const {
    Pixel* first = canvas.Line(2 * y);
    for (int x = 0; x < width_; ++x)
        first[x] = line_[static_cast<std::size_t>(x / 2)];
    if (2 * y + 1 < height_) std::copy_n(first, width_, canvas.Line(2 * y + 1));
}

void AuroraScene::DrawText(const Canvas& canvas) const {
    const Bitmap& text = look_.text;
    const int left = left_ + side_ + static_cast<int>(width_ * TextGapShare);
    const int top = (height_ - text.height) / 2;
    for (int y = 0; y < text.height; ++y) {
        if (top + y < 0 || top + y >= height_) continue;
        Pixel* line = canvas.Line(top + y) + left;
        const Pixel* from = text.Line(y);
        for (int x = 0; x < std::min(text.width, width_ - left); ++x)
            if (const Pixel over = from[x]; over >> 24 != 0)
                line[x] = Sum(Mix(line[x], Rgb(0, 0, 0), over >> 24), over & 0xFFFFFF);
    }
}

void AuroraScene::DrawTrack(const Canvas& canvas) const {
    const int side = std::min(side_, look_.cover.width);
    for (int y = 0; y < side; ++y)
        std::copy_n(look_.cover.Line(y), side, canvas.Line(top_ + y) + left_);
    DrawText(canvas);
}

Area AuroraScene::Draw(const Canvas& canvas, const SoundPicture& sound, double seconds) {
    const double share = 1 - std::exp(-std::clamp(seconds - last_, 0.0, 1.0) / CalmSeconds);
    last_ = seconds;
    const float levels[] = {sound.bass, sound.middle, sound.treble};
    for (std::size_t i = 0; i < Veils; ++i) {
        calm_[i] += static_cast<float>(share) * (levels[i] - calm_[i]);
        MoveVeil(i, calm_[i], seconds);
    }
    for (int y = 0; y < high_; ++y) {
        DrawLine(y);
        Enlarge(canvas, y);
    }
    DrawTrack(canvas);
    return {0, 0, width_, height_};
}

} // namespace vk
