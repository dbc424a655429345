// The system's mixer on ALSA's "default" device, whatever a test has made of that.
#pragma once

#include "platform/linux/sound/alsa_mixer.h"
#include "playback/c_volume.h"
#include "tests/support/core_fixture.h"
#include "tests/support/fake_card.h"
#include "tests/support/fake_mixer.h"

#include <gmock/gmock.h>

#include <atomic>

namespace vk::test {

/// Looks for the card every few milliseconds; the lines are on top of it.
struct Sound : CoreFixture {
    explicit Sound(AlsaMixer::Options options = {.retryMs = 5})
        : mixer([&] {
              options.onChange = [this](bool present) { ++(present ? returns : losses); };
              options.log = [this](const std::string&) { ++logged; };
              return options;
          }()) {}
    std::atomic<int> losses = 0, returns = 0, logged = 0;
    AlsaMixer mixer;
    FakeWaveInput input;
    cVolume volume{{mixer, input, dialogs, report}};
};

inline bool Reaches(const FakeCard& card, const std::string& element, std::int32_t volume) {
    return Soon([&] { return card.Volume(element) == volume; });
}

} // namespace vk::test
