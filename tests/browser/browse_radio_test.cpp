// Radio presets and satellite channels in the browser.
#include "tests/browser/browser_fixture.h"

namespace vk::test {

class BrowseRadio : public BrowserTest {
  protected:
    BrowseRadio() {
        AddChannel(9, "Nine", "Rock");
        AddChannel(40, "Deep!", "Rock");
        AddChannel(7, "News", "Talk/Info");
        core.settings.values.xmpcr_enabled = true;
        core.settings.values.PlaylistDir = disk.MakeFolder("lists");
    }
    std::string Presets() const { return core.app.Read("presets.lst"); }
    void OpenPresets(const std::string& text) {
        core.app.Write("presets.lst", text);
        Walk("Edit Preset Radio Stations");
    }
    std::string Saved(const char* key) { return core.settings.Read("xmpcr_tuner", key); }
};

TEST_F(BrowseRadio, TheTopOffersWhatThereIs) {
    core.app.Write("favorites.m3u", "x");
    core.volumes.drives.clear();
    const std::string presets = " | Edit Preset Radio Stations", xm = " | XM Presets & Categories";
    const auto expect = [this](std::int16_t mode, bool enabled, const std::string& rows) {
        state.ListMode = mode;
        core.settings.values.xmpcr_enabled = enabled;
        browser().ReShow();
        EXPECT_EQ(Shown(), "Browse By Directory  | [Build a new PlayList] | Favorites" + rows);
    };
    expect(ListFromAudio, true, xm);
    core.app.Write("presets.lst", "96.5:A");
    expect(ListFromAudio, false, "");
    expect(ListFromMenu, true, presets + xm);
}

TEST_F(BrowseRadio, PresetsAreShownRelabelledAndDeletedWhereTheCursorStays) {
    OpenPresets("note");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "<No Valid Preset Entries>"));
    Choose("<No Valid Preset Entries>", ">", "<...>");
    EXPECT_EQ(view.title, "Browse By Directory ");
    EXPECT_EQ(Selected(), "Edit Preset Radio Stations");
    OpenPresets("95.1:\r\nnote\r\n96.5:B\r\n96.55:C\r\n");
    EXPECT_EQ(Shown(), "Radio Presets  | [<...>] |  - 95.1 | B - 96.5 | C - 96.55");
    EXPECT_EQ(Descriptors().at(2), "FREQ:96.5");
    OpenPresets("95.1:A\r\n96.5:B\r\n96.55:C\r\n");
    Choose("B - 96.5");
    EXPECT_TRUE(view.keyboard);
    EXPECT_EQ(keyboard.Caption() + keyboard.UserText(), "Label For: 96.5B");
    keyboard.onOK("Loud:er ");
    EXPECT_FALSE(view.keyboard);
    EXPECT_EQ(Presets(), "95.1:A\r\n96.5:Loud:er\r\n96.55:C\r\n");
    EXPECT_EQ(Selected(), "Loud:er - 96.5");
    core.dialogs.answers = {false};
    Choose(">");
    EXPECT_EQ(Selected(), "Loud:er - 96.5") << "not without a question";
    Choose(">");
    EXPECT_EQ(Presets(), "95.1:A\r\n96.55:C\r\n");
    EXPECT_EQ(Selected(), "C - 96.55");
    Choose(">", ">");
    EXPECT_EQ(Presets(), "");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "<No Valid Preset Entries>"));
    OpenPresets("95.1:A\r\n");
    DeleteFileAt(core.app.File("presets.lst"));
    list.SelectItem(1);
    Choose(">");
    EXPECT_EQ(view.loading, "The presets could not be saved.");
    EXPECT_TRUE(core.Logged("An error occured in playlists.DeleteFreq() "));
}

TEST_F(BrowseRadio, APresetIsListenedToOrGetsAnotherLabel) {
    core.settings.values.dlink_enabled = true;
    OpenPresets("95.1:A\r\n96.5:B\r\n");
    core.dialogs.answers = {false};
    Choose("B - 96.5");
    EXPECT_EQ(keyboard.Caption() + keyboard.UserText(), "Label For: 96.5B");
    keyboard.onEscape();
    Choose("B - 96.5");
    EXPECT_EQ(Handed(), std::to_string(PlayFM) + " D-Link FM Radio presets.lst 1 -1 start");
    EXPECT_EQ(core.settings.Get(setting::currentfreq), 96.5);
    EXPECT_EQ(player.Count("ReShow"), 1);
}

