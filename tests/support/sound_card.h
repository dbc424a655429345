// A simulated sound card with all that the system makes of it.
#pragma once

#include "playback/loudness.h"
#include "tests/support/core_fixture.h"
#include "tests/support/fake_mixer.h"

namespace vk::test {

struct SoundCard {
    explicit SoundCard(CoreFixture& core) : core_(core) {}

  private:
    CoreFixture& core_;

  public:
    FakeMixer mixer;
    FakeWaveInput input;
    cVolume volume{{mixer, input, core_.dialogs, core_.report}};
    Loudness loudness{core_.base, volume};
};

} // namespace vk::test
