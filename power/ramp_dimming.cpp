#include "power/ramp_dimming.h"

#include "core/error_report.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vk {

namespace {

constexpr int Rounding = 256; // of drivers that keep eight bits

std::vector<std::uint16_t> Half(const std::vector<std::uint16_t>& channel) {
    std::vector<std::uint16_t> half(channel.size());
    std::ranges::transform(channel, half.begin(), [](std::uint16_t value) {
        return static_cast<std::uint16_t>(std::nearbyint(value / 2.0));
    });
    return half;
}

bool Near(const std::vector<std::uint16_t>& one, const std::vector<std::uint16_t>& other) {
    return std::ranges::equal(one, other, [](int a, int b) { return std::abs(a - b) <= Rounding; });
}

bool Near(const GammaRamp& one, const GammaRamp& other) {
    return Near(one.red, other.red) && Near(one.green, other.green) && Near(one.blue, other.blue);
}

} // namespace

GammaRamp Halved(const GammaRamp& ramp) {
    return {Half(ramp.red), Half(ramp.green), Half(ramp.blue)};
}

bool RampDimming::Dim() {
    GiveBackLate();
    const auto found = TakeNew();
    if (found.empty()) return false;
    if (!Apply(found)) throw Error("Could not set the DeviceRampGamma or perform screen dimming.");
    return dimmed_ = true;
}

// Those that are neither dimmed nor as they were before are not known yet: a monitor that has come,
// or one that another program has given another ramp.
std::vector<DisplayRamp> RampDimming::TakeNew() {
    std::vector<DisplayRamp> bright;
    for (const DisplayRamp& now : gamma_.Read()) {
        const auto dim = DimmedRamp.find(now.display);
        if (dim != DimmedRamp.end() && dim->second == now.ramp) continue;
        SavedRamp[now.display] = now.ramp;
        bright.push_back(now);
    }
    if (bright.empty()) return bright;
    std::vector<DisplayRamp> all;
    for (const auto& [display, ramp] : SavedRamp)
        all.push_back({display, ramp});
    found_(all);
    return bright;
}

bool RampDimming::Apply(const std::vector<DisplayRamp>& found) {
    bool done = false;
    for (const DisplayRamp& each : found)
        done = gamma_.Write({each.display, Halved(each.ramp)}) || done;
    for (const DisplayRamp& now : gamma_.Read())
        if (now.ramp != SavedRamp[now.display]) DimmedRamp[now.display] = now.ramp;
    return done;
}

void RampDimming::Follow() {
    if (!dimmed_) return GiveBackLate();
    const auto found = TakeNew();
    if (!found.empty()) Apply(found);
}

void RampDimming::Restore() {
    dimmed_ = false;
    std::erase_if(SavedRamp, [this](const auto& saved) {
        return gamma_.Write({saved.first, saved.second});
    });
}

void RampDimming::GiveBackLate() {
    if (SavedRamp.empty()) return; // each look is a way to the display server and back
    for (const DisplayRamp& now : gamma_.Read()) {
        const auto saved = SavedRamp.find(now.display);
        if (dimmed_ || saved == SavedRamp.end()) continue;
        if (DimmedRamp[now.display] == now.ramp) gamma_.Write({now.display, saved->second});
        SavedRamp.erase(saved);
        DimmedRamp.erase(now.display);
    }
}

void RampDimming::GiveBack(const std::vector<DisplayRamp>& found) {
    for (const DisplayRamp& now : gamma_.Read())
        for (const DisplayRamp& saved : found)
            if (saved.display == now.display && Near(now.ramp, Halved(saved.ramp)))
                gamma_.Write(saved);
}

} // namespace vk
