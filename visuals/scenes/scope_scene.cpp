#include "visuals/scenes/scope_scene.h"

#include "visuals/scenes/colours.h"

#include <cmath>
#include <utility>

namespace vk {

namespace {

constexpr double ReachShare = 0.40; // of the height, to each side of the middle
constexpr double GlowShare = 0.030, CoreShare = 0.0042;
constexpr float GlowLight = 0.42f;
constexpr double FadeEvery = 1.0 / 60; // seconds
constexpr unsigned FadeTo = 226;       // of 256
constexpr std::size_t Shades = 256, ColourSteps = 64;
constexpr int Fine = 10; // steps of the glow's table a pixel

} // namespace

ScopeScene::ScopeScene(int width, int height)
    : width_(width), height_(height), glow_(std::max(3, static_cast<int>(height * GlowShare))) {
    const int reach = static_cast<int>(height * ReachShare) + glow_ + 1;
    top_ = std::max(0, height / 2 - reach);
    bottom_ = std::min(height, height / 2 + reach);
    light_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(bottom_ - top_), 0);
    const double core = std::max(1.2, height * CoreShare);
    for (int step = 0; step <= glow_ * Fine; ++step) {
        const double away = static_cast<double>(step) / Fine;
        const double soft = std::pow(1 - away / glow_, 2) * GlowLight;
        glowing_.push_back(
            static_cast<float>(std::max(soft, std::clamp(core + 0.7 - away, 0.0, 1.0))));
    }
    const Pixel ground = GroundColour(0.5);
    for (std::size_t colour = 0; colour < ColourSteps; ++colour) {
        const Pixel scale = ScaleColour(0.75 * static_cast<double>(colour) / (ColourSteps - 1));
        for (unsigned shade = 0; shade < Shades; ++shade)
            shades_.push_back(shade < 190 ? Mix(ground, scale, shade * 256 / 190)
                                          : Mix(scale, Rgb(255, 255, 255), (shade - 190) * 3));
    }
}

// The same at every rate of pictures.
void ScopeScene::Fade(double seconds) {
    owed_ = std::min(owed_ + seconds - last_, 0.25);
    last_ = seconds;
    for (; owed_ >= FadeEvery * 0.9; owed_ -= FadeEvery)
        for (std::uint8_t& light : light_)
            light = static_cast<std::uint8_t>(light * FadeTo >> 8);
}

void ScopeScene::DrawColumn(int x, float from, float to) {
    const float low = std::min(from, to), high = std::max(from, to);
    const int first = std::max(top_, static_cast<int>(low) - glow_);
    const int last = std::min(bottom_ - 1, static_cast<int>(high) + glow_);
    for (int y = first; y <= last; ++y) {
        const float middle = static_cast<float>(y);
        const float away = middle < low ? low - middle : middle > high ? middle - high : 0.0f;
        const auto step = static_cast<std::size_t>(away * Fine);
        if (step >= glowing_.size()) continue;
        std::uint8_t& light =
            light_[static_cast<std::size_t>(y - top_) * static_cast<std::size_t>(width_) +
                   static_cast<std::size_t>(x)];
        light = std::max(light, static_cast<std::uint8_t>(glowing_[step] * 255));
    }
}

void ScopeScene::DrawWave(const SoundPicture& sound) {
    const float middle = static_cast<float>(height_) / 2;
    const auto reach = static_cast<float>(height_ * ReachShare);
    const auto place = [&](int x) {
        const float at = static_cast<float>(x) * (SoundPicture::WaveLength - 2) /
                         static_cast<float>(std::max(1, width_ - 1));
        const auto index = static_cast<std::size_t>(at);
        const float rest = at - static_cast<float>(index);
        const float wave = sound.wave[index] * (1 - rest) + sound.wave[index + 1] * rest;
        // To the sides it comes to rest.
        const float side = 2 * static_cast<float>(x) / static_cast<float>(width_) - 1;
        return middle - reach * (1 - side * side * side * side) * std::clamp(wave, -1.0f, 1.0f);
    };
    float before = place(0);
    for (int x = 0; x < width_; ++x) {
        const float now = place(x);
        DrawColumn(x, before, now);
        before = now;
    }
}

Area ScopeScene::Draw(const Canvas& canvas, const SoundPicture& sound, double seconds) {
    const bool whole = !std::exchange(drawn_, true);
    Fade(seconds);
    DrawWave(sound);
    if (whole)
        for (int y = 0; y < height_; ++y)
            std::fill_n(canvas.Line(y), width_, GroundColour(0.5));
    for (int y = top_; y < bottom_; ++y) {
        const std::uint8_t* light = light_.data() + static_cast<std::ptrdiff_t>(y - top_) * width_;
        Pixel* line = canvas.Line(y);
        for (int step = 0; step < static_cast<int>(ColourSteps); ++step) {
            const Pixel* shade = shades_.data() + static_cast<std::size_t>(step) * Shades;
            const int end = width_ * (step + 1) / static_cast<int>(ColourSteps);
            for (int x = width_ * step / static_cast<int>(ColourSteps); x < end; ++x)
                line[x] = shade[light[x]];
        }
    }
    if (whole) return {0, 0, width_, height_};
    return {0, top_, width_, bottom_ - top_};
}

} // namespace vk
