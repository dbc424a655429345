// Both tuners as sources of the player, over simulated devices.
#include "core/text.h"
#include "playback/audio/source_table.h"
#include "playback/player_watch.h"
#include "playback/tuner_choice.h"
#include "tests/playback/audio_fixture.h"
#include "tests/sim/xm/sim_receiver.h"
#include "tests/support/fake_radio.h"
#include "tests/support/fake_serial_port.h"
#include "tuners/fm/fm_source.h"
#include "tuners/xm/frames.h"
#include "tuners/xm/xm_source.h"

namespace vk::test {

using testing::Contains, testing::HasSubstr;

struct TunersTest : testing::Test, AudioFixture {
    FakeRadio radio;
    FakeSoundRoute route;
    FMTuner fm{base, [this](std::string&) { return std::make_unique<RadioLink>(radio); }};
    ChannelTable channels;
    FakeSerialPort* port = new FakeSerialPort;
    SimReceiver receiver{clock, [this](std::string_view bytes) { port->Receive(bytes); }};
    SerialList ports;
    std::int32_t &line = mixer.Mute(MixerLine::Line), &disc = mixer.Mute(MixerLine::CD);
    std::unique_ptr<frmXMCtl> xm;

    TunersTest() {
        settings.Write("dlink_tuner", "currentfreq", "96.5");
        settings.LoadSettings();
        Settings& s = settings.values;
        s.dlink_enabled = s.xmpcr_enabled = true;
        s.dlink_audio_input = 1;
        s.xmpcr_audio_input = 2;
        s.TSRepeatVal = 4;
        s.CDDriveLetter = "/media/disc";
        s.MediaDir = app.File("media");
        ports[0] = {"XMPCR", "/dev/x"};
        receiver.AddChannels(20);
        receiver.script.delayMs = 5;
        radio.onPower = [this] { EXPECT_EQ(line, 1) << "not heard"; };
        port->onOutput = [this](std::string_view bytes) {
            EXPECT_TRUE(bytes != PowerOnFrame() || disc == 1) << "nor it";
            receiver.Hear(bytes);
        };
        LineMute& lines = sound.loudness.Lines();
        xm = std::make_unique<frmXMCtl>(frmXMCtl::Needs{
            .base = base,
            .channels = channels,
            .port = std::unique_ptr<SerialPort>(port),
            .ports = [this] { return ports; },
            .line = {[&lines] { lines.MuteLine(2); }, [&lines] { lines.RestoreMuteState(2); }},
            .plays = [this] { return audio.PlayMode == PlayXM; }});
        sources[PlayFM] = [this](const SourceContext& context) {
            return std::make_unique<FMSource>(context, fm, route);
        };
        sources[PlayXM] = [this](const SourceContext& context) {
            return std::make_unique<XMSource>(context, *xm, channels);
        };
        screens.Add("playmp3", playerScreen);
    }
    ~TunersTest() override { made.reset(); }
    void Press() { Command(&AudioPlayer::TSRadio2MP3Btn_Click); }
    void Tuner(PlayModeValue mode) {
        ChooseTuner(mode, settings, audio);
        Enter();
        clock.Advance(5000);
    }
    std::string Row(int row) {
        return list.GetIndexFirstArray(row) + "|" + list.GetTitleListusercontrol(row);
    }
    /// What the screen says of the source, and of the one that a press selects.
    std::string Said() {
        return view.listTitle + ", " + view.mediaType + ", " + view.buttons[PlayerButton::Source];
    }
    /// Who is heard: the player process, and each tuner whose line is open and which is on.
    std::string Heard() {
        std::string heard = process.status == 1 ? "audio " : "";
        if (radio.on && line == 0) heard += "FM ";
        if (receiver.tuned != 0 && disc == 0) heard += "XM ";
        return heard;
    }

