// The tuners: frames of the satellite receiver's link a second, a list of all channels on the
// screen, and from a key to the FM radio's library.
#include "bench/offscreen.h"
#include "library/channels/channel_table.h"
#include "playback/screen/playmp3.h"
#include "tests/playback/audio_fixture.h"
#include "tests/support/fake_radio.h"
#include "tests/support/fake_serial_port.h"
#include "tuners/fm/fm_source.h"
#include "tuners/xm/frames.h"
#include "tuners/xm/xm_source.h"

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

/// The player's screen, with both tuners as its sources and every channel known.
struct Tuned : AudioFixture {
    explicit Tuned(PlayModeValue mode) {
        settings.LoadSettings();
        for (int i = 1; i <= ChannelTable::LastChannel; ++i)
            channels.channelTable[static_cast<std::size_t>(i)] = {
                "Channel " + std::to_string(i), "Artist", "Song", "Rock", true, {}};
        sources[PlayFM] = [this](const SourceContext& c) {
            return std::make_unique<FMSource>(c, tuner, route);
        };
        sources[PlayXM] = [this](const SourceContext& c) {
            return std::make_unique<XMSource>(c, xm, channels);
        };
        state.ScreenWidth = 800;
        state.ScreenHeight = 480;
        skin.LoadSkin();
        host.resize(800, 480);
        host.show();
        screen = std::make_unique<playmp3>(context, Needs(), &host);
        screens.Add("playmp3", screen->player(), *screen);
        audio.PlayMode = mode;
    }
    PlayerSource& Source() { return *screen->player().sources().Find(audio.PlayMode); }

    ChannelTable channels;
    frmXMCtl xm{{.base = base,
                 .channels = channels,
                 .port = std::make_unique<FakeSerialPort>(),
                 .ports = [] { return SerialList(); },
                 .line = {[] {}, [] {}},
                 .plays = [] { return true; }}};
    FakeRadio radio;
    FakeSoundRoute route;
    FMTuner tuner{base, [this](std::string&) { return std::make_unique<RadioLink>(radio); }};
    SkinStore skin{{state, settings, fonts, dialogs, report, [] { return 800; }}};
    PictureCache pictures{skin};
    ControlContext context{state, settings.values, skin, pictures, clock, pump, commands};
    QWidget host;
    std::unique_ptr<playmp3> screen;
};

/// All channels, from the order to load them to the painted picture.
void ShowChannelList(benchmark::State& state) {
    Tuned tuned(PlayXM);
    tuned.screen->player().ReShow(); // no receiver is there
    for (auto _ : state) {
        tuned.Source().LoadPlaylist();
        benchmark::DoNotOptimize(tuned.host.grab());
    }
    auto* list = static_cast<UCListBox*>(tuned.screen->findChild<QWidget*>("UCListBox"));
    if (list->model().ItemCount() != ChannelTable::LastChannel)
        state.SkipWithError("channels are missing");
}
BENCHMARK(ShowChannelList)->Unit(benchmark::kMillisecond);

/// A key of fine tuning, from the screen in front to the library's `set_freq`.
void KeyToLibrary(benchmark::State& state) {
    Tuned tuned(PlayFM);
    tuned.keys[Action::FF] = "70";
    tuned.screen->player().ReShow();
    const std::size_t before = tuned.radio.sent.size();
    for (auto _ : state)
        tuned.screens.Find("playmp3")->Form_KeyDown("70");
    if (tuned.radio.sent.size() <= before) state.SkipWithError("nothing was tuned");
}
BENCHMARK(KeyToLibrary)->Unit(benchmark::kMicrosecond)->Iterations(20000);

} // namespace
} // namespace vk::test

int main(int argc, char** argv) {
    return vk::test::RunOffscreen(argc, argv);
}
