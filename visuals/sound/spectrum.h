// From sound to what is drawn of it.
#pragma once

#include <array>
#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace vk {

/// What the scenes draw: everything from 0 to 1 but the wave.
struct SoundPicture {
    static constexpr std::size_t Bands = 48, WaveLength = 1024;
    std::array<float, Bands> bands{};     ///< from low to high, each about a fifth of an octave
    std::array<float, Bands> peaks{};     ///< where they were lately, falling slowly
    std::array<float, WaveLength> wave{}; ///< -1 to 1, beginning where the sound rises through 0
    float bass = 0, middle = 0, treble = 0;
};

/// Follows the sound from picture to picture: levels rise fast and fall calmly, and quiet music
/// fills the screen like loud music, silence excepted.
class Spectrum {
  public:
    static constexpr std::size_t Samples = 2048;

    Spectrum();
    /// Takes the newest samples, `seconds` after the last ones.
    const SoundPicture& Take(std::span<const float, Samples> samples, double seconds);
    /// The band that a tone of that many hertz lies in.
    static std::size_t BandOf(double frequency);

  private:
    void Transform(std::span<const float, Samples> samples);
    float Power(double bin) const;
    float Level(std::size_t band) const;
    void Follow(float seconds);
    void TakeWave(std::span<const float, Samples> samples, float seconds);

    std::array<float, Samples> window_{};
    std::vector<std::complex<float>> turns_; ///< roots of one, for the transform
    std::array<std::complex<float>, Samples> work_{};
    SoundPicture picture_;
    float loudest_ = 0; ///< of the levels lately, in dB above the floor
    float swing_ = 0;   ///< of the wave lately
};

} // namespace vk
