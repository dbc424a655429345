#include "tests/core/menu_fixture.h"
#include "tests/support/action_table.h"

namespace vk::test {
namespace {

struct QuietView : MenuView {
    void ShowIcons() override {}
    void DrawIcon(int, bool) override {}
    void ShowFrame(bool) override {}
    void SetClockBar(const std::string& text) override { clockBar = text; }
    void ShowBanner(const std::string&) override {}
    void RefreshClockColours() override {}
    void DoLayout() override {}
    std::string clockBar;
};

struct MenuKeysTest : testing::Test, MenuFixture {};

TEST_F(MenuKeysTest, EveryActionReachesItsOperationAndNoOther) {
    app.Write("skins/T.skn", "[IconNames]\nNames=a b c d e\n[a]\nfunction=6\nof_above=2\n"
                             "of_below=3\nof_left=4\nof_right=5\n[b]\n[c]\n[d]\n[e]\n");
    state.CurrentSkinFile = "T.skn";
    skin.LoadSkin();
    QuietView view;
    MainMenu menu(MenuNeeds(), view);
    menu.LoadSelections();
    menu.CurrentSelection = 1;
    const auto effect = [&] {
        std::string text = view.clockBar;
        if (menu.CurrentSelection != 1) text += "icon " + std::to_string(menu.CurrentSelection);
        if (settingsOpened > 0) text += "settings";
        if (exits > 0) text += "exit";
        if (window.cursor) text += "pointer";
        view.clockBar.clear();
        menu.CurrentSelection = 1;
        settingsOpened = exits = 0;
        window.cursor = false;
        return text;
    };
    effect();
    ExpectTable(menu, keys,
                {{Action::gps, "You have no GPS module configured"},
                 {Action::ok, "You have no GPS module configured"},
                 {Action::up, "icon 2"},
                 {Action::down, "icon 3"},
                 {Action::back, "icon 4"},
                 {Action::forward, "icon 5"},
                 {Action::SWMP, "settings"},
                 {Action::quit, "pointer"},
                 {Action::power, "exit"}},
                effect);
}

} // namespace
} // namespace vk::test
