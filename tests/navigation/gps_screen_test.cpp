// The map's screen on an engine and a display that only are what a test says.
#include "core/text.h"
#include "tests/paths.h"
#include "tests/support/action_table.h"
#include "tests/support/map_screen.h"
#include "tests/support/widgets.h"

#include <QApplication>
#include <QWheelEvent>

namespace vk::test {

constexpr const char* Sentence = "$GPRMC,1,A,,N,,E,12.7,90,\r\n";

class GPSScreenTest : public testing::Test, protected MapScreen {
  protected:
    GPSScreenTest() : MapScreen(VK_RENDERED_SKINS) {
        screens.Add("velkorandum", menu);
        menu.onCall = [this](const std::string& call) {
            if (call == "ReShow") screens.CurrentForm = HomeScreen;
        };
        screens.Add("playmp3", player);
        screens.Add("playlists", browser);
        engine.address = GeoAddress{"12", "High Street", "Town", "State", "1|2"};
        Make({800, 480});
    }
    template<class Control = QWidget> Control& Part(const char* name) {
        auto* part = gps->findChild<QWidget*>(QString::fromLatin1(name));
        EXPECT_NE(part, nullptr) << name;
        return *static_cast<Control*>(part);
    }
    std::string Text(const char* name) { return Part<ShadedLabel>(name).Text(); }
    std::string Message() { return Part("lblMessage").isVisible() ? Text("lblMessage") : ""; }
    void Tap(const std::string& area) {
        QWidget& button = Part(("area" + area).c_str());
        Click(button, button.rect().center());
    }
    /// Types on the drawn keyboard and presses its OK.
    void Type(const std::string& text) {
        for (const char c : ToUpper(text))
            Logic().Form_KeyDown(std::to_string(c));
        auto& keyboard = Part<UCOSK>("UCKeyboard");
        KeyboardModel model;
        model.UCResize(keyboard.ScaleWidth(), keyboard.ScaleHeight());
        const KeyBox& ok = model.Label1(KeyboardModel::OKKey);
        Click(keyboard, {keyboard.ScaleLeft() + ok.Left + ok.Width / 2, ok.Top + ok.Height / 2});
    }
    bool Asks() { return Part("KBFrame").isVisible(); }
    bool Listed() { return Part("picGPSList").isVisible(); }
    bool MapShown() {
        std::string last;
        for (const std::string& told : windows.told)
            if (told == "show 77" || told == "hide 77") last = told;
        return last == "show 77";
    }
    void Seconds(int seconds) { clock.Advance(seconds * 1000); }
    std::string LastAsked() { return engine.asked.empty() ? "" : engine.asked.back(); }

