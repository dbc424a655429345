// Entering, leaving, keys while busy, and the buttons.
#include "tests/browser/browser_fixture.h"
#include "tests/support/action_table.h"

namespace vk::test {

using BrowserKeys = BrowserTest;

TEST_F(BrowserKeys, EnteringShowsClockListAndHidesTheOthers) {
    browser().ReShow();
    EXPECT_EQ(core.screens.CurrentForm, "playlists");
    EXPECT_EQ(view.shown, 1);
    EXPECT_EQ(player.Count("Hide"), 1);
    EXPECT_EQ(self.Count("Hide"), 0);
    core.clock.Advance(60000);
    EXPECT_EQ(view.clock, "Saturday, November 21, 2026    12:1");
    browser().Form_Unload(true);
    core.clock.Advance(60000);
    EXPECT_EQ(view.clock, "Saturday, November 21, 2026    12:1") << "the timers stop";
    EXPECT_TRUE(core.Logged("form unloaded by administrative request - os shutdown"));
    EXPECT_EQ(core.screens.CurrentForm, "");
}

TEST_F(BrowserKeys, EscapeLeadsBackToWhereOneCameFromAndHomeToTheMenu) {
    browser().ReShow();
    browser().doquit();
    EXPECT_EQ(menu.Count("ReShow"), 1);
    EXPECT_EQ(view.title, "");
    state.FromPlayer = audio.bStartPlaying = true;
    browser().ReShow();
    browser().doquit();
    EXPECT_EQ(player.Count("ReDisplay"), 1);
    EXPECT_FALSE(audio.bStartPlaying || state.FromPlayer) << "what plays is not started anew";
    state.FromPlayer = true;
    audio.PlayMode = PlayAudio;
    browser().ReShow();
    browser().GoHome();
    EXPECT_FALSE(state.FromPlayer);
    EXPECT_EQ(player.Count("doquit"), 1) << "it is saved before the menu silences it";
    core.screens.CurrentForm = "playmp3";
    browser().doquit();
    EXPECT_EQ(menu.Count("ReShow"), 2) << "only the screen in front quits";
}

TEST_F(BrowserKeys, ABuildIsEndedByEscapeHomeBackAndTheEndOfTheSystem) {
    UseCatalogue();
    for (int i = 0; i < 20; ++i) {
        known.files.push_back({"/song" + std::to_string(i) + ".mp3", "", "Song"});
        Media(known.files.back().path);
    }
    core.clock.workMs = 60;
    const std::pair<std::function<void()>, int> ends[] = {
        {[this] { Press(&Browser::doquit); }, 1},
        {[this] { Press(&Browser::GoHome); }, 1},
        {[this] { Press(&Browser::MoveBack); }, 0},
        {[this] { core.screens.CurrentForm.clear(); }, 0}};
    for (const auto& [end, left] : ends) {
        menu.calls.clear();
        known.state = left > 0 ? DBStateValue::OnLine : DBStateValue::Offline;
        core.clock.onEvents = [&, &end = end] {
            if (list.ItemCount() >= 5) end();
        };
        Press(&Browser::ReShow);
        EXPECT_EQ(menu.Count("ReShow"), left);
        EXPECT_LT(list.ItemCount(), 10);
    }
    core.clock.onEvents = {};
    browser().ReShow();
    EXPECT_EQ(list.ItemCount(), 22) << "the next build is whole again";
}

TEST_F(BrowserKeys, TheWheelMovesTheSelectionUnlessItTurnsTheVolume) {
    MediaFiles({"a.mp3", "b.mp3"});
    browser().ReShow();
    for (const auto& [delta, row] : {std::pair{-120, 1}, {-120, 2}, {120, 1}, {0, 1}}) {
        browser().MouseWheel(delta);
        EXPECT_EQ(list.iSelected, row);
    }
    core.settings.values.MouseFunction = 1;
    for (const int increment : {3, 0}) {
        core.settings.values.MouseIncrement = increment;
        browser().MouseWheel(120);
        EXPECT_EQ(view.loading, increment ? "Volume : 6%" : "");
        sound.mixer.Level(MixerLine::Master) = 999; // no louder
        core.clock.Advance(5000);
        EXPECT_EQ(view.loading, "");
    }
    for (const char* form : {"playlists", "playmp3"}) { // the second's volume is its own to show
        core.screens.CurrentForm = form;
        browser().VolDown();
        EXPECT_EQ(view.loading, "Volume : 98%");
    }
}

TEST_F(BrowserKeys, SwapAndPauseNeedAPlayerThatPlays) {
    for (const auto& [mode, paused, picture] :
         {std::tuple{PlayNone, false, "play.gif"}, std::tuple{PlayAudio, false, "pause.gif"},
          std::tuple{PlayAudio, true, "play.gif"}}) {
        audio.PlayMode = mode;
        audio.bPaused = paused;
        player.calls.clear();
        browser().ReShow();
        browser().Buttons().PlayPause();
        EXPECT_EQ(view.pictures[BrowserButton::PlayPause], picture);
        browser().Swap();
        for (const char* call : {"DoPause", "ReDisplay"})
            EXPECT_EQ(player.Count(call), mode == PlayAudio);
    }
}

TEST_F(BrowserKeys, TheApplicationsAreAnotherListOfTheSameScreen) {
    browser().ReShow();
    EXPECT_EQ(view.pictures[BrowserButton::Applications], "gps.gif");
    browser().Buttons().ToggleToolFrame();
    EXPECT_TRUE(view.toolFrame);
    EXPECT_EQ(view.pictures[BrowserButton::ToolFrame], "menusel.gif");
    browser().Buttons().ToggleApplications();
    EXPECT_FALSE(view.toolFrame);
    EXPECT_EQ(view.pictures[BrowserButton::Applications], "lists.gif");
    EXPECT_EQ(Shown(), "External Applications | [You have no applications configured]");
    browser().runok();
    EXPECT_EQ(view.loading, "");
    core.app.Write("apps.lst", "/usr/bin/a b -x|Maps|0|True|True\r\n\r\n/usr/bin/c\r\n");
    browser().ReShow();
    EXPECT_EQ(Shown(), "External Applications | [Maps] | /usr/bin/c");
    EXPECT_EQ(list.Row(0).descriptor, "/usr/bin/a b -x|Maps|0|True|True");
    browser().runok();
    EXPECT_EQ(view.loading, "Applications cannot be started.");
    EXPECT_TRUE(core.Logged("no program can be started: /usr/bin/a b -x|Maps"));
    browser().Buttons().ToggleApplications();
    EXPECT_EQ(state.ListMode, ListFromMenu);
}

TEST_F(BrowserKeys, TheRadioButtonIsForThoseWhoHaveOne) {
    const std::string toFM = std::to_string(PlayFM) + " D-Link FM Radio presets.lst 1 -1 start",
                      toXM = std::to_string(PlayXM) + " XM Satellite Radio  1 -1 start";
    for (const auto& [fm, xm, first, picture, handed] : {std::tuple{false, false, 0, "", Handed()},
                                                         {true, false, 1, "fm.gif", toFM},
                                                         {false, true, 0, "xm.gif", toXM},
                                                         {true, true, 0, "fm.gif", toFM},
                                                         {true, true, 1, "xm.gif", toXM}}) {
        core.settings.values.dlink_enabled = fm;
        core.settings.values.xmpcr_enabled = xm;
        core.state.FirstRadioType = first;
        view.pictures.clear();
        browser().ReShow();
        EXPECT_EQ(view.pictures[BrowserButton::Radio], picture);
        browser().ShowRadio();
        EXPECT_EQ(Handed(), handed);
    }
    tuner = false;
    browser().ReShow();
    browser().ShowRadio();
    EXPECT_EQ(view.loading, "The radio is not available.");
    EXPECT_EQ(player.Count("ReShow"), 4);
}

TEST_F(BrowserKeys, EjectOpensTheDriveAndReturnsToTheMediaFolder) {
    InsertDisc();
    Enter(cd);
    browser().Buttons().Eject();
    EXPECT_EQ(state.CurrentPath, media);
    core.volumes.ready.clear();
    browser().ReShow();
    browser().Buttons().Eject();
    EXPECT_THAT(core.volumes.ejected, ElementsAre(cd)) << "an empty drive is left alone";
}

TEST_F(BrowserKeys, ResumeNeedsAListAndItsDiscOrShowsWhatPlays) {
    browser().ReShow();
    browser().Buttons().Resume();
    EXPECT_EQ(view.loading, "You must first play an audio file before resuming.");
    core.app.Write("vk_audio.m3u", cd + "/a.mp3\r\n");
    core.settings.Write("audio_player", "currenttrack", "6");
    core.settings.Write("audio_player", "volumeserial", "4711");
    core.settings.Write("audio_player", "CurrentPosition", "83.7");
    browser().Buttons().Resume();
    EXPECT_EQ(view.loading, "ROM Mismatch detected. Insert correct CD.");
    EXPECT_EQ(player.Count("ReShow"), 0);
    InsertDisc();
    browser().Buttons().Resume();
    EXPECT_EQ(player.Count("ReShow"), 1);
    EXPECT_EQ(Handed(), std::to_string(PlayAudio) + "  vk_audio.m3u 7 4711 start");
    EXPECT_EQ(audio.ResumePosition, 83);
    EXPECT_TRUE(audio.bResuming);
    audio.PlayMode = PlayFM;
    browser().ReShow();
    browser().Buttons().Resume();
    EXPECT_EQ(player.Count("ReDisplay"), 1);
    EXPECT_FALSE(audio.bStartPlaying);
}

TEST_F(BrowserKeys, EveryActionReachesItsOperationAndNoOther) {
    RecordingScreen gps;
    core.screens.Add("frmGPS", gps);
    for (char folder = 'a'; folder <= 'z'; ++folder)
        Media("m/" + std::string(1, folder) + "/x.mp3");
    core.settings.values.dlink_enabled = true;
    UseCatalogue();
    audio.PlayMode = PlayAudio;
    const std::pair<const char*, RecordingScreen*> screens[] = {
        {"player.", &player}, {"menu.", &menu}, {"gps.", &gps}};
    const auto effect = [&] {
        std::string text = view.title == " m" ? "" : view.title;
        if (view.title == " m" && list.iSelected != 10)
            text = "row " + std::to_string(list.iSelected);
        for (const auto& [name, screen] : screens)
            for (const std::string& call : screen->calls)
                if (call != "Hide") text += name + call;
        if (view.keyboard) text += " keyboard";
        for (const char* notice : {"Volume", "You must first"})
            if (view.loading.starts_with(notice)) text += view.loading;
        state.ListMode = ListFromMenu;
        sound.mixer.Level(MixerLine::Master) = 500;
        core.clock.Advance(10'000);
        Enter(media + "/m");
        list.SelectItem(10);
        for (const auto& screen : screens)
            screen.second->calls.clear();
        return text;
    };
    effect();
    std::map<Action, std::string> effects{{Action::ok, " j"},
                                          {Action::up, "row 9"},
                                          {Action::down, "row 11"},
                                          {Action::pageup, "row 0"},
                                          {Action::pagedown, "row 24"},
                                          {Action::back, "Browse By Directory "},
                                          {Action::forward, "Recurse Folder: j"},
                                          {Action::quit, "menu.ReShow"},
                                          {Action::SWMP, "player.ReDisplay"},
                                          {Action::vup, "Volume : 52%"},
                                          {Action::Vdown, "Volume : 48%"},
                                          {Action::Search, "Text Search Options "},
                                          {Action::gps, "gps.ReShow"},
                                          {Action::MP3toRadio, "player.ReShow"},
                                          {Action::eject, "Browse By Directory "},
                                          {Action::apps, "External Applications"}};
    effects[Action::resume] = "You must first play an audio file before resuming.";
    for (const Action passed : {Action::mute, Action::shuffle, Action::play, Action::pause,
                                Action::FF, Action::REW, Action::addfav})
        effects[passed] = "player.DoAction";
    ExpectTable(browser(), keys, effects, effect);
}

} // namespace vk::test
