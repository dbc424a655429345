// The drawn keyboard, and asking for a text with it.
#include "skin/controls/text_entry_panel.h"
#include "skin/controls/uc_osk.h"
#include "tests/skin/controls_fixture.h"
#include "tests/support/widgets.h"

namespace vk::test {

using Move = void (KeyboardModel::*)();
constexpr int One = 0, A = 20, OK = 29, B = 34, Dot = 37, Shift = 40, Space = 41, Delete = 42,
              Esc = 43;

struct KeyboardTest : testing::Test {
    KeyboardTest() {
        model.onOK = [this](const std::string& text) { events += "OK:" + text + " "; };
        model.onEscape = [this] { events += "Escape"; };
    }
    std::string Typed(const std::vector<int>& keys) {
        for (const int key : keys)
            model.KeyClick(key);
        return model.UserText();
    }
    void Repeat(Move move, int count) {
        for (int i = 0; i < count; ++i)
            (model.*move)();
    }
    /// By arrows from wherever the mark is, over the upper left corner.
    void GoTo(int key) {
        Repeat(&KeyboardModel::MoveUp, 4);
        Repeat(&KeyboardModel::MoveLeft, 9);
        Repeat(&KeyboardModel::MoveDown, key / 10);
        Repeat(&KeyboardModel::MoveRight, key % 10);
        ASSERT_EQ(model.Mark(), key);
    }

