#include "playback/audio/source_table.h"
#include "playback/audio/tuner_source.h"
#include "tests/playback/audio_fixture.h"

#include <filesystem>

namespace vk::test {

/// What a simulated tuner does, and was asked for.
struct TunerScript {
    Favorite favorite;
    const std::int32_t& line; ///< the mute of its line
    std::function<void()> onStart = {};
    Waited answer = Waited::Done;
    std::vector<std::string> calls = {}, muted = {}; ///< all, and those while its line was mute
};

class FakeTuner : public TunerSource {
  public:
    FakeTuner(const SourceContext& context, const TunerKind& kind, TunerScript& script)
        : TunerSource(context, kind), script_(script) {}
    void UpdateScreen() override {}
    void runok() override {}
    void MoveAhead() override {}
    void MoveBack() override {}
    void DoFF() override {}
    void DoRW() override { Record("DoRW"); }
    void DoPlay() override {}
    void DoPause() override {}
    void EverySecond() override {}
    void Save() override { script_.calls.push_back("Save"); }
    Favorite SelectedFavorite() override { return script_.favorite; }

  private:
    void LoadRows() override { Record("LoadRows"); }
    Waited Start() override {
        Record("Start");
        const auto began = [&] {
            if (script_.onStart) script_.onStart();
            return script_.answer == Waited::Done;
        };
        return c_.base.pump.Until({"a tuner", began, 1000});
    }
    bool PowerDown() override {
        Record("PowerDown");
        return true;
    }
    void Record(const std::string& call) {
        script_.calls.push_back(call);
        if (script_.line != 0) script_.muted.push_back(call);
    }

    TunerScript& script_;
};

struct PlayerSourcesTest : testing::Test, AudioFixture {
    std::int32_t &line = mixer.Mute(MixerLine::Line), &disc = mixer.Mute(MixerLine::CD);
    TunerScript fmTuner{FMFavorite("96.50"), line}, xmTuner{XMFavorite(12), disc};

