// What the eye gets of the sound.
#include "visuals/sound/sound_ring.h"
#include "visuals/sound/spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vk::test {
namespace {

constexpr double Picture = 1.0 / 60; // seconds

struct SpectrumTest : testing::Test {
    const SoundPicture& Hear(double frequency, double volume, int pictures) {
        std::array<float, Spectrum::Samples> samples{};
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = static_cast<float>(volume * std::sin(2 * std::numbers::pi * frequency *
                                                              static_cast<double>(i) / SoundRate));
        const SoundPicture* picture = nullptr;
        for (int i = 0; i < pictures; ++i)
            picture = &spectrum.Take(samples, Picture);
        return *picture;
    }
    Spectrum spectrum;
};

TEST_F(SpectrumTest, AToneLightsItsBandAtEveryLoudness) {
    for (const double frequency : {60.0, 110.0, 440.0, 1000.0, 3520.0, 12000.0})
        for (const double volume : {0.05, 0.9}) {
            spectrum = {};
            const auto& bands = Hear(frequency, volume, 30).bands;
            const auto loudest = std::ranges::max_element(bands) - bands.begin();
            EXPECT_NEAR(static_cast<double>(loudest),
                        static_cast<double>(Spectrum::BandOf(frequency)), 1.0)
                << frequency;
            EXPECT_GT(*std::ranges::max_element(bands), 0.7f) << frequency << " at " << volume;
        }
}

TEST_F(SpectrumTest, SilenceFallsCalmlyAndPeaksMoreSo) {
    const std::size_t band = Spectrum::BandOf(440);
    const float full = Hear(440, 0.5, 30).bands[band];
    const SoundPicture soon = Hear(0, 0, 6);
    EXPECT_LT(soon.bands[band], full);
    EXPECT_GT(soon.bands[band], full / 2) << "a tenth of a second later";
    EXPECT_GT(soon.peaks[band], soon.bands[band]);
    const SoundPicture late = Hear(0, 0, 400);
    for (const auto& levels : {late.bands, late.peaks})
        EXPECT_LT(*std::ranges::max_element(levels), 0.01f);
    EXPECT_LT(late.bass + late.middle + late.treble, 0.01f);
    EXPECT_EQ(std::ranges::count_if(late.wave, [](float at) { return at != 0; }), 0);
}

TEST_F(SpectrumTest, TheWaveBeginsWhereItRisesAndFillsItsHeight) {
    for (const double volume : {0.1, 1.0}) {
        const auto& wave = Hear(300, volume, 900).wave;
        EXPECT_NEAR(wave[0], 0, 0.15);
        EXPECT_GT(wave[20], wave[0]);
        EXPECT_GT(*std::ranges::max_element(wave), 0.8f);
        EXPECT_LE(*std::ranges::max_element(wave), 1.0f);
    }
}

TEST(SoundRingTest, GivesTheNewestSamplesOfBothChannelsTogether) {
    SoundRing ring;
    std::array<float, 4> latest{};
    ring.Latest(latest);
    EXPECT_EQ(latest, (std::array<float, 4>{}));
    std::vector<std::int16_t> stereo;
    for (int i = 0; i < static_cast<int>(SoundRing::Size) + 3; ++i)
        stereo.insert(stereo.end(), {static_cast<std::int16_t>(i), static_cast<std::int16_t>(i)});
    ring.Write(stereo);
    ring.Latest(latest);
    for (std::size_t i = 0; i < latest.size(); ++i)
        EXPECT_FLOAT_EQ(latest[i], static_cast<float>(SoundRing::Size - 1 + i) / 32768);
}

} // namespace
} // namespace vk::test
