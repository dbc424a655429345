// A visualisation over the player, on a screen whose windows a test opens and closes.
#include "tests/playback/audio_fixture.h"
#include "tests/sim/fake_windows.h"

namespace vk::test {

ForeignWindow Named(WindowHandle handle, const std::string& title, int side) {
    return {.handle = handle, .title = title, .area = {0, 0, side, side}};
}

/// The windows of a screen; one that is asked to close goes, unless it hangs.
struct ScreenWindows : FakeForeignWindows {
    ScreenWindows() { list = {Named(1, "ours", 100)}; }
    void Close(WindowHandle window) override {
        closed.push_back(window);
        if (!hang) Shut(window);
    }
    std::vector<WindowHandle> closed;
    bool hang = false;
};

struct RecordingHooks : InputHooks {
    void HookKeyboard() override { keyboard = true; }
    void UnhookKeyboard() override { keyboard = false; }
    void HookMouse() override { mouse = true; }
    void UnhookMouse() override { mouse = false; }
    bool keyboard = false, mouse = false;
};

constexpr WindowHandle Picture = 7;

struct VisualisationTest : testing::Test, AudioFixture {
    VisualisationTest() {
        auto needs = Needs();
        needs.vis = {&screen, &hooks, [this] { return asked; }};
        needs.loadGPS = [this] { EXPECT_TRUE(PlayerShown() && !screen.Exists(Picture)); };
        made = std::make_unique<AudioPlayer>(needs, list, view);
        keys[Action::startvis] = "86";
        keys[Action::nextvis] = "78";
        keys[Action::SWMP] = "80";
        const auto obey = process.wire.answer;
        process.wire.answer = [this, obey](const RecordingPlayer::Message& m) {
            if (m == RecordingPlayer::Command(WinampRunVis)) Toggle();
            return obey(m);
        };
        Play(5);
    }
    ~VisualisationTest() override { made.reset(); }
    // What the player process does.
    void Toggle() {
        ++toggles;
        if (!opens) return;
        if (screen.Exists(Picture)) return screen.Shut(Picture);
        screen.list.push_back(Named(6, "another program's", 9));
        screen.list.push_back(Named(Picture, settings.values.VisWindowName, 0));
    }
    void Press(const std::string& key) {
        commands.Run(key == "27" ? Commands::When::Interrupt : Commands::When::Drop,
                     [&] { player().Form_KeyDown(key); });
    }
    bool PlayerShown() const { return view.frame && !hooks.mouse && clock.Running() > 0; }

