// Radio presets and satellite channels in the browser.
#include "library/browser/browse_history.h"
#include "tests/library/browser_fixture.h"

namespace vk {
namespace {

using testing::ElementsAre;

class BrowseRadio : public test::BrowserTest {
  protected:
    void SetUp() override {
        Channel(9, "Nine", "Rock");
        Channel(40, "Deep!", "Rock");
        Channel(7, "News", "Talk/Info");
        core.settings.values.xmpcr_enabled = true;
        core.settings.values.PlaylistDir = disk.MakeFolder("lists");
    }
    void Channel(std::size_t number, const std::string& name, const std::string& category) {
        channels.channelTable[number] = {.name = name,
                                         .artist = {},
                                         .title = {},
                                         .category = category,
                                         .valid = true,
                                         .lastSeen = {}};
    }
    std::string Presets() const { return core.app.Read("presets.lst"); }
    void OpenPresets(const std::string& text) {
        core.app.Write("presets.lst", text);
        browser().ReShow();
        Choose("Edit Preset Radio Stations");
    }
    std::string Saved(const char* key) { return core.settings.Read("xmpcr_tuner", key); }
};

TEST_F(BrowseRadio, TheTopOffersWhatThereIs) {
    core.app.Write("favorites.m3u", "x");
    Media("a.mp3");
    const struct {
        bool presets, xm;
        std::int16_t mode;
        std::vector<std::string> rows;
    } cases[] = {
        {true, true, ListFromMenu, {"Edit Preset Radio Stations", "XM Presets & Categories"}},
        {true, false, ListFromAudio, {}},
        {false, true, ListFromAudio, {"XM Presets & Categories"}},
    };
    for (const auto& each : cases) {
        core.app.Write("presets.lst", "96.5:A");
        if (!each.presets) DeleteFileAt(core.app.File("presets.lst"));
        core.settings.values.xmpcr_enabled = each.xm;
        state.ListMode = each.mode;
        browser().ReShow();
        auto texts = Texts();
        std::erase_if(texts, [](const std::string& text) {
            return text.find("Preset") == std::string::npos;
        });
        EXPECT_EQ(texts, each.rows);
    }
}

TEST_F(BrowseRadio, PresetsAreShownByTheirLabels) {
    OpenPresets("96.5:Rock\r\nnote\r\n101.1:\r\n");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "Rock - 96.5", " - 101.1"));
    EXPECT_EQ(Descriptors().at(1), "FREQ:96.5");
    EXPECT_EQ(view.title, "Radio Presets ");
    OpenPresets("note");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "<No Valid Preset Entries>"));
    Choose("<No Valid Preset Entries>");
    browser().MoveAhead();
    Choose("<...>");
    EXPECT_EQ(view.title, "Browse By Directory ");
    EXPECT_EQ(Selected(), "Edit Preset Radio Stations");
}

TEST_F(BrowseRadio, APresetIsRelabelledAndDeletedWhereTheCursorStays) {
    OpenPresets("95.1:A\r\n96.5:B\r\n96.55:C\r\n");
    Choose("B - 96.5");
    EXPECT_TRUE(view.keyboard);
    EXPECT_EQ(keyboard.Caption(), "Label For: 96.5");
    EXPECT_EQ(keyboard.UserText(), "96.5");
    keyboard.onOK("Loud:er ");
    EXPECT_FALSE(view.keyboard);
    EXPECT_EQ(Presets(), "95.1:A\r\n96.5:Loud:er\r\n96.55:C\r\n");
    EXPECT_EQ(Selected(), "Loud:er - 96.5");
    browser().MoveAhead();
    EXPECT_EQ(Presets(), "95.1:A\r\n96.55:C\r\n");
    EXPECT_EQ(Selected(), "C - 96.55");
    browser().MoveAhead();
    browser().MoveAhead();
    EXPECT_EQ(Presets(), "");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "<No Valid Preset Entries>"));
    DeleteFileAt(core.app.File("presets.lst"));
    OpenPresets("95.1:A\r\n");
    DeleteFileAt(core.app.File("presets.lst"));
    list.SelectItem(1);
    browser().MoveAhead();
    EXPECT_EQ(view.loading, "The presets could not be saved.");
    EXPECT_TRUE(core.Logged("An error occured in playlists.DeleteFreq() "));
}

