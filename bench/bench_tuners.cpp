// The tuners: frames of the satellite receiver's link a second, a list of all channels on the
// screen, and from a step of the FM radio to its library.
#include "library/channels/channel_table.h"
#include "tests/playback/audio_fixture.h"
#include "tests/support/fake_radio.h"
#include "tests/support/fake_serial_port.h"
#include "tuners/fm/fm_tuner.h"
#include "tuners/xm/frames.h"
#include "tuners/xm/xm_source.h"

#include <benchmark/benchmark.h>

namespace vk::test {
namespace {

void DecodeFrames(benchmark::State& state) {
    const std::string frame = Frame(std::string(static_cast<std::size_t>(state.range(0)), 'x'));
    InputQueue queue;
    for (auto _ : state) {
        queue.Add(frame);
        benchmark::DoNotOptimize(queue.TakeFrame());
    }
    state.counters["frames"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(DecodeFrames)->Arg(9)->Arg(87);

void ActOnSongs(benchmark::State& state) {
    CoreFixture core;
    ChannelTable channels;
    XMState known;
    known.currentChannel = 5;
    XMLinkState link;
    FakeSerialPort port;
    FrameSender sender({port, core.clock, link, {}, {}});
    XMListener listener;
    XMMessages messages(
        {core.base, channels, known, link, sender, listener, [](int) {}, [] {}, [] {}});
    std::string payload(35, 'x');
    payload[0] = '\xD3';
    for (auto _ : state)
        messages.ProcessMessage(payload);
    state.counters["messages"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(ActOnSongs);

struct FullTable : AudioFixture {
    ChannelTable channels;
    FullTable() {
        settings.LoadSettings();
        for (int i = 1; i <= ChannelTable::LastChannel; ++i)
            channels.channelTable[static_cast<std::size_t>(i)] = {
                "Channel " + std::to_string(i), "Artist", "Song", "Rock", true, {}};
        sources[PlayXM] = [this](const SourceContext& context) {
            return std::make_unique<XMSource>(context, *xm, channels);
        };
    }
    std::unique_ptr<frmXMCtl> xm =
        std::make_unique<frmXMCtl>(frmXMCtl::Needs{.base = base,
                                                   .channels = channels,
                                                   .port = std::make_unique<FakeSerialPort>(),
                                                   .ports = [] { return SerialList(); },
                                                   .line = {[] {}, [] {}},
                                                   .plays = [] { return true; }});
};

void FillChannelList(benchmark::State& state) {
    FullTable full;
    full.audio.PlayMode = PlayXM;
    for (auto _ : state)
        full.player().sources().Find(PlayXM)->LoadPlaylist();
    full.made.reset();
}
BENCHMARK(FillChannelList)->Unit(benchmark::kMillisecond);

void StepToLibrary(benchmark::State& state) {
    CoreFixture core;
    core.settings.LoadSettings();
    FakeRadio radio;
    FMTuner tuner(core.base, [&](std::string&) { return std::make_unique<RadioLink>(radio); });
    tuner.TurnOn(96.5);
    for (auto _ : state)
        tuner.FineTuneUp();
}
BENCHMARK(StepToLibrary);

} // namespace
} // namespace vk::test
