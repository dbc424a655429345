// What passes between a press of the volume key and the sound card's new level: through the
// player's keys, the lines and ALSA to a card without hardware.
#include "platform/linux/sound/alsa_input.h"
#include "platform/linux/sound/alsa_mixer.h"
#include "tests/playback/audio_fixture.h"
#include "tests/support/fake_card.h"

#include <benchmark/benchmark.h>

namespace {

using namespace vk;
using namespace vk::test;

struct Bench : AudioFixture {
    FakeCard card{{"Master Playback", "PCM Playback"}, 0, 65536};
    AlsaMixer alsa{{}};
    AlsaInput recording;
    cVolume lines{{alsa, recording, dialogs, report}};
    Loudness onLines{base, lines};

    AudioPlayer Player() {
        auto needs = Needs();
        return AudioPlayer({.base = needs.base,
                            .audio = needs.audio,
                            .browser = needs.browser,
                            .winamp = needs.winamp,
                            .loudness = onLines,
                            .keys = needs.keys,
                            .sources = needs.sources,
                            .tagOf = needs.tagOf},
                           list, view);
    }
};

void KeyToLevel(benchmark::State& state) {
    Bench bench;
    bench.keys[Action::vup] = "85";
    bench.keys[Action::Vdown] = "68";
    AudioPlayer player = bench.Player();
    bench.audio.PlayMode = PlayNone;
    player.ReShow();
    bool up = true;
    for (auto _ : state) {
        const std::int32_t before = bench.card.Volume("Master Playback");
        player.Form_KeyDown(up ? "85" : "68");
        while (bench.card.Volume("Master Playback") == before) {
        }
        up = !up;
    }
}
BENCHMARK(KeyToLevel)->UseRealTime()->Unit(benchmark::kMicrosecond);

void KeyPress(benchmark::State& state) {
    Bench bench;
    bench.keys[Action::vup] = "85";
    bench.keys[Action::Vdown] = "68";
    AudioPlayer player = bench.Player();
    player.ReShow();
    bool up = true;
    for (auto _ : state) {
        player.Form_KeyDown(up ? "85" : "68");
        up = !up;
    }
}
BENCHMARK(KeyPress)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace
