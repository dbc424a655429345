#include "tests/playback/audio_fixture.h"
#include "tests/support/action_table.h"

namespace vk::test {

struct PlayerKeysTest : testing::Test, AudioFixture {};

TEST_F(PlayerKeysTest, EveryActionReachesItsOperationAndNoOther) {
    settings.values.AdjMainVol = true;
    std::string gps;
    auto needs = Needs();
    needs.loadGPS = [&gps] { gps = "gps"; };
    made = std::make_unique<AudioPlayer>(needs, list, view);
    Play(30, 15);
    const auto effect = [&] {
        std::string text = std::exchange(gps, "");
        for (const auto& message : process.wire.sent)
            if (message.message == WM_COMMAND) text += std::to_string(message.wParam) + " ";
        if (list.iSelected != 14) text += "row " + std::to_string(list.iSelected);
        if (level != 500) text += level > 500 ? "louder" : "softer";
        for (auto* screen : {&playlists, &menu})
            if (screen->Count("ReShow") > 0) text += screen == &menu ? "menu" : "browser";
        playlists.calls.clear();
        menu.calls.clear();
        level = 500;
        if (sound.loudness.Fading() || sound.loudness.Muted()) text = "mute";
        clock.Advance(sound.loudness.Fading() ? 5000 : 0);
        if (sound.loudness.Muted()) sound.loudness.domute(), clock.Advance(5000);
        process.wire.sent.clear();
        if (FileExists(app.File("favorites.m3u"))) text += "favourite";
        if (std::exchange(settings.values.ShowElapsedTime, false)) text += "time";
        if (text.empty() && Logged("saved audio data")) text = "another source";
        for (const char* file : {"favorites.m3u", "debug.log"})
            std::filesystem::remove(app.File(file));
        if (text.empty() && !view.clocks.empty() && view.clocks.back().starts_with("No other"))
            text = "no other one";
        view.clocks.clear();
        if (text == "40192 ") player().DoVis(); // and back
        if (text.empty()) return text;          // nothing to bring back
        audio.bPaused = false;
        process.status = 1;
        process.track = 14;
        ChooseList(audio.ListFile, 15);
        player().ReShow();
        process.wire.sent.clear();
        return text;
    };
    effect();
    ExpectTable(player(), keys,
                {{Action::ok, "40045 "},
                 {Action::play, "40045 "},
                 {Action::pause, "40046 "},
                 {Action::forward, "40048 row 15"},
                 {Action::back, "40044 row 13"},
                 {Action::FF, "40148 "},
                 {Action::REW, "40144 "},
                 {Action::shuffle, "40023 "},
                 {Action::up, "row 13"},
                 {Action::down, "row 15"},
                 {Action::pageup, "row 0"},
                 {Action::pagedown, "row 24"},
                 {Action::vup, "louder"},
                 {Action::Vdown, "softer"},
                 {Action::mute, "mute"},
                 {Action::SWMP, "browser"},
                 {Action::quit, "40047 menu"},
                 {Action::gps, "gps"},
                 {Action::addfav, "favourite"},
                 {Action::MP3toRadio, "another source"},
                 {Action::tracktime, "time"},
                 {Action::startvis, "40192 "},
                 {Action::nextvis, "no other one"},
                 {Action::apps, "browser"}},
                effect);
}

TEST_F(PlayerKeysTest, AHeldKeySkipsAtMostTwiceASecondAndTurnsNoSearchOfATuner) {
    Play(30, 15);
    const std::string right = "39";
    int skipped = 0;
    for (int repeat = 0; repeat < 40; ++repeat) {
        clock.Advance(50);
        if (!player().Repeats(InputCode(right, keys))) continue;
        player().Form_KeyDown(right);
        ++skipped;
    }
    EXPECT_EQ(skipped, 4);
    clock.Advance(1000);
    audio.PlayMode = PlayFM;
    EXPECT_FALSE(player().Repeats(InputCode(right, keys)));
}

} // namespace vk::test