TEST_F(BrowseRadio, ChannelsAreReachedByCategoryListAndAllAtOnce) {
    disk.Write("lists/My|List.XCL", "40\r\n9\r\n200\r\nx\r\n");
    disk.Write("lists/none.xcl", "x");
    core.app.Write("favorites.xcl", "7");
    const std::string logo = core.app.Write("COMMON/XMPICS/deep.gif", "x");
    browser().ReShow();
    const std::string top = "XM Channels and Categories  | ",
                      edit = " | [<...>] | <Edit This List> | ";
    Steps({{"XM Presets & Categories", top + "[<...>] | Categories | <Build New Channel List> | "
                                             "My|List | none | favorites | Show All Channels"},
           {"Categories", "XM Categories  | [<...>] | XM Category: Talk/Info | XM Category: Rock"},
           {"XM Category: Rock", "XM Category: Rock | [<...>] | 9 - Nine | 40 - Deep!"}});
    EXPECT_THAT(Pictures(), ElementsAre("back.gif", "xm_default.gif", logo));
    Steps({{"<...>", "XM Categories  | <...> | XM Category: Talk/Info | [XM Category: Rock]"}});
    Choose("<...>");
    Steps({{"My|List",
            "My|List" + edit + "40 - Deep! | 9 - Nine | 200",
            {"XM:", "EDIT:lists/My|List.XCL", "XM:Channel|40", "XM:Channel|9", "XM:Channel|200"}}});
    Choose("<...>");
    Steps({{"none", "none" + edit + "<No Valid Channels in List>"}});
    core.settings.values.hideXMChanNo = true;
    Choose("<...>");
    Steps({{"Show All Channels", "All XM Channels  | [<...>] | News | Nine | Deep!"}});
    Choose("<...>", "<...>");
    EXPECT_EQ(view.title, "Browse By Directory ");
    channels = {};
    for (const char* row : {"Categories", "Show All Channels"}) {
        Walk("XM Presets & Categories", row);
        EXPECT_THAT(Texts(), ElementsAre("<...>", "<No Valid Channels in List>"));
    }
    Choose("<No Valid Channels in List>");
    EXPECT_EQ(audio.PlayMode, PlayNone);
}

TEST_F(BrowseRadio, AChosenChannelGoesToThePlayerWithItsList) {
    disk.Write("lists/mine.xcl", "40\r\n9\r\n");
    UseCatalogue();
    Walk("XM Presets & Categories", "mine", "9 - Nine");
    EXPECT_EQ(core.app.Read("xm_current.lst"), "40\r\n9\r\n");
    EXPECT_EQ(Handed(), std::to_string(PlayXM) + " XM Satellite Radio xm_current.lst 2 -1 start");
    EXPECT_EQ(audio.CurrentChannel, 9);
    EXPECT_EQ(player.Count("ReShow"), 1);
    EXPECT_EQ(Saved("CurrentChannel") + Saved("ListTitle"), "9mine");
    EXPECT_EQ(Saved("PresetList"), audio.ListFile);
    EXPECT_EQ(Saved("BrowseHistory"),
              "XM:/XM:List|" + disk.File("lists/mine.xcl") + "/XM:Channel|9");
    EXPECT_EQ(core.settings.Read("main", "BrowseHistory"), "");
    state.RestoreHistory = true;
    browser().ReShow();
    EXPECT_EQ(view.title, "mine") << "back where the channel was chosen";
    Choose("<...>", "Show All Channels", "40 - Deep!");
    EXPECT_EQ(core.app.Read("xm_current.lst"), "7\r\n9\r\n40\r\n");
    EXPECT_EQ(Saved("PresetList") + Saved("ListTitle"), "XM Satellite Radio");
}

} // namespace vk::test