    PlayerSourcesTest() {
        for (const auto& [kind, script] : {std::pair{&FMKind, &fmTuner}, {&XMKind, &xmTuner}})
            sources[kind->mode] = [kind = kind, script = script](const SourceContext& context) {
                return std::make_unique<FakeTuner>(context, *kind, *script);
            };
        settings.values.dlink_enabled = settings.values.xmpcr_enabled = true;
        settings.values.dlink_audio_input = 1;
        settings.values.xmpcr_audio_input = 2;
    }
    void Press() { Command(&AudioPlayer::TSRadio2MP3Btn_Click); }
    /// What the screen says of the source, and of the one that a press selects.
    std::string Said() {
        return view.listTitle + ", " + view.mediaType + ", " + view.buttons[PlayerButton::Source];
    }
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

TEST_F(PlayerSourcesTest, OneButtonGoesThroughAllSourcesAndResumesTheMusic) {
    app.Write("winamp.ini", "[Winamp]\r\nshuffle=1\r\n");
    line = 1; // the user's own
    Choose(9, 4);
    Command(&AudioPlayer::ReDisplay); // silences tuners that were never on
    EXPECT_EQ(line, 1);
    for (TunerScript* tuner : {&fmTuner, &xmTuner})
        tuner->calls = tuner->muted = {};
    EXPECT_EQ(Said(), "media, mp3icon.gif, fm.gif");
    process.positionMs = 61000;
    clock.Advance(1000);
    Press();
    EXPECT_EQ(audio.PlayMode, PlayFM);
    EXPECT_EQ(process.status, 0);
    EXPECT_FALSE(audio.bShuffle || view.shuffle);
    EXPECT_EQ(view.buttons[PlayerButton::Shuffle], "shuffle.gif");
    EXPECT_EQ(Said(), "D-Link FM Radio, radio.gif, xm.gif");
    EXPECT_TRUE(audio.bStartPlaying);
    EXPECT_THAT(fmTuner.calls, ElementsAre("Start", "LoadRows"));
    EXPECT_EQ(view.title + view.artist + view.time, "");
    EXPECT_EQ(line, 0);

    std::string waiting;
    xmTuner.onStart = [&] {
        waiting = view.loading;
        EXPECT_EQ(audio.PlayMode, PlayFM);
        Press(); // again while it starts
    };
    Press();
    EXPECT_EQ(waiting + view.loading, "Please wait while the XM channel list is initialized...");
    EXPECT_EQ(Said(), "XM Satellite Radio, radio.gif, player.gif");
    EXPECT_EQ(line, 1);
    EXPECT_THAT(fmTuner.muted, ElementsAre("Start", "LoadRows", "PowerDown"));
    EXPECT_THAT(xmTuner.muted, ElementsAre("Start"));
    EXPECT_EQ(xmTuner.calls.size(), 2u);
    EXPECT_EQ(disc, 0);

    Press();
    EXPECT_EQ(xmTuner.calls.back(), "PowerDown");
    EXPECT_EQ(audio.PlayMode, PlayAudio);
    EXPECT_EQ(process.State(), "playing 3 at 61");
    EXPECT_TRUE(view.shuffle);
    EXPECT_EQ(view.title + ", " + Said(), "Song4, media, mp3icon.gif, fm.gif");
}

TEST_F(PlayerSourcesTest, StaysWhereItIsWhenTheNextSourceCannotPlay) {
    settings.values.xmpcr_enabled = false;
    audio.PlayMode = PlayFM;
    Enter();
    player().Wheel(-1); // it tunes by steps
    EXPECT_EQ(fmTuner.calls.back(), "DoRW");
    fmTuner.calls.clear();
    Press();
    EXPECT_EQ(view.clocks.back(), "You must first play an audio file before resuming.");
    EXPECT_EQ(audio.PlayMode, PlayFM);
    EXPECT_THAT(fmTuner.calls, ElementsAre("Save"));
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

TEST_F(PlayerSourcesTest, AReceiverThatDoesNotAnswerSaysSo) {
    xmTuner.answer = Waited::TimedOut;
    state.FirstRadioType = 1;
    Play(2);
    Press();
    EXPECT_EQ(view.clocks.back() + view.loading, "The radio is not available.");
    EXPECT_EQ(audio.PlayMode, PlayXM);
    xmTuner.calls.clear();
    Enter(); // back from another screen
    EXPECT_THAT(xmTuner.calls, ElementsAre("Start"));
    EXPECT_THAT(xmTuner.muted, ElementsAre("Start", "Start"));
    EXPECT_EQ(disc, 0);
    Play(2);
    xmTuner.onStart = [&] { QuitMeanwhile(); };
    Press();
    EXPECT_EQ(xmTuner.calls.back(), "PowerDown");
    EXPECT_EQ(menu.Count("ReShow"), 1);
    EXPECT_EQ(settings.Read("main", "LastPlayMode"), "3") << "it has not taken over";
}

TEST_F(PlayerSourcesTest, AddsEachSourcesFavouriteOnceAndSaysWhatFailed) {
    Play(3, 2);
    const struct {
        std::int32_t mode;
        const char* file;
        std::string before, after;
    } cases[] = {
        {PlayXM, "favorites.xcl", "112\r\n", "112\r\n12\r\n"},
        {PlayFM, "presets.lst", "", "96.50:96.50 MHz\r\n"},
        {PlayFM, "presets.lst", " 96.5 :Radio One\r\n", " 96.5 :Radio One\r\n"},
        {PlayAudio, "favorites.m3u", "#EXTM3U\n" + Song(1),
         "#EXTM3U\n" + Song(1) + "\r\n" + Song(2) + "\r\n"},
    };
    for (const auto& c : cases) {
        app.Write(c.file, c.before);
        audio.PlayMode = c.mode;
        for (int i = 0; i < 2; ++i)
            player().AddToFavorites();
        EXPECT_EQ(app.Read(c.file), c.after);
    }
    const auto add = [&] {
        player().AddToFavorites();
        return view.clocks.back();
    };
    std::filesystem::remove(app.File("favorites.m3u"));
    audio.VolumeSerial = 77;
    add();
    EXPECT_FALSE(FileExists(app.File("favorites.m3u"))) << "nothing of a disc";
    audio.VolumeSerial = -1;
    EXPECT_EQ(add(), "ADDING: " + Song(2));
    clock.Advance(700);
    EXPECT_EQ(view.clocks.back(), "ADDING: " + Song(2));
    clock.Advance(100);
    EXPECT_EQ(view.clocks.back(), "Saturday, November 21, 2026    12:0");
    std::filesystem::remove(app.File("favorites.m3u"));
    app.MakeFolder("favorites.m3u"); // cannot be replaced
    EXPECT_THAT(add(), testing::StartsWith("favorites.m3u cannot be written: "));
    EXPECT_TRUE(Logged("An error occured in playmp3.AddToFavorites() favorites.m3u cannot be"));
    std::filesystem::remove(app.File("favorites.m3u"));
    app.Write("favorites.m3u", std::string(17 << 20, 'x'));
    EXPECT_EQ(add(), "favorites.m3u cannot be read");
    EXPECT_EQ(FileLength(app.File("favorites.m3u")), 17u << 20);
}

} // namespace vk::test
