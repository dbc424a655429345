#include "skin/controls/text_entry_panel.h"
#include "tests/skin/controls_fixture.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

struct TextEntryTest : testing::Test, test::ControlsFixture {
    TextEntryTest() {
        panel.Place({0, 50, 800, 430});
        panel.onSlide = [this](bool open) { slides += open ? "in " : "out "; };
        keys[Action::vup] = "85"; // which is a letter, too
        keys[Action::ok] = "112";
    }
    void Ask(const std::string& value, bool startOnOK = false) {
        entry.Open({.caption = "Name",
                    .value = value,
                    .refuse = [](const std::string& text) { return text == "No" ? "Taken" : ""; },
                    .answer = [this](const auto& text) { answer = text.value_or("left"); },
                    .startOnOK = startOnOK});
    }
    bool Key(const std::string& code) { return entry.Key(InputCode(code, keys)); }

    KeyMap keys;
    KeyboardModel keyboard;
    TextEntryPanel panel{context, keyboard, &host};
    TextEntry entry{keyboard, panel};
    std::string answer, slides;
};

TEST_F(TextEntryTest, ATextIsAskedForByKeysAndTheKeyboardSlidesInAndOut) {
    EXPECT_FALSE(Key("65"));
    Ask("");
    EXPECT_EQ(clock.TickMs(), 60);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.geometry(), QRect(0, 50, 800, 430));
    for (const char* code : {"85", "80"})
        EXPECT_TRUE(Key(code));
    EXPECT_FALSE(Key("120")) << "the host's";
    keyboard.MarkKey(KeyboardModel::OKKey);
    EXPECT_TRUE(Key("112"));
    EXPECT_EQ(answer, "Up");
    EXPECT_EQ(slides, "in out ");
    EXPECT_FALSE(panel.isVisible() || entry.IsOpen());
}

TEST_F(TextEntryTest, ARefusedTextStaysUntilItIsTakenOrLeft) {
    Ask("No", true);
    EXPECT_TRUE(Key("13"));
    EXPECT_EQ(keyboard.Caption(), "Taken");
    EXPECT_TRUE(entry.IsOpen());
    EXPECT_TRUE(Key("27"));
    EXPECT_EQ(answer, "left");
    Ask("Yes", true);
    answer.clear();
    entry.Close();
    keyboard.ClickIt();
    EXPECT_EQ(answer, "") << "nobody waits for it any more";
    RemoteMap codes;
    codes[Action::ok] = "enter";
    Ask("Yes", true);
    EXPECT_TRUE(entry.Key(InputCode("enter", codes)));
    EXPECT_EQ(answer, "Yes");
    for (const auto& [code, on] :
         {std::pair<std::string, bool>{"85", false}, {"8", true}, {"38", true}, {"13", false}})
        EXPECT_EQ(TextEntry::Repeats(InputCode(code, keys)), on) << code;
}

} // namespace
} // namespace vk