    ScreenWindows screen;
    RecordingHooks hooks;
    bool opens = true, asked = false;
    int toggles = 0;
};

TEST_F(VisualisationTest, DoesNothingUnlessAudioPlays) {
    for (const int status : {3, 0}) {
        process.status = status;
        Press("86");
        EXPECT_EQ(toggles, 0);
        EXPECT_TRUE(view.frame && !hooks.mouse);
    }
}

TEST_F(VisualisationTest, HasTheScreenUntilATouch) {
    const auto begun = clock.TickMs();
    Press("86");
    EXPECT_EQ(clock.TickMs() - begun, 3000) << "to open, and to stand";
    EXPECT_FALSE(view.frame);
    EXPECT_TRUE(hooks.keyboard && hooks.mouse);
    const auto sent = process.Count(125);
    clock.Advance(5000);
    EXPECT_EQ(process.Count(125), sent) << "its timer stands still";
    process.track = 3;
    hooks.onTouch();
    EXPECT_EQ(screen.closed, std::vector{Picture}) << "by its title, not the window of another";
    EXPECT_TRUE(PlayerShown() && hooks.keyboard);
    EXPECT_EQ(toggles, 1);
    clock.Advance(200);
    EXPECT_FALSE(hooks.keyboard) << "a tick later";
    EXPECT_EQ(list.iSelected, 3) << "the track of now";
}

TEST_F(VisualisationTest, EveryKeyWorksThePlayerOrNothing) {
    Press("86");
    for (const auto& [key, sent] : {std::pair("39", 40048), {"80", 0}, {"40", 0}, {"34", 0}}) {
        const auto before = process.wire.sent.size();
        const auto row = list.iSelected;
        Press(key);
        EXPECT_EQ(process.Count(sent), sent == 0 ? 0 : 1) << key;
        EXPECT_EQ(process.wire.sent.size() == before && list.iSelected == row, sent == 0);
        EXPECT_TRUE(screens.CurrentForm == "playmp3");
    }
    keys[Action::gps] = "71";
    for (const char* key : {"27", "13", "86", "71"}) {
        Press(key);
        EXPECT_TRUE(PlayerShown()) << key;
        EXPECT_EQ(process.status, 1) << "the music goes on";
        EXPECT_EQ(process.Count(WinampPlay), 1) << "and no row was played";
        Press("86");
        EXPECT_FALSE(view.frame);
    }
}

TEST_F(VisualisationTest, ATouchEndsTheWaitForItsWindow) {
    opens = false;
    const auto begun = clock.TickMs();
    const auto finger = clock.MakeTimer([&] {
        if (hooks.mouse) hooks.onTouch();
    });
    finger->Start(400);
    Press("86");
    EXPECT_LT(clock.TickMs() - begun, 2500);
    EXPECT_TRUE(PlayerShown());
}

TEST_F(VisualisationTest, OneThatNeverOpensIsToldOnceAndEndedByTheNextTouch) {
    opens = false;
    Press("86");
    EXPECT_EQ(LinesLogged("has opened no window"), 1);
    EXPECT_FALSE(view.frame);
    opens = true; // it had ended by itself: the command starts it
    hooks.onTouch();
    EXPECT_EQ(toggles, 2);
    EXPECT_EQ(screen.closed, std::vector{Picture}) << "and it is not left over the player";
    EXPECT_TRUE(PlayerShown());
}

TEST_F(VisualisationTest, OneThatHangsIsEndedByItsCommand) {
    Press("86");
    screen.hang = true;
    Press("27");
    EXPECT_EQ(toggles, 2);
    EXPECT_EQ(LinesLogged("does not close"), 1);
    EXPECT_TRUE(PlayerShown() && !screen.Exists(Picture));
}

TEST_F(VisualisationTest, OneThatDiesGivesTheScreenBack) {
    Press("86");
    screen.Shut(Picture);
    clock.Advance(600);
    EXPECT_TRUE(PlayerShown());
    EXPECT_EQ(toggles, 1) << "nothing is left to be ended";
    Press("86");
    made->Form_Unload(false);
    EXPECT_EQ(toggles, 3) << "the end of the system does not wait for it";
    EXPECT_FALSE(hooks.keyboard || hooks.mouse);
}

TEST_F(VisualisationTest, ASleepOrAQuestionEndsItWithoutWaiting) {
    for (const bool sleeps : {true, false}) {
        const auto ended = clock.MakeTimer([&] { // while it opens
            if (sleeps) return player().Suspend();
            asked = true;
        });
        for (const int soon : {300, 60000}) {
            asked = false;
            ended->Start(soon);
            Press("86");
            clock.Advance(soon == 300 ? 0 : 61000);
            ended->Stop();
            clock.Advance(600);
            EXPECT_TRUE(PlayerShown() && !screen.Exists(Picture)) << sleeps << " " << soon;
            if (sleeps) player().Resume();
        }
    }
    EXPECT_EQ(toggles, 8);
    EXPECT_TRUE(screen.closed.empty());
}

TEST_F(VisualisationTest, TheNextOneIsThatOfTheListWhateverStandsInIt) {
    app.MakeFolder("plugins");
    app.Write("plugins/b.dll", "[visualisation]\nname=The Second\nscene=scope\n");
    app.Write("plugins/c.dll", std::string("MZ\0\x90", 4) + std::string(9000, 'x'));
    using Case = std::array<std::string, 4>;
    const std::string huge(VisListLimit * 50, '\n');
    for (const auto& [file, chosen, name, next] :
         {Case{"a.dll\r\nb.dll\r\n", "a.dll", "The Second", "b.dll"},
          {"a.dll\nb.dll", "B.DLL", "a", "a.dll"},
          {"../b.dll\n" + std::string(200, 'y') + "\n\x01\n c.dll \n", "gone", "c", "c.dll"},
          {huge + "a.dll", "", "a", "a.dll"},
          {"a.dll", "a.dll", "No other visualisation", "a.dll"},
          {std::string(1 << 20, 'z'), "x.dll", "No other visualisation", "x.dll"},
          {"", "x.dll", "No other visualisation", "x.dll"}}) {
        app.Write("VNFO.dat", file);
        app.Write("winamp.ini", "[Winamp]\nvisplugin_name=" + chosen + "\n");
        clock.Advance(10000);
        Press("78");
        EXPECT_EQ(view.clocks.back(), name);
        EXPECT_EQ(VisChoice(settings).File(), next) << name;
        EXPECT_EQ(settings.Get(setting::VisWindowName) == name, next != chosen);
    }
}

} // namespace vk::test
