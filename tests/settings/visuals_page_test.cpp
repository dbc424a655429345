// The page of the visualisations over a player that obeys.
#include "settings/visuals_page.h"
#include "tests/playback/audio_fixture.h"

#include <set>

namespace vk::test {
namespace {

struct VisualsPageTest : testing::Test, AudioFixture {
    VisualsPageTest() {
        app.MakeFolder("plugins");
        for (const char* file : {"c.txt", "b.dll", "a.dll", ".d.dll"})
            app.Write(std::string("plugins/") + file, "[visualisation]\nscene=scope\n");
        app.Write("plugins/a.dll", "[visualisation]\nname=Waves\nscene=scope\n");
        app.Write("winamp.ini", "[Winamp]\nvisplugin_name=b.dll\nmine=1\n");
    }
    const Row& Named(const std::string& name) {
        return *std::ranges::find_if(page.rows,
                                     [&](const Row& row) { return row.name && row.name == name; });
    }
    Row& List() { return page.rows[1]; }
    Page page = VisualsPage({base, [this] { return &winamp; }, player(), nullptr});
};

TEST_F(VisualsPageTest, ChoosesFromItsListAndWorksWithoutOne) {
    page.enter();
    EXPECT_FALSE(List().usable());
    EXPECT_EQ(Named("btnVisDLL").text(), "Plug-in: b.dll");
    List().ends[1].use();
    app.Write("VNFO.dat", "a.dll\r\nb.dll\r\n");
    page.enter();
    ASSERT_TRUE(List().usable());
    EXPECT_EQ(List().text(), "Visualisation: b");
    List().ends[1].use();
    EXPECT_EQ(List().text(), "Visualisation: Waves");
    EXPECT_EQ(settings.Get(setting::VisWindowName), "Waves");
    EXPECT_EQ(Named("btnVisDLL").text(), "Plug-in: a.dll");
}

TEST_F(VisualsPageTest, AFileRestartsThePlayerWhichGoesOnWhereItWas) {
    Play(9, 4);
    process.positionMs = 61000;
    page.enter();
    Named("btnVisDLL").use();
    EXPECT_EQ(dialogs.shown.back(), "Waves (a.dll) | b (b.dll) | *1");
    EXPECT_EQ(process.Count(WinampClose), 0) << "cancelled";
    dialogs.choices = {0};
    process.wire.answer = [this, obey = process.wire.answer](const auto& message) {
        if (message == RecordingPlayer::Command(WinampClose)) process.wire.running = false;
        return obey(message);
    };
    commands.Run([&] { Named("btnVisDLL").use(); });
    EXPECT_EQ(process.wire.started.size(), 1u);
    EXPECT_EQ(Named("btnVisDLL").text(), "Plug-in: a.dll");
    EXPECT_EQ(process.State(), "playing 3 at 61");
}

TEST_F(VisualsPageTest, ResetsTheSettingsOfThePlayerAfterAQuestion) {
    dialogs.answers = {false, true};
    for (const bool reset : {false, true}) {
        Named("Command2").use();
        EXPECT_EQ(dialogs.shown.back(), "Are you sure?");
        EXPECT_EQ(dialogs.titles.back(), "Warning");
        EXPECT_EQ(app.Read("winamp.ini").find("mine=1") == std::string::npos, reset);
    }
    EXPECT_EQ(Named("btnVisDLL").text(), "Plug-in: vis_nsfs.dll");
    Named("btnWinampPrefs").use();
    EXPECT_EQ(process.Count(WinampPreferences), 1);
    EXPECT_EQ(page.heading(), "This player has no preferences of its own");
}

TEST_F(VisualsPageTest, TheCubeTurnsWhileThePageIsShown) {
    const auto pixels = [this] { return page.rows[0].picture().pixels; };
    const int running = clock.Running();
    page.enter();
    const auto before = pixels();
    EXPECT_GE((std::set<std::uint32_t>(before.begin(), before.end()).size()), 3u);
    clock.Advance(50);
    const auto after = pixels();
    EXPECT_NE(after, before);
    page.leave();
    EXPECT_EQ(clock.Running(), running);
}

} // namespace
} // namespace vk::test
