#include "visuals/sound/spectrum.h"

#include "visuals/sound/sound_ring.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace vk {

namespace {

constexpr double Lowest = 45, Highest = 15000; // hertz
constexpr float FloorDb = -66, RangeDb = 48;   // what is quieter is not drawn; from there to full
constexpr float LeastLoudDb = 30;              // above the floor: quieter music stays small
constexpr float TiltDb = 0.32f;                // a band: music has less of the high tones
constexpr float RiseSeconds = 0.035f, FallSeconds = 0.28f, PeakFall = 0.22f; // a second
constexpr float ForgetDb = 3.0f, ForgetSwing = 0.25f;                        // a second
constexpr float LeastSwing = 0.04f;
constexpr std::size_t Smoothed = 20; // samples, from about a kilohertz on

double EdgeOf(std::size_t band) {
    const double share = static_cast<double>(band) / static_cast<double>(SoundPicture::Bands);
    return Lowest * std::pow(Highest / Lowest, share);
}

double BinOf(double frequency) {
    return frequency * Spectrum::Samples / SoundRate;
}

float Mean(std::span<const float> values) {
    return std::accumulate(values.begin(), values.end(), 0.0f) / static_cast<float>(values.size());
}

std::size_t Reversed(std::size_t number) {
    std::size_t turned = 0;
    for (std::size_t bit = 1; bit < Spectrum::Samples; bit <<= 1, number >>= 1)
        turned = turned << 1 | (number & 1);
    return turned;
}

} // namespace

Spectrum::Spectrum() : turns_(Samples / 2) {
    constexpr double Circle = 2 * std::numbers::pi;
    for (std::size_t i = 0; i < Samples; ++i) // Hann, https://en.wikipedia.org/wiki/Hann_function
        window_[i] = static_cast<float>(0.5 - 0.5 * std::cos(Circle * static_cast<double>(i) /
                                                             static_cast<double>(Samples - 1)));
    for (std::size_t i = 0; i < turns_.size(); ++i)
        turns_[i] = std::polar(1.0f, static_cast<float>(-Circle * static_cast<double>(i) /
                                                        static_cast<double>(Samples)));
}

std::size_t Spectrum::BandOf(double frequency) {
    const double share = std::log(frequency / Lowest) / std::log(Highest / Lowest);
    return static_cast<std::size_t>(
        std::clamp(share * SoundPicture::Bands, 0.0, static_cast<double>(SoundPicture::Bands - 1)));
}

// The fast Fourier transform in place, by powers of two.
void Spectrum::Transform(std::span<const float, Samples> samples) {
    static const std::array<std::uint16_t, Samples> order = [] {
        std::array<std::uint16_t, Samples> made{};
        for (std::size_t i = 0; i < Samples; ++i)
            made[i] = static_cast<std::uint16_t>(Reversed(i));
        return made;
    }();
    for (std::size_t i = 0; i < Samples; ++i)
        work_[order[i]] = samples[i] * window_[i];
    for (std::size_t half = 1, step = Samples / 2; half < Samples; half *= 2, step /= 2)
        for (std::size_t first = 0; first < Samples; first += 2 * half)
            for (std::size_t i = 0; i < half; ++i) {
                const std::complex<float>&a = work_[first + i], &b = work_[first + half + i];
                const std::complex<float>& turn = turns_[i * step];
                // Written out: the library's product looks for infinities.
                const std::complex<float> turned(b.real() * turn.real() - b.imag() * turn.imag(),
                                                 b.real() * turn.imag() + b.imag() * turn.real());
                const std::complex<float> sum = a + turned, difference = a - turned;
                work_[first + i] = sum;
                work_[first + half + i] = difference;
            }
}

// Between two tones of the transform, as the lowest bands are.
float Spectrum::Power(double bin) const {
    const auto below = static_cast<std::size_t>(bin);
    const auto share = static_cast<float>(bin - static_cast<double>(below));
    return std::norm(work_[below]) * (1 - share) + std::norm(work_[below + 1]) * share;
}

// The strongest tone of a band, in dB above the floor.
float Spectrum::Level(std::size_t band) const {
    const double low = BinOf(EdgeOf(band)), high = BinOf(EdgeOf(band + 1));
    float power = Power((low + high) / 2);
    for (auto bin = static_cast<std::size_t>(low + 1); static_cast<double>(bin) < high; ++bin)
        power = std::max(power, std::norm(work_[bin]));
    const float amplitude = std::sqrt(power) * 4.0f / static_cast<float>(Samples);
    const float db = 20 * std::log10(std::max(amplitude, 1e-9f));
    return std::max(0.0f, db - FloorDb + TiltDb * static_cast<float>(band));
}

void Spectrum::Follow(float seconds) {
    std::array<float, SoundPicture::Bands> levels{};
    for (std::size_t band = 0; band < levels.size(); ++band)
        levels[band] = Level(band);
    loudest_ =
        std::max({loudest_ - ForgetDb * seconds, LeastLoudDb, *std::ranges::max_element(levels)});
    const float rise = 1 - std::exp(-seconds / RiseSeconds);
    const float fall = 1 - std::exp(-seconds / FallSeconds);
    for (std::size_t band = 0; band < levels.size(); ++band) {
        const float wanted = std::clamp(1 - (loudest_ - levels[band]) / RangeDb, 0.0f, 1.0f) *
                             (levels[band] > 0 ? 1.0f : 0.0f);
        float& level = picture_.bands[band];
        level += (wanted - level) * (wanted > level ? rise : fall);
        picture_.peaks[band] = std::max(picture_.peaks[band] - PeakFall * seconds, level);
    }
}

// The wave without its finest ripples, which are only noise to the eye. It begins where it rises
// through 0 the steepest: so it stands still for a steady tone.
void Spectrum::TakeWave(std::span<const float, Samples> heard, float seconds) {
    std::array<float, Samples> samples{};
    float sum = 0;
    for (std::size_t i = 0; i < Samples; ++i) {
        sum += heard[i] - (i >= Smoothed ? heard[i - Smoothed] : 0.0f);
        samples[i] = sum / Smoothed;
    }
    std::size_t start = Smoothed;
    float steepest = 0;
    for (std::size_t i = Smoothed; i + SoundPicture::WaveLength < Samples; ++i)
        if (samples[i - 1] <= 0 && samples[i] > 0 && samples[i + 3] - samples[i - 4] > steepest) {
            steepest = samples[i + 3] - samples[i - 4];
            start = i;
        }
    const auto [low, high] = std::ranges::minmax(samples);
    swing_ = std::max({swing_ * (1 - ForgetSwing * seconds), LeastSwing, high, -low});
    for (std::size_t i = 0; i < SoundPicture::WaveLength; ++i)
        picture_.wave[i] = samples[start + i] / swing_;
}

const SoundPicture& Spectrum::Take(std::span<const float, Samples> samples, double seconds) {
    const auto passed = static_cast<float>(std::clamp(seconds, 0.0, 1.0));
    Transform(samples);
    Follow(passed);
    TakeWave(samples, passed);
    const std::span bands(picture_.bands);
    picture_.bass = Mean(bands.first(12));
    picture_.middle = Mean(bands.subspan(12, 20));
    picture_.treble = Mean(bands.last(16));
    return picture_;
}

} // namespace vk