TEST_F(BrowseRadio, ChannelsAreReachedByCategoryListAndAllAtOnce) {
    disk.Write("lists/My_List.XCL", "40\r\n9\r\n200\r\nx\r\n");
    disk.Write("lists/none.xcl", "x");
    core.app.Write("favorites.xcl", "7");
    const std::string logo = core.app.Write("COMMON/XMPICS/deep.gif", "x");
    browser().ReShow();
    Choose("XM Presets & Categories");
    EXPECT_EQ(view.title, "XM Channels and Categories ");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "Categories", "<Build New Channel List>", "My_List",
                                     "none", "favorites", "Show All Channels"));
    Choose("Categories");
    EXPECT_EQ(view.title, "XM Categories ");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "XM Category: Talk/Info", "XM Category: Rock"));
    Choose("XM Category: Rock");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "9 - Nine", "40 - Deep!"));
    EXPECT_THAT(Pictures(), ElementsAre("back.gif", "xm_default.gif", logo));
    Choose("<...>");
    EXPECT_EQ(Selected(), "XM Category: Rock") << "where one came from";
    Choose("<...>");
    Choose("My_List");
    EXPECT_EQ(view.title, "My_List");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "<Edit This List>", "40 - Deep!", "9 - Nine", "200"));
    EXPECT_EQ(Descriptors().at(1), "EDIT:lists/My_List.XCL");
    Choose("<...>");
    Choose("none");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "<Edit This List>", "<No Valid Channels in List>"));
    core.settings.values.hideXMChanNo = true;
    Choose("<...>");
    Choose("Show All Channels");
    EXPECT_EQ(view.title, "All XM Channels ");
    EXPECT_THAT(Texts(), ElementsAre("<...>", "News", "Nine", "Deep!"));
    Choose("<...>");
    Choose("<...>");
    EXPECT_EQ(view.title, "Browse By Directory ");
}

TEST_F(BrowseRadio, AChosenChannelGoesToThePlayerWithItsList) {
    disk.Write("lists/mine.xcl", "40\r\n9\r\n");
    UseCatalogue();
    browser().ReShow();
    Choose("XM Presets & Categories");
    Choose("mine");
    Choose("9 - Nine");
    EXPECT_EQ(core.app.Read("xm_current.lst"), "40\r\n9\r\n");
    EXPECT_EQ(audio.PlayMode, PlayXM);
    EXPECT_EQ(audio.ListTitle, "XM Satellite Radio");
    EXPECT_EQ(audio.ListFile, core.app.File("xm_current.lst"));
    EXPECT_EQ(audio.CurrentChannel, 9);
    EXPECT_EQ(audio.TrackToSelect, 2);
    EXPECT_TRUE(audio.bStartPlaying);
    EXPECT_EQ(player.Count("ReShow"), 1);
    EXPECT_EQ(Saved("CurrentChannel"), "9");
    EXPECT_EQ(Saved("ListTitle"), "mine");
    EXPECT_EQ(Saved("PresetList"), audio.ListFile);
    EXPECT_EQ(Saved("BrowseHistory"),
              "XM:/XM:List|" + disk.File("lists/mine.xcl") + "/XM:Channel|9");
    EXPECT_EQ(core.settings.Read("main", "BrowseHistory"), "");

    state.RestoreHistory = true;
    browser().ReShow();
    EXPECT_EQ(view.title, "mine") << "back where the channel was chosen";
    Choose("<...>");
    Choose("Show All Channels");
    Choose("40 - Deep!");
    EXPECT_EQ(core.app.Read("xm_current.lst"), "7\r\n9\r\n40\r\n");
    EXPECT_EQ(Saved("PresetList"), "");
    EXPECT_EQ(Saved("ListTitle"), "XM Satellite Radio");
}

TEST_F(BrowseRadio, WithoutATableThereIsNothingToChoose) {
    channels = {};
    browser().ReShow();
    Choose("XM Presets & Categories");
    for (const char* row : {"Categories", "Show All Channels"}) {
        Choose(row);
        EXPECT_THAT(Texts(), ElementsAre("<...>", "<No Valid Channels in List>"));
        if (std::string(row) == "Categories") Choose("<...>");
    }
    Choose("<No Valid Channels in List>");
    EXPECT_EQ(audio.PlayMode, PlayNone);
}

} // namespace
} // namespace vk