    RecordingScreen playerScreen;
};

TEST(SourceTable, GoesRound) {
    const struct {
        Tuners tuners;
        PlayModeValue next[4]; ///< after none, FM, XM and audio files
    } cases[] = {
        {{true, true, false}, {PlayNone, PlayXM, PlayAudio, PlayFM}},
        {{true, true, true}, {PlayNone, PlayAudio, PlayFM, PlayXM}},
        {{true, false, true}, {PlayNone, PlayAudio, PlayNone, PlayFM}},
        {{false, true, false}, {PlayNone, PlayNone, PlayAudio, PlayXM}},
        {{false, false, false}, {PlayNone, PlayNone, PlayNone, PlayNone}},
    };
    for (const auto& c : cases)
        for (int mode = PlayNone; mode <= PlayAudio; ++mode)
            EXPECT_EQ(NextSource(mode, c.tuners), c.next[mode]) << mode << " in " << &c - cases;
}

TEST_F(TunersTest, OneButtonGoesThroughAllSourcesAndResumesTheMusic) {
    app.Write("winamp.ini", "[Winamp]\r\nshuffle=1\r\n");
    line = 1; // the user's own
    Choose(9, 4);
    Command(&AudioPlayer::ReDisplay); // silences tuners that were never on
    EXPECT_EQ(Said(), "media, mp3icon.gif, fm.gif");
    process.positionMs = 61000;
    clock.Advance(1000);
    Press();
    EXPECT_EQ(Heard() + Said(), "FM D-Link FM Radio, radio.gif, xm.gif");
    EXPECT_FALSE(audio.bShuffle || view.shuffle);
    EXPECT_EQ(view.buttons[PlayerButton::Shuffle], "shuffle.gif");
    std::string waiting;
    clock.onEvents = [&] {
        waiting = view.listTitle + ": " + view.loading;
        EXPECT_EQ(audio.PlayMode, PlayFM);
        EXPECT_EQ(list.ItemCount(), 0);
        Press(); // again while it starts
    };
    Press();
    clock.onEvents = {};
    EXPECT_EQ(waiting + view.loading,
              "XM Satellite Radio: Please wait while the XM channel list is initialized...");
    clock.Advance(1000);
    EXPECT_EQ(Heard() + Said(), "XM XM Satellite Radio, radio.gif, player.gif");
    EXPECT_EQ(port->opened.size(), 1u);
    EXPECT_EQ(line, 1);
    Press();
    EXPECT_EQ(audio.PlayMode, PlayAudio);
    EXPECT_EQ(Heard() + process.State(), "audio playing 3 at 61");
    EXPECT_TRUE(view.shuffle);
    EXPECT_EQ(view.title + ", " + Said(), "Song4, media, mp3icon.gif, fm.gif");
}

TEST_F(TunersTest, ASourceStaysWhenTheNextCannotPlay) {
    settings.values.xmpcr_enabled = false;
    audio.PlayMode = PlayFM;
    Enter();
    player().Wheel(-1); // it tunes by steps
    EXPECT_EQ(view.artist, "FM 96.30 MHz");
    Press();
    EXPECT_EQ(view.clocks.back(), "You must first play an audio file before resuming.");
    EXPECT_EQ(audio.PlayMode, PlayFM);
    EXPECT_EQ(settings.Get(setting::currentfreq), 96.3);
    clock.Advance(5000);
    EXPECT_EQ(view.clocks.back(), "Saturday, November 21, 2026    12:0");
    settings.values.dlink_enabled = false;
    Play(2);
    EXPECT_EQ(Said(), "media, mp3icon.gif, player.gif");
    Press();
    EXPECT_EQ(audio.PlayMode, PlayAudio);
    settings.values.dlink_enabled = true;
    settings.Write("audio_player", "VolumeSerial", "77"); // a list on a disc that is gone
    audio.PlayMode = PlayFM;
    Press();
    EXPECT_EQ(menu.Count("ReShow"), 1);
    EXPECT_EQ(audio.PlayMode, PlayNone);
}

TEST_F(TunersTest, FMIsTunedByStepsSeeksAndPresets) {
    line = 1;
    app.Write("presets.lst", " 95.1 :Radio One\r\n99.9:\r\n");
    app.Write("COMMON/FMPICS/Radio One.png", "picture one");
    settings.values.capture = "plughw:CARD=Radio";
    Tuner(PlayFM);
    EXPECT_EQ(view.artist + ", " + view.listTitle, "FM 96.50 MHz, D-Link FM Radio");
    EXPECT_EQ(Heard(), "FM ");
    EXPECT_EQ(route.from, "plughw:CARD=Radio");
    EXPECT_EQ(Row(0) + Row(1), "Radio One - |95.199.9|");
    player().runok();
    EXPECT_EQ(view.artist + ", " + view.title, "FM 95.10 MHz, Radio One");
    EXPECT_EQ(list.iHighlight, 0);
    player().AddToFavorites(); // it is one
    clock.Advance(2000);
    view.FinishCover();
    EXPECT_EQ(view.cover, "picture one");
    radio.stereo = {1910};
    player().MoveAhead();
    clock.Advance(600);
    EXPECT_EQ(view.artist, "FM 95.50 MHz");
    EXPECT_EQ(list.iHighlight, -1) << "no preset";
    player().buttons().Press(HeldForward); // a short touch in the hold is a step
    player().buttons().Release();
    EXPECT_EQ(view.artist, "FM 95.70 MHz");
    player().buttons().Press(HeldRewind);
    clock.Advance(600);
    player().buttons().Release();
    EXPECT_EQ(fm.State(), SeekHolds);
    clock.Advance(3000);
    player().AddToFavorites();
    const std::string added = FrequencyText(fm.Frequency());
    EXPECT_THAT(app.Read("presets.lst"), HasSubstr(added + ":" + added + " MHz"));
    EXPECT_EQ(list.ItemCount(), 3);
    EXPECT_EQ(player().Now().artist, "FM " + added + " MHz");
    Command(&AudioPlayer::doquit);
    EXPECT_EQ(line, 1) << "as it was found";
    EXPECT_FALSE(radio.on || route.Running());
    EXPECT_EQ(settings.Get(setting::currentfreq), *ParseDecimal(added));
    settings.Write("dlink_tuner", "currentfreq", ""); // outside of the band
    Tuner(PlayFM);
    EXPECT_EQ(view.artist, "FM 87.70 MHz");
    EXPECT_EQ(settings.Read("dlink_tuner", "currentfreq"), "87.7");
}

TEST_F(TunersTest, XMPlaysAChannelAndShowsWhatItTells) {
    disc = 1;
    app.Write("COMMON/XMPICS/channel_5.gif", "picture five");
    settings.Set(setting::CurrentChannel, 5);
    Tuner(PlayXM);
    EXPECT_EQ(Heard(), "XM ");
    EXPECT_EQ(view.artist + ", " + view.title, "Artist 5, Song 5");
    EXPECT_EQ(view.listTitle + view.mediaType, "XM Satellite Radioradio.gif");
    EXPECT_THAT(view.time, HasSubstr("TrackTime: 3:0"));
    view.FinishCover();
    EXPECT_EQ(view.cover, "picture five");
    ASSERT_EQ(list.ItemCount(), 21);
    EXPECT_EQ(Row(4), "5 - Channel 5 - |Artist 5 - Song 5");
    EXPECT_EQ(Row(0), "1 - XM Preview - |No Data");
    settings.values.hideXMChanNo = true;
    player().MoveAhead();
    receiver.channels[6].title = "New";
    clock.Advance(1000);
    EXPECT_EQ(view.title, "New");
    EXPECT_EQ(Row(5), "Channel 6 - |Artist 6 - New");
    receiver.script.gone = {9};
    clock.Advance(20000);
    EXPECT_EQ(list.ItemCount(), 20) << "a channel has gone";
    app.Write("favorites.xcl", "16\r\n");
    for (int press = 0; press < 2; ++press)
        player().AddToFavorites();
    EXPECT_EQ(app.Read("favorites.xcl"), "16\r\n6\r\n");
    Command(&AudioPlayer::doquit);
    clock.Advance(500);
    EXPECT_EQ(disc, 1);
    EXPECT_EQ(settings.Read("xmpcr_tuner", "CurrentChannel"), "6");
    EXPECT_EQ(receiver.tuned, 0) << "it is idle";
}

TEST_F(TunersTest, ALostSignalIsToldAndSilent) {
    Tuner(PlayXM);
    player().MoveAhead();
    clock.Advance(1000);
    for (const auto& [signal, antenna, caption, mute] : {std::tuple(0, 1, "-No Signal-", 1),
                                                         {3, 1, "Artist 2", 0},
                                                         {0, 0, "-Antenna Disconnected-", 1},
                                                         {3, 3, "Artist 2", 0}}) {
        receiver.script.signal = signal;
        receiver.script.antenna = antenna;
        clock.Advance(3000);
        EXPECT_EQ(view.artist, caption);
        EXPECT_EQ(disc, mute);
    }
}

TEST_F(TunersTest, AReceiverThatIsNotThereIsLookedForUntilTheUserLeaves) {
    receiver.script.silent = true;
    for (std::size_t i = 0; i < ports.size(); ++i)
        ports[i] = {"P", "/dev/" + std::to_string(i)};
    state.FirstRadioType = 1;
    Play(3);
    std::vector<std::string> said;
    clock.onEvents = [&] {
        if (said.empty() || said.back() != view.loading) said.push_back(view.loading);
    };
    Press();
    EXPECT_THAT(said, Contains("Searching for XMPCR\nXM Com Port: 15"));
    EXPECT_EQ(view.clocks.back() + Heard() + view.loading, NoRadio);
    port->opened.clear();
    Enter(); // back from another screen
    EXPECT_FALSE(port->opened.empty());
    Play(3);
    clock.onEvents = [&] {
        if (port->opened.size() == 5) QuitMeanwhile();
    };
    port->opened.clear();
    Press();
    EXPECT_EQ(port->opened.size(), 5u);
    EXPECT_EQ(menu.Count("ReShow"), 1);
    EXPECT_EQ(settings.Read("main", "LastPlayMode"), "3") << "it has not taken over";
    clock.Advance(10);
    EXPECT_FALSE(xm->Searching());
}

TEST_F(TunersTest, APulledReceiverEndsThePlayerAndWorksAfterTheNextChange) {
    Tuner(PlayXM);
    playerScreen.onCall = [this](const std::string& call) {
        if (call == "doquit") player().doquit();
    };
    port->Unplug();
    clock.Advance(100);
    EXPECT_EQ(menu.Count("ReShow"), 1);
    EXPECT_EQ(audio.PlayMode, PlayNone);
    EXPECT_EQ(LinesLogged("unrecoverable"), 1);
    port->present = true;
    Tuner(PlayXM);
    EXPECT_EQ(Heard(), "XM ");
}

TEST_F(TunersTest, PlayOnWithoutThePlayerProcess) {
    Tuner(PlayFM);
    PlayerWatch watch({base, process.wire, winamp, player()});
    process.wire.running = process.wire.canStart = false;
    for (int look = 0; look < 3; ++look)
        watch.Look(), clock.Advance(400);
    EXPECT_EQ(Heard(), "FM ");
}

TEST_F(TunersTest, AChannelFromTheBrowserReplacesTheMusic) {
    Play(3);
    channels.channelListReady = true;
    app.Write("xm_current.lst", "7\n9\n");
    audio.PlayMode = PlayXM; // as the browser hands it over
    audio.ListFile = app.File("xm_current.lst");
    audio.ListTitle = "My list";
    for (const int channel : {9, 7}) {
        audio.CurrentChannel = static_cast<std::int16_t>(channel);
        audio.bStartPlaying = true;
        Command(&AudioPlayer::ReDisplay);
        clock.Advance(3000);
        EXPECT_EQ(Heard(), "XM ");
        EXPECT_EQ(receiver.tuned, channel);
        EXPECT_EQ(list.ItemCount(), 2);
    }
}

TEST_F(TunersTest, AThousandRandomChangesLeaveOneSourceSounding) {
    std::uint32_t seed = 11;
    const auto next = [&](std::uint32_t below) {
        return ((seed = seed * 1664525 + 1013904223) >> 16) % below;
    };
    const auto maybe = [&](PlayModeValue mode) { return audio.PlayMode == mode || next(2) == 0; };
    const std::vector<std::function<void()>> changes = {
        [&] { settings.values.dlink_enabled = maybe(PlayFM); },
        [&] { settings.values.xmpcr_enabled = maybe(PlayXM); },
        [&] { state.FirstRadioType = static_cast<std::int32_t>(next(2)); },
        [&] {
            Command(&AudioPlayer::doquit);
            EXPECT_EQ(Heard(), "");
            clock.Advance(1000);
            EXPECT_TRUE(line == 1 && disc == 0);
            Play(9);
        },
        [&] { Command(&AudioPlayer::MoveAhead); },
        [&] {
            if (xm->On()) receiver.tuned = 0, port->Unplug();
            port->present = true;
        },
        [&] { radio.there = !radio.there; },
        [&] { receiver.script.signal = static_cast<int>(next(2)) * 3; }};
    radio.stereo = {1770, 1930};
    line = 1;
    Play(9);
    for (int i = 0; i < 1000; ++i) {
        SCOPED_TRACE(i);
        const auto change = next(12);
        if (change < changes.size()) {
            changes[change]();
        } else {
            clock.onEvents = [&] { // a press in the middle of it
                if (next(40) == 0) Press();
            };
            Press();
            clock.onEvents = {};
        }
        clock.Advance(static_cast<int>(next(3000)));
        const std::string heard = Heard();
        EXPECT_LE(std::ranges::count(heard, ' '), 1) << heard;
        const char* plays[] = {"", "FM ", "XM ", "audio "};
        EXPECT_TRUE(heard.empty() || heard == plays[audio.PlayMode])
            << heard << "is heard, but it is " << audio.PlayMode;
        const bool tuner = audio.PlayMode == PlayFM || audio.PlayMode == PlayXM;
        EXPECT_EQ(view.mediaType, tuner ? "radio.gif" : "mp3icon.gif");
    }
}

} // namespace vk::test
