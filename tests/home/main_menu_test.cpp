#include "tests/home/menu_fixture.h"
#include "tests/support/action_table.h"

#include <set>

namespace vk::test {
namespace {

struct ToldView : MenuView {
    void ShowIcons() override {}
    void DrawIcon(int index, bool selected) override { drawn = {index, selected}; }
    void ShowFrame(bool shown) override { frame = shown; }
    void SetClockBar(const std::string& text) override { clockBar = text; }
    void ShowBanner(const std::string& text) override { banner = text; }
    void ShowLoading(const std::string& text) override { banner = text; }
    void RefreshClockColours() override {}
    void ShowAtFront() override {}
    std::pair<int, bool> drawn;
    std::string clockBar, banner;
    bool frame = false;
};

constexpr const char* NoGPS = "You have no GPS module configured";

struct MainMenuTest : testing::Test, MenuFixture {
    MainMenuTest() {
        SetUpApp();
        settings.LoadSettings();
        state.ScreenWidth = 800;
        state.ScreenHeight = 480;
        state.CurrentSkinFile = "Torque.skn";
        LoadIcons("[DMFS]\nitemindex=2\n[IconNames]\nNames=a b c\n[a]\nfunction=1\nof_right=2\n"
                  "[b]\nfunction=2\nof_left=1\nof_below=3\n[c]\nof_above=2\n");
        MakeScreen("playlists");
        MakeScreen("playmp3");
        told.clear();
    }
    void LoadIcons(const std::string& sections) {
        app.Write("skins/Torque.skn", "[Colors]\n" + sections);
        skin.LoadSkin();
    }
    // The screen that the selected icon leads to when it has this function, "" for none.
    std::string Start(int function) {
        told.clear();
        menu.LastStartSelection = function;
        menu.runok(function);
        return told.empty() ? "" : told.back();
    }
    ToldView view;
    MainMenu menu{MenuNeeds(), view};
};

TEST_F(MainMenuTest, CutsALoudLevelOnceARunAndEndsAForeignMute) {
    FakeMixer& mixer = sound.mixer;
    std::int32_t& master = mixer.Level(MixerLine::Master);
    settings.values.safevolume = true;
    settings.values.safevol_value = 36;
    mixer.Change(false);
    menu.ReShow();
    mixer.Change(true);
    for (const int expected : {360, 900}) {
        master = 900;
        menu.ReShow();
        EXPECT_EQ(master, expected);
    }
    for (const bool users : {false, true}) {
        if (users) sound.loudness.domute();
        clock.Advance(1000);
        mixer.Mute(MixerLine::Master) = !users;
        menu.ReShow();
        EXPECT_EQ(mixer.Mute(MixerLine::Master), users);
    }
}

TEST_F(MainMenuTest, TheGraphOfTheSkinLeadsTheCursorAndAStoredOneBeyondItSelectsNothing) {
    menu.ReShow();
    EXPECT_EQ(menu.CurrentSelection, 2) << "the skin's own when none is stored";
    menu.MoveLeft();
    EXPECT_EQ(menu.CurrentSelection, 1);
    EXPECT_EQ(view.drawn, std::make_pair(1, true));
    menu.MoveLeft();
    EXPECT_EQ(menu.CurrentSelection, 1) << "no neighbour, no move";
    EXPECT_TRUE(menu.Form_KeyDown("39"));
    EXPECT_TRUE(menu.Form_KeyDown("40"));
    EXPECT_EQ(menu.CurrentSelection, 3);
    menu.runok();
    EXPECT_EQ(view.clockBar,
              "Someone didn't set the function for this button when they created this skin!");
    menu.switchingform();
    EXPECT_EQ(settings.Read("main", "CurrentSelectID"), "3");
    EXPECT_FALSE(menu.Form_KeyDown("999"));
    settings.Write("main", "CurrentSelectID", "9");
    menu.ReShow();
    EXPECT_EQ(menu.CurrentSelection, 9) << "beyond the icons, thus nothing";
    told.clear();
    menu.runok();
    EXPECT_TRUE(told.empty());
    menu.MoveUp();
    EXPECT_EQ(menu.CurrentSelection, 1) << "the keys are not locked out";
    LoadIcons(""); // thus the menu's own
    settings.Write("main", "CurrentSelectID", "0");
    for (void (MainMenu::*move)() :
         {&MainMenu::MoveDown, &MainMenu::MoveRight, &MainMenu::MoveUp}) {
        menu.ReShow();
        std::set<std::string> functions;
        for (int i = 0; i < 7; ++i, (menu.*move)())
            functions.insert(
                menu.Icons().at(static_cast<std::size_t>(menu.CurrentSelection) - 1).function);
        EXPECT_EQ(functions.size(), 7u);
    }
}

TEST_F(MainMenuTest, TheBrowserOpensAtTheMediaFolderAndWhatIsNotConfiguredSaysSo) {
    EXPECT_EQ(Start(2), "playlists.ReShow");
    EXPECT_EQ(browser.CurrentPath, settings.values.MediaDir);
    EXPECT_EQ(browser.ListMode, ListFromMenu);
    settings.values.PlaylistDir = "none";
    EXPECT_EQ(Start(2), "");
    for (const auto& [function, message] :
         {std::pair(4, "You must first configure external app support."),
          {5, "You must first configure your radio."},
          {6, NoGPS},
          {42, NoGPS}}) {
        EXPECT_EQ(Start(function), "") << function;
        EXPECT_EQ(view.clockBar, message);
    }
}

TEST_F(MainMenuTest, TheRadioTileStartsTheTunerThatIsThereOrFirst) {
    settings.Write("xmpcr_tuner", "PresetList", "/lists/my.xcl");
    settings.Write("xmpcr_tuner", "ListTitle", "My list");
    settings.values.xmpcr_enabled = true;
    for (const auto& [fm, first, mode, title] : {std::tuple(true, "0", PlayFM, "D-Link FM Radio"),
                                                 {true, "1", PlayXM, "My list"},
                                                 {false, "0", PlayXM, "My list"}}) {
        settings.values.dlink_enabled = fm;
        settings.Write("main", "firstradiotype", first);
        EXPECT_EQ(Start(5), "playmp3.ReShow");
        EXPECT_EQ(audio.PlayMode, mode);
        EXPECT_EQ(audio.ListTitle, title);
        EXPECT_TRUE(audio.bStartPlaying);
    }
}

TEST_F(MainMenuTest, AudioResumesWhatWasSavedOrOpensTheBrowser) {
    settings.Write("audio_player", "CurrentPosition", "61");
    settings.values.DoResume = true;
    const struct {
        const char *list, *track, *disc;
        bool plays;
    } cases[] = {{nullptr, "4", "-1", false},
                 {"", "4", "-1", false},
                 {"/cd/a.mp3\n", "0", "-1", false},
                 {"/cd/a.mp3\n", "4", "77", false}, // there is no drive
                 {"/cd/a.mp3\n", "4", "-1", true}};
    for (const auto& c : cases) {
        if (c.list) app.Write("vk_audio.m3u", c.list);
        settings.Write("audio_player", "currenttrack", c.track);
        settings.Write("audio_player", "volumeserial", c.disc);
        EXPECT_EQ(Start(1), c.plays ? "playmp3.ReShow" : "playlists.ReShow") << &c - cases;
    }
    EXPECT_EQ(std::tie(audio.PlayMode, audio.TrackToSelect, audio.ResumePosition),
              std::tuple(PlayAudio, 5, 61));
    EXPECT_TRUE(audio.bStartPlaying && audio.bResuming);
    EXPECT_EQ(audio.ListFile, app.File("vk_audio.m3u"));
}

TEST_F(MainMenuTest, ComingBackSilencesThePlayerAndUnloadsTheSettings) {
    player.answer = [](const auto& message) { return message.lParam == 104 ? 1 : 0; };
    MakeScreen("settings");
    menu.ReShow();
    EXPECT_EQ(player.sent.back(), test::RecordingPlayer::Command(WinampStop));
    EXPECT_EQ(screens.CurrentForm, "velkorandum");
    EXPECT_EQ(view.clockBar, "Saturday, November 21, 2026 12:0");
    EXPECT_TRUE(view.frame);
    clock.Advance(1500);
    EXPECT_TRUE(state.WinampWatched);
    EXPECT_NE(screens.Find("settings"), nullptr);
    settingsBusy = true;
    clock.Advance(1000);
    EXPECT_NE(screens.Find("settings"), nullptr) << "it goes at the second tick";
    settingsBusy = false;
    clock.Advance(1000);
    EXPECT_EQ(screens.Find("settings"), nullptr) << "or later, when its dialog has closed";
}

TEST_F(MainMenuTest, QuittingWaitsForABusyCatalogueTwiceAndForTheMode) {
    state.DBState = DBStateValue::Rebuilding;
    menu.Image1_Click();
    EXPECT_EQ(view.clockBar, "Please wait for the database to finish. :1");
    menu.Image1_Click();
    EXPECT_EQ(exits, 0);
    EXPECT_TRUE(menu.Form_KeyDown("%115"));
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(settings.Read("main", "CurrentSelectID"), "0");
    settings.Set(setting::CurrentSelectID, 5);
    for (const int mode : {3, 0}) {
        settings.values.ShutDownMode = mode;
        Start(7);
        EXPECT_EQ(settings.Get(setting::CurrentSelectID) == 0, mode == 0);
    }
    EXPECT_EQ(powerActions, 2);
    EXPECT_EQ(exits, 1) << "the power action ends the system";
}

TEST_F(MainMenuTest, TheClockFollowsTheDayAndABrokenSkinIsTriedOnce) {
    app.Write("skins/Night.skn", "[Colors]\nLineClr=9\n");
    settings.values.CurrentNTSkin = "Night.skn";
    settings.values.Time1 = "8:00:00 AM";
    settings.values.Time2 = "12:01:00 PM";
    menu.ReShow();
    view.clockBar = "a message";
    clock.Advance(58000);
    EXPECT_EQ(view.clockBar, "a message");
    clock.Advance(3000);
    EXPECT_EQ(view.clockBar, "Saturday, November 21, 2026 12:0");
    EXPECT_EQ(state.CurrentSkinFile, "Night.skn");
    EXPECT_EQ(skin.data().LineClr.value, 9);
    EXPECT_TRUE(Told("playmp3.DoLayout"));
    settings.values.CurrentNTSkin = "Broken.skn"; // there is none
    for (const bool atStart : {false, true}) {
        dialogs.shown.clear();
        state.CurrentSkinFile = atStart ? "Broken.skn" : "Night.skn";
        skin.LoadSkin();
        for (int second = 0; second < 3; ++second)
            daylight.Check();
        EXPECT_EQ(state.CurrentSkinFile, "Torque.skn");
        EXPECT_EQ(dialogs.shown.size(), 1u) << "tried once";
    }
}

TEST_F(MainMenuTest, TheFirstAppearanceWaitsForTheCatalogue) {
    state.Setup = true;
    state.DBState = DBStateValue::Rebuilding;
    menu.ReShow();
    std::string before;
    for (int i = 0; i < 20; ++i) {
        clock.Advance(20);
        EXPECT_TRUE(view.banner.ends_with("\nRefreshing Database"));
        EXPECT_NE(std::exchange(before, view.banner), view.banner) << "the blank moves";
    }
    EXPECT_FALSE(state.WinampWatched || commands.ListBusy());
    for (const auto& [value, waitMs, banner] :
         {std::tuple(DBStateValue::OnLine, 20, ""),
          {DBStateValue::Rebuilding, 1000, "Refreshing Database"},
          {DBStateValue::CheckPoint, 1000, ""}}) {
        state.DBState = value;
        clock.Advance(waitMs);
        EXPECT_EQ(view.banner, banner);
        EXPECT_TRUE(state.WinampWatched);
    }
}

TEST_F(MainMenuTest, TheWaitForTheCatalogueEndsWithTheMenuAndStartsNothing) {
    state.Setup = true;
    state.DBState = DBStateValue::Rebuilding;
    settings.values.LoadtoMP3 = true;
    menu.ReShow();
    clock.Advance(1);
    screens.CurrentForm = "playlists";
    clock.Advance(1000);
    EXPECT_TRUE(state.WinampWatched);
    EXPECT_FALSE(Told("playmp3.ReShow") || Told("playlists.ReShow"));
}

TEST_F(MainMenuTest, EveryActionReachesItsOperationAndNoOther) {
    LoadIcons("[IconNames]\nNames=a b c d e\n[a]\nfunction=6\nof_above=2\nof_below=3\nof_left=4\n"
              "of_right=5\n[b]\n[c]\n[d]\n[e]\n");
    menu.LoadSelections();
    const auto effect = [&] {
        std::string text = std::exchange(view.clockBar, "");
        if (menu.CurrentSelection != 1) text += "icon " + std::to_string(menu.CurrentSelection);
        if (settingsOpened > 0) text += "settings";
        if (powerActions > 0) text += "power";
        if (window.cursor) text += "pointer";
        menu.CurrentSelection = 1;
        settingsOpened = powerActions = 0;
        window.cursor = false;
        return text;
    };
    settings.values.hidemouse = true;
    effect();
    const std::map<Action, std::string> table = {
        {Action::gps, NoGPS},       {Action::ok, NoGPS},       {Action::up, "icon 2"},
        {Action::down, "icon 3"},   {Action::back, "icon 4"},  {Action::forward, "icon 5"},
        {Action::SWMP, "settings"}, {Action::quit, "pointer"}, {Action::power, "power"}};
    ExpectTable(menu, keys, table, effect);
    EXPECT_FALSE(settings.values.hidemouse);
    EXPECT_EQ(settings.Read("main", "hidemouse"), "false");
}

TEST_F(MainMenuTest, TheCleanMenuHasHiddenZones) {
    menu.PressedAt(799, 0);
    settings.values.CleanMenu = true;
    menu.PressedAt(400, 240);
    EXPECT_EQ(exits, 0);
    menu.PressedAt(799, 0);
    menu.PressedAt(0, 479);
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(settingsOpened, 1);
}

} // namespace
} // namespace vk::test
