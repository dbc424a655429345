#include "skin/controls/folder_rows.h"
#include "skin/controls/message_overlay.h"
#include "skin/controls/skin_dialogs.h"
#include "tests/skin/controls_fixture.h"

#include <QKeyEvent>
#include <QTimer>

#include <gtest/gtest.h>

namespace vk {
namespace {

/// Counts the keys that reach the window.
class KeyCounter : public QWidget {
  public:
    int keys = 0;

  protected:
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

struct DialogsTest : testing::Test, test::CoreFixture {
    DialogsTest() {
        host.resize(800, 480);
        host.show();
        tree = app.MakeFolder("tree");
        for (const char* name : {"tree/b", "tree/A", "tree/A/deep", "tree/.hidden"})
            app.MakeFolder(name);
        app.Write("tree/file.mp3", "x");
    }
    DialogOverlay* Front() {
        DialogOverlay* front = nullptr;
        for (QObject* child : host.children())
            if (auto* dialog = dynamic_cast<DialogOverlay*>(child); dialog && dialog->isVisible())
                front = dialog;
        return front;
    }
    /// Lets the next dialog open, waits until it is no longer deaf, and runs the action.
    void Then(const std::function<void()>& action) {
        QTimer::singleShot(0, &host, [this, action] {
            clock.Advance(1000);
            action();
        });
    }
    void Key(int key, bool repeat = false, const QString& text = {}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text, repeat);
        QCoreApplication::sendEvent(&host, &press);
    }
    void Keys(const std::vector<int>& keys) {
        for (int key : keys)
            Key(key);
    }
    void Type(const std::string& text) {
        for (char c : text)
            Key(0, false, QString(QLatin1Char(c)));
    }
    const DialogCell& Cell(const char* caption) {
        for (const DialogCell& cell : Front()->Cells())
            if (cell.caption == QLatin1String(caption)) return cell;
        ADD_FAILURE() << "no button " << caption;
        return Front()->Cells().front();
    }
    void Touch(QPoint at) { test::Click(*Front(), at); }
    void Touch(const char* caption) { Touch(Cell(caption).box.center()); }