    KeyboardModel model;
    std::string events;
};

TEST_F(KeyboardTest, EachWordBeginsWithACapital) {
    const struct {
        std::vector<int> keys;
        const char *text, *shift;
    } cases[] = {{{}, "", "SHIFT"},
                 {{A, Space, B}, "A B", "Shift"},
                 {{A, B, Dot, One, A}, "Ab.1a", "Shift"},
                 {{Shift, A, Shift, B}, "aB", "Shift"},
                 {{A, B, Delete}, "A", "Shift"},
                 {{A, Space, B, Delete}, "A ", "SHIFT"},
                 {{Shift, Delete}, "", "SHIFT"},
                 {{-1, KeyboardModel::KeyCount}, "", "SHIFT"}};
    for (const auto& c : cases) {
        model.ClearInput();
        EXPECT_EQ(Typed(c.keys), c.text);
        EXPECT_EQ(model.KeyCaption(Shift), c.shift) << c.text;
    }
    EXPECT_EQ(events, "");
}

TEST_F(KeyboardTest, AValueIsGoneOnWithInSmallLettersAndDeletedByCharacters) {
    model.SetValue("Road songs");
    EXPECT_EQ(Typed({A}), "Road songsa");
    model.SetValue("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    for (const auto* left : {"a\xC3\xA9\xE2\x82\xAC", "a\xC3\xA9", "a", "", ""})
        EXPECT_EQ(Typed({Delete}), left);
    model.SetValue("Caf\xE9");
    EXPECT_EQ(model.UserText(), "Caf\xC3\xA9");
    for (const auto& [set, shown] :
         {std::pair{"Gr\xFC\xDF", "Gr\xC3\xBC\xC3\x9F"}, {"", "Search For..."}}) {
        model.SetCaption(set);
        EXPECT_EQ(model.Caption(), shown);
    }
}

// The last row is entered by the wide key below, and left only where left edges agree.
TEST_F(KeyboardTest, ArrowsWalkEveryRowAndColumnAndStopAtTheEdges) {
    const int below[] = {40, 40, 40, 41, 41, 41, 41, 42, 43, 43};
    const int above[] = {30, 33, 37, 38};
    for (const int width : {640, 807, 9}) {
        model.UCResize(width, 480);
        for (int key = 0; key < KeyboardModel::KeyCount; ++key) {
            const bool right = key == 43 || (key < 40 && key % 10 == 9);
            const int up = key < 10 ? key : key < 40 ? key - 10 : above[key - 40];
            const int down = key < 30 ? key + 10 : key < 40 ? below[key - 30] : key;
            for (const auto& [move, there] :
                 {std::pair<Move, int>{&KeyboardModel::MoveLeft, key % 10 == 0 ? key : key - 1},
                  {&KeyboardModel::MoveRight, right ? key : key + 1},
                  {&KeyboardModel::MoveUp, up},
                  {&KeyboardModel::MoveDown, down}}) {
                GoTo(key);
                (model.*move)();
                EXPECT_EQ(model.Mark(), there) << key;
            }
        }
    }
    for (const int key : {OK, A, B, Space, OK, Esc}) {
        GoTo(key);
        model.ClickIt();
    }
    EXPECT_EQ(events, "OK: OK:Ab  Escape");
}

TEST_F(KeyboardTest, StepsDownAloneComeToEveryKeyAndOneUpLeadsBackOverTheEdge) {
    std::set<int> seen;
    for (int step = 0; step < 50; ++step, model.StepDown())
        seen.insert(model.Mark());
    EXPECT_EQ(seen.size(), std::size_t{KeyboardModel::KeyCount});
    EXPECT_EQ(model.Mark(), One) << "five steps a column";
    model.StepUp();
    EXPECT_EQ(model.Mark(), Esc);
}

TEST_F(KeyboardTest, KeysOfAPhysicalKeyboardPressTheDrawnOnes) {
    for (const auto* code :
         {"65", "66", "32", "65", "49", "190", "189", "109", "97", "105", "110", "16", "90", "8"})
        EXPECT_TRUE(model.KeyDown(code)) << code;
    for (const auto* code :
         {"13", "27", "37", "40", "%65", "", "x", "112", "95", "106", "-65", "0"})
        EXPECT_FALSE(model.KeyDown(code)) << code;
    EXPECT_EQ(model.UserText(), "Ab A1.--19.");
}

TEST_F(KeyboardTest, RowsAreTenUnitsWideOfSquareKeys) {
    model.UCResize(800, 480);
    const KeyBox& text = model.Label2();
    int left = 0, top = text.Top + text.Height + text.Height * 15 / 100;
    for (int key = 0; key < KeyboardModel::KeyCount; ++key) {
        const KeyBox& box = model.Label1(key);
        const int width = key == 40 ? 240 : key == 41 ? 320 : key == 43 ? 160 : 80;
        EXPECT_EQ(QRect(box.Left, box.Top, box.Width, box.Height), QRect(left, top, width, 80));
        left = (left + box.Width) % 800;
        top += left == 0 ? 80 : 0;
    }
}

struct OSKTest : KeyboardTest, ControlsFixture {
    OSKTest() {
        LoadColours("OSKBGClr=1052688\nOSKTextClr=14737632\nOSKSelBoxClr=49152\n"
                    "OSKSearchTextClr=65535\nLineClr=8421504\n");
        osk.setGeometry(0, 50, 800, 430);
        osk.UseSkin();
        osk.show();
    }
    QRect Place(const KeyBox& box) const {
        return {osk.ScaleLeft() + box.Left, osk.ScaleTop() + box.Top, box.Width, box.Height};
    }
    QPoint Middle(int key) const { return Place(model.Label1(key)).center(); }
    QRgb GroundOf(int key) { return Drawn(osk).pixel(Middle(key) - QPoint(0, 25)); }

    UCOSK osk{context, model, &host};
};

TEST_F(OSKTest, EveryKeyIsPressedByATouchThatStaysOnIt) {
    for (int key = 0; key < Shift; ++key)
        if (key != OK) Click(osk, Middle(key));
    EXPECT_EQ(model.UserText(), "1234567890qwertyuiopasdfghjklzxcvbnm.-!");
    model.ClearInput();
    for (const int key : {B, A, Delete, Space, Shift, A, OK, Esc})
        Click(osk, Middle(key));
    EXPECT_EQ(events, "OK:B a Escape");
    EXPECT_EQ(model.Mark(), 0) << "a touch leaves the mark";
    model.ClearInput();
    Press(osk, Middle(A));
    Release(osk, Middle(B));
    Click(osk, {osk.width() - 1, osk.height() - 1});
    commands.Run([&] { Click(osk, Middle(A)); });
    OSKProperties off = osk.Properties();
    off.Enabled = false;
    osk.SetProperties(off);
    Click(osk, Middle(A));
    EXPECT_EQ(model.UserText(), "") << "slid off, missed, busy, switched off";
    for (const QSize panel : PanelSizes) {
        osk.resize(panel.width() * 96 / 100, panel.height() * 69 / 100);
        EXPECT_GE(model.Label1(0).Height * 10, panel.height()) << panel.width();
        EXPECT_TRUE(osk.rect().contains(Place(model.Label1(43)))) << panel.width();
    }
}

TEST_F(OSKTest, TheMarkedAndThePressedKeyStandOut) {
    const QRgb plain = 0xFF101010;
    EXPECT_EQ(GroundOf(One), Marking);
    model.MoveRight();
    EXPECT_EQ(GroundOf(One), plain);
    EXPECT_EQ(GroundOf(One + 1), Marking);
    Press(osk, Middle(B));
    EXPECT_NE(GroundOf(B), plain);
    Release(osk, Middle(B));
    EXPECT_NE(GroundOf(B), plain);
    clock.Advance(249);
    EXPECT_EQ(GroundOf(B), plain);
    model.KeyClick(A);
    osk.hide();
    EXPECT_EQ(GroundOf(A), plain);
}

TEST_F(OSKTest, TextAndPromptKeepToTheirLinesInColoursThatCanBeRead) {
    const QRect keys(0, Place(model.Label1(0)).top(), osk.width(), 5 * model.Label1(0).Height);
    const QImage empty = Drawn(osk).copy(keys);
    const std::string letters(3000, 'W');
    model.SetValue(letters + "a");
    model.SetCaption(letters);
    const QImage first = Drawn(osk).copy(Place(model.Label2()));
    model.SetValue(letters + "\xC3\xA4");
    EXPECT_NE(Drawn(osk).copy(Place(model.Label2())), first) << "the end of a long text is seen";
    model.SetValue("");
    EXPECT_EQ(Drawn(osk).copy(keys), empty);
    LoadColours("OSKBGClr=0\nOSKTextClr=65793\n");
    osk.UseSkin();
    model.SetValue("WWW");
    for (const KeyBox& box : {model.Label2(), model.Label1(A)})
        EXPECT_GT(Count(Drawn(osk).copy(Place(box).adjusted(9, 9, -9, -9)), 0xFFFFFFFF), 20);
    OSKProperties look = osk.Properties();
    look.SelectionBoxClr = {};
    osk.SetProperties(look);
    EXPECT_EQ(GroundOf(One), 0xFFFFFFFFu);
}

struct TextEntryTest : testing::Test, ControlsFixture {
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
    EXPECT_TRUE(Key("85") && Key("80"));
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
    EXPECT_TRUE(Key("27"));
    EXPECT_EQ(answer, "left");
    Ask("Yes", true);
    entry.Close();
    keyboard.ClickIt();
    EXPECT_EQ(answer, "left") << "nobody waits for it any more";
    RemoteMap codes;
    codes[Action::ok] = "enter";
    Ask("Yes", true);
    EXPECT_TRUE(entry.Key(InputCode("enter", codes)));
    EXPECT_EQ(answer, "Yes");
    for (const auto& [code, on] :
         {std::pair<std::string, bool>{"85", false}, {"8", true}, {"38", true}, {"13", false}})
        EXPECT_EQ(TextEntry::Repeats(InputCode(code, keys)), on) << code;
}

} // namespace vk::test
