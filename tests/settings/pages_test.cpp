// The pages as rows of data: what the kinds of rows do, and how one moves about.
#include "settings/pages/page_screen.h"
#include "tests/support/action_table.h"
#include "tests/support/core_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

namespace vk::test {
namespace {

struct CountingView : PageView {
    void DoLayout() override {}
    void ShowPage() override { ++shown; }
    void HidePage() override { ++hidden; }
    void Draw() override {}
    int shown = 0, hidden = 0;
};

const Items Kinds{"Which?", "Out with ", "?", "Kinds", [] { return true; }, [] {}};

struct PagesTest : testing::Test, CoreFixture {
    void Show(std::vector<Row> rows) {
        pages.Add({.name = "first",
                   .tab = "First",
                   .rows = std::move(rows),
                   .leave = [this] { ++left; },
                   .quit = [this] { ++left; }});
        pages.Add({.name = "second", .tab = "Second", .rows = {ButtonRow("x", [] {})}});
        pages.AddTo(screens);
        screens.Show("first");
    }
    void Touch(const std::string& text) {
        const auto plates = pages.Plates();
        for (std::size_t i = 0; i < plates.size(); ++i)
            if (plates[i].text() == text) return pages.Touch(static_cast<int>(i));
        ADD_FAILURE() << "no plate " << text;
    }
    bool Shows(const std::string& text) {
        return std::ranges::any_of(pages.Plates(),
                                   [&](const Plate& plate) { return plate.text() == text; });
    }
    std::string MarkedText() {
        return pages.Plates()[static_cast<std::size_t>(pages.Marked())].text();
    }
    KeyMap keys;
    CountingView view;
    SettingsPages pages{screens, keys, view};
    int left = 0;
};

TEST_F(PagesTest, EachKindOfRowSetsItsSetting) {
    app.Write("settings.ini", "[main]\nTime1=7:05:00 AM\nmutespeed=55\nCurrentSkin=B.skn\n"
                              "[audio_player]\nAudioExtensions=MP3:WAV\n");
    settings.LoadSettings();
    const auto skins = [] { return std::vector<Option>{{"A.skn", "A"}, {"B.skn", "B"}}; };
    const std::pair<Row, const SettingRow*> rows[] = {
        {ToggleRow(settings, setting::ShowClock), &setting::ShowClock},
        {StepperRow(settings, setting::mutespeed), &setting::mutespeed},
        {ChoiceRow(settings, setting::CurrentSkin, skins), &setting::CurrentSkin},
        {TextRow(settings, dialogs, setting::VisWindowName), &setting::VisWindowName},
        {FolderRow(settings, dialogs, setting::MediaDir), &setting::MediaDir},
        {TimeRow(settings, setting::Time1), &setting::Time1},
        {ItemsRow(settings, dialogs, setting::AudioExtensions, Kinds), &setting::AudioExtensions}};
    dialogs.inputs = {"Flames", " ogg"};
    dialogs.folders = {"/music"};
    dialogs.answers = {true};
    struct Case {
        std::size_t row;
        int end; // -1: the row itself
        const char* written;
    };
    for (const Case& c : {Case{0, -1, "true"},
                          {0, -1, "false"},
                          {1, 0, "50"},
                          {1, 1, "60"},
                          {2, 1, "A.skn"},
                          {2, 0, "B.skn"},
                          {3, -1, "Flames"},
                          {4, -1, "/music"},
                          {5, 1, "7:15:00 AM"},
                          {5, 0, "7:00:00 AM"},
                          {6, 2, "MP3:WAV:OGG"},
                          {6, 3, "MP3:WAV"}}) {
        const auto& [row, written] = rows[c.row];
        c.end < 0 ? row.use() : row.ends[static_cast<std::size_t>(c.end)].use();
        EXPECT_EQ(settings.Text(*written), c.written) << written->name;
    }
    EXPECT_EQ(rows[1].first.text(), "Mute Speed in Milliseconds Per Increment: 60 ms");
    EXPECT_EQ(rows[2].first.text(), "Day skin: B");
    EXPECT_EQ(rows[5].first.text(), "Switch to Daytime Skin at: 7:00:00 AM");
    for (int i = 0; i < 30; ++i)
        rows[1].first.ends[1].use();
    EXPECT_EQ(settings.values.mutespeed, 200) << "its limit";
    settings.values.Time1 = "12:00:00 AM";
    rows[5].first.ends[0].use();
    EXPECT_EQ(settings.values.Time1, "11:45:00 PM");
}

TEST_F(PagesTest, ThePlatesLieInLinesOnSheets) {
    Row text = ProgressRow([] { return std::string("text"); });
    Row second = ButtonRow("b", [] {});
    second.sheet = "Third";
    std::vector<Row> rows(4, text);
    rows.push_back(ButtonRow("a", [] {}));
    rows.push_back(second);
    rows.push_back(StepRow([] { return std::string("s"); }, [](int) {}));
    Show(rows);
    EXPECT_TRUE(Shows("More") && !Shows("a"));
    Touch("More");
    EXPECT_TRUE(Shows("a") && !Shows("b"));
    EXPECT_EQ(MarkedText(), "Third") << "the mark stays where the sheets are turned";
    Touch("Third");
    const auto plates = pages.Plates();
    ASSERT_EQ(plates.size(), 2u + 4u + 2u);
    const auto place = [&](std::size_t i) {
        const int parts = ColumnParts;
        return std::tuple(plates[i].line, plates[i].left / parts, plates[i].width / parts);
    };
    EXPECT_EQ(place(2), std::tuple(1, 0, 12));
    EXPECT_EQ(place(3), std::tuple(1, 12, 6));
    EXPECT_EQ(place(5), std::tuple(1, 21, 3));
    EXPECT_EQ(place(6), std::tuple(BoardLines - 1, 0, 20)) << "Done beside More";
    Touch("More");
    EXPECT_EQ(MarkedText(), "More");
}

TEST_F(PagesTest, EverythingIsReachedByDownAloneAndUpAndDownComeBack) {
    std::vector<Row> rows = {ButtonRow(
        "whole", [] {}, Row::Whole)};
    for (const char* caption : {"1", "2", "3", "4"})
        rows.push_back(ButtonRow(
            caption, [] {}, Row::Quarter));
    rows.push_back(StepRow([] { return std::string("s"); }, [](int) {}));
    rows.push_back(ButtonRow("off", [] {}));
    rows.back().usable = [] { return false; };
    Show(rows);
    const ScreenOperations& screen = *screens.Current();
    std::set<std::string> seen;
    for (int press = 0; press < 8 * BoardLines; ++press, screen.Form_KeyDown("40"))
        seen.insert(MarkedText());
    EXPECT_EQ(seen, (std::set<std::string>{"First", "Second", "whole", "1", "2", "3", "4", "-", "+",
                                           "Done"}));
    Touch("4");
    for (const char* way : {"38", "40", "40", "38"})
        screen.Form_KeyDown(way);
    EXPECT_EQ(MarkedText(), "4");
}

TEST_F(PagesTest, APageIsAScreenOfItsNameInOneWindow) {
    Show({ButtonRow("a", [] {})});
    EXPECT_EQ(screens.CurrentForm, "first");
    Touch("Second");
    EXPECT_EQ(screens.CurrentForm, "second");
    EXPECT_EQ(left, 1);
    EXPECT_EQ(view.shown, 2);
    EXPECT_EQ(view.hidden, 0) << "the window stays for the other page";
    screens.Current()->Form_KeyDown("27");
    EXPECT_EQ(screens.CurrentForm, "first");
    screens.HideOthers("playmp3");
    EXPECT_EQ(view.hidden, 1);
}

TEST_F(PagesTest, EveryActionReachesItsOperationAndNoOther) {
    int used = 0;
    Show({ButtonRow(
              "a", [] {}, Row::Third),
          ButtonRow(
              "b", [&] { ++used; }, Row::Third),
          ButtonRow(
              "c", [] {}, Row::Third)});
    Touch("b");
    used = 0;
    ExpectTable(*screens.Find("first"), keys,
                {{Action::ok, "used"},
                 {Action::quit, "left"},
                 {Action::up, "First"},
                 {Action::down, "Done"},
                 {Action::back, "a"},
                 {Action::forward, "c"}},
                [&]() -> std::string {
                    if (std::exchange(used, 0)) return "used";
                    if (std::exchange(left, 0)) return "left";
                    const std::string at = MarkedText();
                    Touch("b");
                    used = 0;
                    return at == "b" ? "" : at;
                });
}

} // namespace
} // namespace vk::test