    KeyCounter host;
    SkinDialogs skinDialogs{&host, volumes, clock};
    std::string tree;
};

using Q = Qt::Key;

TEST_F(DialogsTest, AMessageWaitsForItsKeyAndKeepsTheHostFromKeys) {
    Then([this] {
        EXPECT_TRUE(skinDialogs.Active());
        EXPECT_EQ(Front()->geometry(), host.rect());
        EXPECT_GE(Cell("OK").box.height(), 480 / 7);
        Keys({Q::Key_A, Q::Key_Left, Q::Key_Return});
    });
    skinDialogs.ShowMessage("Text", "Title", MessageKind::Warning);
    EXPECT_FALSE(skinDialogs.Active());
    EXPECT_EQ(host.keys, 0);
    Key(Q::Key_A);
    EXPECT_EQ(host.keys, 1);
}

TEST_F(DialogsTest, QuestionsByKeys) {
    struct Case {
        std::vector<int> keys;
        bool answer;
    };
    for (const Case& c : {Case{{Q::Key_Return}, true}, Case{{Q::Key_Enter}, true},
                          Case{{Q::Key_Escape}, false}, Case{{Q::Key_Right, Q::Key_Return}, false},
                          Case{{Q::Key_Right, Q::Key_Left, Q::Key_Return}, true},
                          Case{{Q::Key_Right, Q::Key_Right, Q::Key_Return}, false}}) {
        Then([&] { Keys(c.keys); });
        EXPECT_EQ(skinDialogs.AskYesNo("Sure?"), c.answer);
        Then([&] { Keys(c.keys); });
        EXPECT_EQ(skinDialogs.AskOkCancel("Sure?"), c.answer);
    }
}

TEST_F(DialogsTest, QuestionsByTouch) {
    Then([this] { Touch("No"); });
    EXPECT_FALSE(skinDialogs.AskYesNo("Sure?"));
    Then([this] {
        Touch(QPoint(2, 2));
        test::Press(*Front(), Cell("Cancel").box.center());
        test::Release(*Front(), {2, 2});
        EXPECT_TRUE(skinDialogs.Active()) << "beside the buttons, and slid off one";
        Touch("OK");
    });
    EXPECT_TRUE(skinDialogs.AskOkCancel("Sure?"));
}

TEST_F(DialogsTest, ADoublePressAnswersOneDialogOnly) {
    Then([this] {
        Key(Q::Key_Return);
        QTimer::singleShot(0, &host, [this] {
            Key(Q::Key_Escape);
            EXPECT_TRUE(skinDialogs.Active()) << "too soon after it opened";
            clock.Advance(1000);
            Key(Q::Key_Escape, true);
            EXPECT_TRUE(skinDialogs.Active()) << "the key was still held";
            Key(Q::Key_Return);
        });
    });
    skinDialogs.ShowMessage("One");
    EXPECT_TRUE(skinDialogs.AskYesNo("Two"));
}

TEST_F(DialogsTest, NestedDialogsGoBackToTheOneBelow) {
    bool inner = true;
    Then([&] {
        Then([this] { Key(Q::Key_Escape); });
        inner = skinDialogs.AskYesNo("Inner");
        EXPECT_TRUE(skinDialogs.Active());
        Key(Q::Key_Return);
    });
    EXPECT_TRUE(skinDialogs.AskYesNo("Outer"));
    EXPECT_FALSE(inner);
}

TEST_F(DialogsTest, CloseAllCancelsEveryDialogAndThoseThatFollow) {
    Then([&] {
        Then([this] { skinDialogs.CloseAll(); });
        EXPECT_EQ(skinDialogs.InputBox("Inner", "", "x"), std::nullopt);
        EXPECT_FALSE(skinDialogs.AskYesNo("Late")) << "asked while closing";
    });
    EXPECT_FALSE(skinDialogs.AskOkCancel("Outer"));
    EXPECT_FALSE(skinDialogs.Active());
    skinDialogs.CloseAll();
    Then([this] { Key(Q::Key_Return); });
    EXPECT_TRUE(skinDialogs.AskYesNo("Later"));
}

TEST_F(DialogsTest, ADialogStaysInFrontAndFollowsTheWindowsSize) {
    QWidget screen(&host);
    screen.show();
    Then([&] {
        screen.raise();
        EXPECT_EQ(host.children().last(), Front());
        host.resize(640, 480);
        EXPECT_EQ(Front()->width(), 640);
        EXPECT_LT(Cell("No").box.right(), 640);
        Key(Q::Key_Escape);
    });
    EXPECT_FALSE(skinDialogs.AskYesNo("Sure?"));
}

TEST_F(DialogsTest, TheWindowMayGoUnderADialog) {
    auto* doomed = new QWidget;
    doomed->show();
    SkinDialogs other(doomed, volumes, clock);
    Then([&] { delete doomed; });
    EXPECT_FALSE(other.AskYesNo("Sure?"));
    EXPECT_FALSE(other.Active());
}

TEST_F(DialogsTest, ALongTextScrollsByKeysAndFinger) {
    Then([this] {
        auto* message = dynamic_cast<MessageOverlay*>(Front());
        ASSERT_TRUE(message);
        EXPECT_LE(Cell("OK").box.bottom(), 480);
        Key(Q::Key_Up);
        EXPECT_EQ(message->Scrolled(), 0);
        Key(Q::Key_Down);
        const int scrolled = message->Scrolled();
        EXPECT_GT(scrolled, 50);
        test::Press(*message, {300, 300});
        test::Drag(*message, {300, 280});
        EXPECT_EQ(message->Scrolled(), scrolled + 20);
        test::Release(*message, {300, 280});
        Key(Q::Key_Return);
    });
    skinDialogs.ShowMessage(std::string(4000, 'w'));
}

TEST_F(DialogsTest, DialogsWearTheSkin) {
    const auto panel = [&] {
        QRgb colour = 0;
        Then([&] {
            colour = host.grab().toImage().pixel(400, Cell("OK").box.top() - 6);
            Key(Q::Key_Return);
        });
        skinDialogs.ShowMessage("Text");
        return colour;
    };
    const QRgb builtIn = panel();
    app.Write("skins/My.skn", "[colors]\nOSKBGClr=197121\nOSKTextClr=197379\n");
    state.CurrentSkinFile = "My.skn";
    SkinStore skin({state, settings, fonts, dialogs, report, [] { return 800; }});
    skinDialogs.SetSkin(&skin);
    EXPECT_EQ(panel(), builtIn) << "the skin is not loaded yet";
    skin.LoadSkin();
    EXPECT_EQ(panel(), 0xFF010203u);
    EXPECT_EQ(DialogLookOf(&skin).text, QColor(Qt::white)) << "dark text on dark ground";
}

TEST_F(DialogsTest, TypingEditsAndEnterAccepts) {
    Then([this] {
        Key(Q::Key_Backspace);
        Type("nd 7");
        Key(Q::Key_Return);
    });
    EXPECT_EQ(skinDialogs.InputBox("Name:", "Save", "Foe"), "Fond 7");
    Then([this] {
        Type("x");
        Key(Q::Key_Escape);
    });
    EXPECT_EQ(skinDialogs.InputBox("Name:", "Save", "Foe"), std::nullopt);
    EXPECT_EQ(host.keys, 0);
}

TEST_F(DialogsTest, DrawnKeysWorkByArrowsAndTouch) {
    Then([this] {
        Touch("q");
        Touch("ABC");
        Touch("Q");
        Touch("#+=");
        Touch("?");
        Touch("abc");
        Touch("Space");
        Touch("w");
        Touch("Delete");
        Touch("w");
        Keys({Q::Key_Right, Q::Key_Return, Q::Key_Up, Q::Key_Return, Q::Key_Left, Q::Key_Return});
        Keys({Q::Key_Down, Q::Key_Down, Q::Key_Down, Q::Key_Down, Q::Key_Down});
        EXPECT_GE(Front()->Marked(), 40) << "the row of the buttons";
        Touch("OK");
    });
    EXPECT_EQ(skinDialogs.InputBox("Name:", "", ""), "qQ? we32");
}

TEST_F(DialogsTest, AFolderIsFoundByKeys) {
    Then([this] {
        Keys({Q::Key_Down, Q::Key_Return});
        Keys({Q::Key_Right, Q::Key_Left, Q::Key_Right, Q::Key_Return});
    });
    EXPECT_EQ(skinDialogs.ChooseFolder("Music\nlies in", tree), tree + "/A");
    Then([this] { Keys({Q::Key_Right, Q::Key_Down, Q::Key_Down, Q::Key_Return}); });
    EXPECT_EQ(skinDialogs.ChooseFolder("Music", tree), "") << "the cancel button";
    Then([this] { Keys({Q::Key_Return, Q::Key_Escape}); });
    EXPECT_EQ(skinDialogs.ChooseFolder("Music", tree), "");
}

TEST_F(DialogsTest, AFolderIsFoundByTouch) {
    Then([this] {
        Touch(QPoint(60, Cell("Select this folder").box.top() + 60 * 2 + 10));
        Touch("Select this folder");
    });
    EXPECT_EQ(skinDialogs.ChooseFolder("Music", tree), tree + "/b");
}

TEST_F(DialogsTest, GoingUpLeavesTheCursorOnTheFolderThatWasLeft) {
    Then([this] {
        Keys({Q::Key_Return, Q::Key_Return});
        Keys({Q::Key_Right, Q::Key_Return});
    });
    EXPECT_EQ(skinDialogs.ChooseFolder("Music", tree + "/A"), tree + "/A");
}

TEST_F(DialogsTest, ANewFolderIsMadeAndEntered) {
    const auto make = [this](const std::string& name) {
        Then([this, name] {
            Type(name);
            Key(Q::Key_Return);
        });
        Keys({Q::Key_Right, Q::Key_Down, Q::Key_Return});
    };
    Then([&] {
        make("Fresh");
        Key(Q::Key_Return);
    });
    EXPECT_EQ(skinDialogs.ChooseFolder("Music", tree), tree + "/Fresh");
    EXPECT_TRUE(FolderExists(tree + "/Fresh"));
    Then([&] {
        Then([this] {
            Type("a/b");
            Key(Q::Key_Return);
            Then([this] { Key(Q::Key_Return); });
        });
        Keys({Q::Key_Right, Q::Key_Down, Q::Key_Return});
        Key(Q::Key_Escape);
    });
    EXPECT_EQ(skinDialogs.ChooseFolder("Music", tree), "");
    EXPECT_FALSE(FolderExists(tree + "/a"));
}

TEST_F(DialogsTest, TheStartingPlacesAreHomeMediaAndRoot) {
    volumes.drives = {{tree, DriveType::Removable}, {"/mnt/empty", DriveType::CdRom}};
    volumes.ready = {tree};
    volumes.labels[tree] = "STICK";
    FolderRows rows(volumes, app.Path());
    rows.Enter("");
    ASSERT_EQ(rows.Rows().size(), 3u);
    EXPECT_EQ(rows.Rows()[0].path, app.Path());
    EXPECT_EQ(rows.Rows()[1].caption, "STICK (" + tree + ")");
    EXPECT_EQ(rows.Rows()[2].path, "/");
    EXPECT_FALSE(rows.Make("x"));
    rows.Enter(tree + "/");
    ASSERT_EQ(rows.Rows().size(), 3u) << "no files, nothing hidden";
    EXPECT_EQ(rows.Rows()[0].caption, "<...>");
    EXPECT_EQ(rows.Rows()[0].path, "") << "above a medium are the starting places";
    EXPECT_EQ(rows.Rows()[1].caption, "A");
    EXPECT_EQ(rows.Rows()[2].caption, "b");
    for (const char* bad : {"", " ", "..", ".", "a/b"})
        EXPECT_FALSE(rows.Make(bad)) << bad;
    rows.Enter("/no/such/folder");
    EXPECT_EQ(rows.Path(), app.Path());
}

TEST_F(DialogsTest, WithoutAFolderNothingCanBeSelected) {
    volumes.drives = {{tree, DriveType::Removable}};
    volumes.ready = {tree};
    Then([this] {
        Key(Q::Key_Return);
        Touch("Select this folder");
        EXPECT_TRUE(skinDialogs.Active());
        Keys({Q::Key_Right, Q::Key_Return});
    });
    EXPECT_EQ(skinDialogs.ChooseFolder("Music", tree), "");
}

} // namespace
} // namespace vk
