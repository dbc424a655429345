#include "visuals/scenes/cover_scene.h"

#include "visuals/scenes/colours.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace vk {

namespace {

constexpr double RadiusShare = 0.245, GapShare = 0.022, OuterShare = 0.475; // of the height
constexpr double RayFill = 0.62;   // of its sector at the cover that a ray takes
constexpr double HaloShare = 0.55; // how far the accent reaches into the ground, of the width
constexpr unsigned HaloLight = 74; // of 256
constexpr float LeastRay = 0.035f;
constexpr int Fine = 16; // steps of a distance a pixel
constexpr Pixel Rim = Rgb(235, 240, 250);

double Distance(double x, double y) {
    return std::sqrt(x * x + y * y);
}

// The deepest band is below, the highest above, the same to both sides.
std::size_t BandOfRay(std::size_t ray, std::size_t rays) {
    const std::size_t half = rays / 2;
    const std::size_t from = ray < half ? ray : rays - 1 - ray;
    return from * SoundPicture::Bands / half;
}

} // namespace

CoverScene::CoverScene(int width, int height) : width_(width), height_(height) {
    const double side = std::min(width, height);
    radius_ = static_cast<int>(side * RadiusShare);
    inner_ = radius_ + static_cast<int>(side * GapShare) + 1;
    outer_ = static_cast<int>(side * OuterShare);
    left_ = width / 2 - outer_;
    top_ = height / 2 - outer_;
    MakeRays();
}

void CoverScene::MakeRays() {
    constexpr double Sector = 2 * std::numbers::pi / Rays;
    const double halfRay = RayFill * Sector * inner_ / 2;
    for (int y = 0; y < 2 * outer_; ++y)
        for (int x = 0; x < 2 * outer_; ++x) {
            const double dx = x + 0.5 - outer_, dy = y + 0.5 - outer_, far = Distance(dx, dy);
            if (far < inner_ || far >= outer_) continue;
            // From straight below, clockwise.
            const double turn = std::atan2(-dx, dy) + (dx > 0 ? 2 * std::numbers::pi : 0);
            const auto ray = std::min(static_cast<std::size_t>(turn / Sector), Rays - 1);
            const double aside =
                std::abs(std::sin(turn - (static_cast<double>(ray) + 0.5) * Sector)) * far;
            const double share = std::clamp(halfRay + 0.5 - aside, 0.0, 1.0);
            if (share <= 0) continue;
            pixels_.push_back({static_cast<std::uint32_t>(y * 2 * outer_ + x),
                               static_cast<std::uint16_t>((far - inner_) * Fine),
                               static_cast<std::uint8_t>(ray),
                               static_cast<std::uint8_t>(share * 255)});
        }
}

// A halo of the cover's colour around the middle.
Pixel CoverScene::Ground(int x, int y) const {
    const Pixel dark = GroundColour(static_cast<double>(y) / height_);
    const double far = Distance(x - width_ / 2.0, y - height_ / 2.0) / (width_ * HaloShare);
    const double light = std::max(0.0, 1 - far);
    return Mix(dark, look_.accent, static_cast<unsigned>(light * light * HaloLight));
}

void CoverScene::MakeGround() {
    ground_.clear();
    for (const RayPixel& pixel : pixels_) {
        const int at = static_cast<int>(pixel.at);
        ground_.push_back(Ground(left_ + at % (2 * outer_), top_ + at / (2 * outer_)));
    }
    for (std::size_t ray = 0; ray < Rays; ++ray) {
        const double band = static_cast<double>(BandOfRay(ray, Rays)) / SoundPicture::Bands;
        colours_[ray] = Mix(ScaleColour(band), Lighter(look_.accent, Rgb(90, 90, 90)), 70);
    }
}

void CoverScene::SetTrack(TrackLook look) {
    look_ = std::move(look);
    whole_ = true;
}

void CoverScene::DrawWhole(const Canvas& canvas) {
    MakeGround();
    for (int y = 0; y < height_; ++y)
        for (int x = 0; x < width_; ++x)
            canvas.Line(y)[x] = Ground(x, y);
    DrawCover(canvas);
}

void CoverScene::DrawCover(const Canvas& canvas) const {
    const Bitmap& cover = look_.cover;
    const double rim = std::max(1.5, radius_ / 70.0);
    for (int y = 0; y < 2 * radius_; ++y)
        for (int x = 0; x < 2 * radius_; ++x) {
            const double far = Distance(x + 0.5 - radius_, y + 0.5 - radius_);
            const double inside = std::clamp(radius_ - far, 0.0, 1.0);
            if (inside <= 0) continue;
            Pixel colour = x < cover.width && y < cover.height ? cover.Line(y)[x] : look_.accent;
            const double onRim = std::clamp(far - (radius_ - rim) + 0.5, 0.0, 1.0);
            colour = Mix(colour, Rim, static_cast<unsigned>(onRim * 150));
            Pixel& pixel = canvas.Line(height_ / 2 - radius_ + y)[width_ / 2 - radius_ + x];
            pixel = Mix(pixel, colour, static_cast<unsigned>(inside * 256));
        }
}

Area CoverScene::Draw(const Canvas& canvas, const SoundPicture& sound, double /*seconds*/) {
    const bool whole = std::exchange(whole_, false);
    if (whole) DrawWhole(canvas);
    std::array<int, Rays> ends{};
    for (std::size_t ray = 0; ray < Rays; ++ray) {
        const float level = std::max(LeastRay, sound.bands[BandOfRay(ray, Rays)]);
        ends[ray] = static_cast<int>(level * static_cast<float>((outer_ - inner_) * Fine));
    }
    const auto side = static_cast<std::uint32_t>(2 * outer_);
    for (std::size_t i = 0; i < pixels_.size(); ++i) {
        const RayPixel& pixel = pixels_[i];
        const int inside = std::clamp(ends[pixel.ray] - pixel.distance, 0, Fine);
        const unsigned share = static_cast<unsigned>(inside) * pixel.share / Fine;
        canvas.Line(top_ +
                    static_cast<int>(pixel.at / side))[left_ + static_cast<int>(pixel.at % side)] =
            share == 0 ? ground_[i] : Mix(ground_[i], colours_[pixel.ray], share);
    }
    if (whole) return {0, 0, width_, height_};
    return {left_, top_, 2 * outer_, 2 * outer_};
}

} // namespace vk