    RecordingScreen menu, browser;
};

TEST_F(GPSScreenTest, TheReceiversSentencesReachTheLabelsAndItsSilenceIsTold) {
    EXPECT_TRUE(engine.portOpen);
    engine.Receive(Sentence);
    EXPECT_EQ(Text("lbGPSStatus") + Text("lbGPSSpeed") + Text("lbGPSHeading"),
              "GPS: ActiveSpeed: 14.96Heading: E");
    engine.FallSilent();
    EXPECT_EQ(Text("lbGPSStatus") + Text("lbGPSSpeed") + Text("lbGPSHeading"),
              "GPS: No SatsSpeed: 0.00Heading: ?");
    Logic().doquit();
    EXPECT_FALSE(engine.portOpen);
    dest.OpenComPort();
    engine.Receive(Sentence);
    EXPECT_EQ(Text("lbGPSStatus"), "GPS: No Sats") << "taken only in front";
    Logic().ReShow();
    engine.Receive(Sentence);
    EXPECT_EQ(Text("lbGPSStatus"), "GPS: Active");
}

TEST_F(GPSScreenTest, AnAddressIsTypedInThreeSteps) {
    for (const auto& [status, said] : {std::pair{RouteFound, "Creating Route"},
                                       {AddressNotFound, "Could Not Locate Address"},
                                       {RouteFailed, "Could not complete task"}}) {
        engine.routeStatus = status;
        Tap("SEARCH");
        EXPECT_TRUE(Asks() && !MapShown());
        Type("town");
        EXPECT_TRUE(Asks()) << "the same keyboard";
        Type("high street");
        Type("12");
        EXPECT_FALSE(Asks());
        EXPECT_TRUE(MapShown());
        EXPECT_EQ(LastAsked(), "route Town|High Street|12");
        EXPECT_EQ(Message(), said);
        Seconds(status == RouteFound ? 1 : 3);
        EXPECT_EQ(Message(), said);
        Seconds(1);
        EXPECT_EQ(Message(), "");
    }
    const auto asked = engine.asked;
    Tap("SEARCH");
    Type("town");
    EXPECT_TRUE(Logic().Form_KeyDown("27"));
    EXPECT_FALSE(Asks());
    EXPECT_EQ(engine.asked, asked);
    EXPECT_EQ(screens.CurrentForm, GPSName);
}

TEST_F(GPSScreenTest, APositionIsSavedUnderANameAndChosenAgain) {
    Tap("GPSLIST");
    EXPECT_EQ(Message(), "There are no saved GPS Locations");
    engine.position.reset();
    Tap("ADDFAV");
    EXPECT_EQ(Message(), "Could not acquire an address!");
    engine.position = GeoPosition{1, 2};
    engine.hold = true;
    Tap("ADDFAV");
    engine.Release(); // where it is
    engine.Release(); // and what is there
    ASSERT_TRUE(Asks());
    Type("home");
    EXPECT_EQ(Message(), "Saving: Home - Town High Street 12 State");
    EXPECT_EQ(app.Read("gps.lst"), "Home|Town|High Street|12|State\r\n");
    engine.hold = false;
    for (const auto& [status, said] :
         {std::pair{AddressNotFound, "Could not create route"}, {RouteFound, "Creating Route"}}) {
        engine.routeStatus = status;
        EXPECT_TRUE(Logic().Form_KeyDown(keys[Action::SWMP] = "80"));
        EXPECT_TRUE(Listed() && !MapShown());
        EXPECT_EQ(Part<UCListBox>("picGPSList").model().Row(0).first, "Home - Town High Street 12");
        EXPECT_TRUE(Logic().Form_KeyDown("13"));
        EXPECT_TRUE(!Listed() && MapShown());
        EXPECT_EQ(LastAsked(), "route Town|High Street|12");
        EXPECT_EQ(Message(), said);
    }
    Tap("CANCELROUTE");
    EXPECT_EQ(LastAsked(), "cancel");
    Tap("GPSLIST");
    EXPECT_TRUE(Logic().Form_KeyDown("27"));
    EXPECT_TRUE(!Listed() && screens.CurrentForm == GPSName) << "Escape takes the list away first";
}

TEST_F(GPSScreenTest, AnAnswerThatComesTooLateIsDropped) {
    engine.hold = true;
    Tap("ADDFAV");
    Logic().doquit();
    engine.Release();
    engine.Release();
    EXPECT_FALSE(Asks());
}

TEST_F(GPSScreenTest, ItGoesBackToWhereItWasOpened) {
    const std::tuple<const char*, RecordingScreen*, const char*> ways[] = {
        {"velkorandum", &menu, "ReShow"},
        {"playlists", &browser, "ReShow"},
        {"playmp3", &player, "ReDisplay"}};
    for (const auto& [from, screen, how] : ways) {
        screens.CurrentForm = from;
        screen->calls.clear();
        Logic().ReShow();
        EXPECT_EQ(screen->Count("switchingform"), 1) << from;
        EXPECT_TRUE(MapShown());
        Logic().doquit();
        EXPECT_EQ(screen->Count(how), 1) << from;
        EXPECT_FALSE(MapShown()) << from;
        EXPECT_EQ(clock.Running(), 0);
    }
    EXPECT_TRUE(place.RestoreHistory);
}

TEST_F(GPSScreenTest, WhoeverTouchesTheFrameLeavesAndWhoTouchesTheMapDoesNot) {
    vk::test::Tap(*gps, {790, 20});
    EXPECT_EQ(menu.Count("ReShow"), 1);
    Logic().ReShow();
    vk::test::Tap(*gps, {400, 200});
    EXPECT_EQ(menu.Count("ReShow"), 1);
    Tap("QUIT");
    EXPECT_EQ(menu.Count("ReShow"), 2);
}

TEST_F(GPSScreenTest, WhatPlaysIsShownAndDriven) {
    EXPECT_FALSE(Part("lbSongTitle").isVisible());
    EXPECT_EQ(windows.Find(Map)->area, (WindowArea{0, 44, 800, 356}));
    audio.PlayMode = PlayAudio;
    player.now = {.title = "Song", .artist = "Singer"};
    Seconds(1);
    EXPECT_EQ(Text("lbSongTitle") + Text("lbSongArtist"), "SongSinger");
    EXPECT_EQ(windows.Find(Map)->area, (WindowArea{0, 84, 704, 316}));
    player.calls.clear();
    for (const char* area : {"BACK", "PAUSE", "FORWARD"})
        Tap(area);
    EXPECT_EQ(player.calls, (std::vector<std::string>{"MoveBack", "DoPause", "MoveAhead"}));
    QWidget& louder = Part("areaVOLUP");
    Press(louder, {5, 5});
    clock.Advance(300);
    Release(louder, {5, 5});
    const std::string level = Text("lbGPSVolume");
    EXPECT_EQ(level, sound.loudness.Text());
    Seconds(3);
    EXPECT_EQ(sound.loudness.Text(), level) << "let go";
    EXPECT_TRUE(Part("lbGPSVolume").isVisible() && !Part("lbGPSSpeed").isVisible());
    Seconds(2);
    EXPECT_TRUE(!Part("lbGPSVolume").isVisible() && Part("lbGPSSpeed").isVisible());
}

TEST_F(GPSScreenTest, EveryActionReachesItsOperationAndNoOther) {
    app.Write("gps.lst", "a|b|c|d|e\n");
    engine.settings[0] = "256";
    const auto effect = [&] {
        std::string text;
        for (const auto* screen : {static_cast<RecordingScreen*>(&player), &menu})
            for (const std::string& call : screen->calls)
                if (call != "Hide" && call != "switchingform") text += call;
        if (Listed()) text += "list";
        if (Asks()) text += "keyboard";
        if (engine.settings[0] != "256") text += engine.settings[0];
        if (sound.loudness.Fading())
            text += "mute";
        else if (sound.mixer.Level(MixerLine::Master) != 500)
            text += sound.mixer.Level(MixerLine::Master) > 500 ? "louder" : "softer";
        clock.Advance(sound.loudness.Fading() ? 5000 : 0);
        if (sound.loudness.Muted()) sound.loudness.domute(), clock.Advance(5000);
        sound.volume.VolumeLevel(500);
        engine.settings[0] = "256";
        screens.CurrentForm = HomeScreen;
        Logic().switchingform();
        Logic().ReShow();
        player.calls.clear();
        menu.calls.clear();
        return text;
    };
    effect();
    ExpectTable(Logic(), keys,
                {{Action::FF, "DoFF"},
                 {Action::REW, "DoRW"},
                 {Action::Search, "keyboard"},
                 {Action::up, "128"},
                 {Action::down, "512"},
                 {Action::vup, "louder"},
                 {Action::Vdown, "softer"},
                 {Action::back, "MoveBack"},
                 {Action::forward, "MoveAhead"},
                 {Action::SWMP, "list"},
                 {Action::ok, ""},
                 {Action::pause, "DoPause"},
                 {Action::mute, "mute"},
                 {Action::gps, "ReShow"},
                 {Action::quit, "ReShow"},
                 {Action::addfav, "keyboard"}},
                effect);
}

TEST_F(GPSScreenTest, AnEngineThatIsMissingHungOrBackIsTold) {
    EXPECT_EQ(engine.setup.map, "town.bin");
    const QWidget& shown = Part("frmBrowseDest");
    const auto said = [&] { return shown.findChild<ShadedLabel*>()->Text(); };
    EXPECT_EQ(said(), "");
    engine.Become(EngineState::Restarting, 0, "The map has ended and is started again");
    EXPECT_EQ(said(), "The map has ended and is started again");
    windows.list.push_back({.handle = 78});
    engine.Become(EngineState::Running, 78);
    EXPECT_EQ(said(), "");
    EXPECT_EQ(windows.adopted, (std::vector<WindowHandle>{Map, 78}));
    surfaces.DialogOpened();
    EXPECT_EQ(windows.told.back(), "hide 78") << "the display would put it over the dialog";
    surfaces.DialogClosed();
    night = true;
    Seconds(1);
    EXPECT_TRUE(engine.night);
    windows.list.clear();
    engine.Become(EngineState::Running, 79);
    EXPECT_EQ(said(), "The map is being started") << "its window went before it was taken";
}

TEST_F(GPSScreenTest, WhatTheEngineGoesByIsThereAgainAtTheNextStart) {
    engine.settings = {"32", "0", "1", "1", "car_shortest", "imperial", "day", "0", "x.bin"};
    Tap("ZOOMIN");
    EXPECT_EQ(dest.GetDestSettings(), "16|0|1|0|car_shortest|imperial|day|0|x.bin");
    engine.settings = {"1", "1", "1", "1", "car", "metric", "night", "30", "y.bin"};
    dest.CreateDestWindow();
    EXPECT_EQ(dest.GetDestSettings(), "16|0|1|0|car_shortest|imperial|night|30|y.bin");
    EXPECT_EQ(settings.Read("GPS", "zoom"), "16");
}

TEST_F(GPSScreenTest, TheWheelMovesTheListZoomsOrTurnsTheVolume) {
    app.Write("gps.lst", "a|b|c|d|e\nf|g|h|i|j\n");
    engine.settings[0] = "256";
    const auto turn = [this](int delta) {
        QWheelEvent event({9, 9}, {9, 9}, {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(gps.get(), &event);
    };
    turn(120);
    EXPECT_EQ(engine.settings[0], "128");
    Logic().PopulateGPSList();
    turn(-120);
    EXPECT_EQ(Part<UCListBox>("picGPSList").model().iSelected, 1);
    settings.values.MouseFunction = 1;
    settings.values.MouseIncrement = 3;
    const int level = sound.mixer.Level(MixerLine::Master);
    turn(120);
    EXPECT_GT(sound.mixer.Level(MixerLine::Master), level);
}

TEST_F(GPSScreenTest, ItFitsEveryPanelAndEveryAreaAFinger) {
    for (const bool plays : {false, true}) {
        audio.PlayMode = plays ? PlayAudio : PlayNone;
        Seconds(1);
        for (const QSize size : PanelSizes) {
            Resize(size);
            ExpectChildrenInside(*gps);
            EXPECT_GT(windows.Find(Map)->area.height, size.height() / 2);
            EXPECT_GT(Part<UCListBox>("picGPSList").model().RowHeight, size.height() / 13);
        }
    }
}

TEST_F(GPSScreenTest, EverySkinThatShipsHasItsEightPictures) {
    std::filesystem::create_directory_symlink(
        std::filesystem::path(VK_RENDERED_SKINS).parent_path() / "COMMON", app.File("COMMON"));
    for (const char* name : {"Torque.skn", "TorqueNight.skn", "Other.skn"}) {
        state.CurrentSkinFile = name;
        isn.Load();
        for (int number = 0; number < 8; ++number) {
            const IsnState shown{(number & 1) != 0, (number & 2) != 0};
            const std::string picture = isn.Picture(shown, (number & 4) != 0);
            EXPECT_FALSE(LoadPicture(picture, {80, 48}, PictureFit::Stretch).isNull()) << picture;
        }
        EXPECT_EQ(isn.data().buttons.size(), 13u);
    }
    EXPECT_FALSE(Logged("cannot be used"));
}

TEST_F(GPSScreenTest, AHeldAreaShowsThePictureOnAndTheKeysReachIt) {
    const QImage before = gps->grab().toImage();
    Press(Part("areaQUIT"), {5, 5});
    EXPECT_GT(DifferingPixels(before, gps->grab().toImage()), 1000);
    Release(Part("areaQUIT"), {-5, -5});
    EXPECT_EQ(menu.Count("ReShow"), 0) << "let go outside";
    ASSERT_TRUE(gps->Buttons().Enter());
    for (int i = 0; i < 10; ++i)
        gps->Buttons().Move(-1, 0);
    gps->Buttons().Press();
    gps->Buttons().Release();
    EXPECT_EQ(menu.Count("ReShow"), 1) << "the leftmost leaves";
}

TEST_F(GPSScreenTest, WithoutASkinThereIsAMapAndAWayOut) {
    std::filesystem::remove(app.File("skins"));
    skin.LoadSkin();
    gps->DoLayout();
    Logic().ReShow();
    EXPECT_EQ(windows.Find(Map)->area, (WindowArea{0, 0, 800, 480 - TouchSide(480)}));
    vk::test::Tap(*gps, {400, 470});
    EXPECT_EQ(menu.Count("ReShow"), 1);
    app.Write("COMMON/GPSPICS/DEFAULT.isn", "B,0,0,800,480,SEARCH\n");
    gps->DoLayout();
    Logic().ReShow();
    EXPECT_EQ(gps->findChild<QWidget*>("areaSEARCH"), nullptr) << "without a size nothing is hit";
}

} // namespace vk::test
