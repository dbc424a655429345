#include "skin/dialogs/folder_rows.h"
#include "skin/dialogs/message_overlay.h"
#include "skin/dialogs/skin_dialogs.h"
#include "tests/skin/controls_fixture.h"

#include <QKeyEvent>
#include <QTimer>
#include <QWheelEvent>

#include <array>
#include <filesystem>
#include <map>
#include <set>

namespace vk::test {

/// Counts the keys that reach the window.
class KeyCounter : public QWidget {
  public:
    int keys = 0;

  protected:
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

// Keys are written as characters: < > ^ _ are the arrows, ! is Escape, the others type themselves.
struct DialogsTest : testing::Test, CoreFixture {
    DialogsTest() {
        clock.onEvents = [] { QCoreApplication::processEvents(); };
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
    void Then(const char* keys) {
        Then([this, keys] { Keys(keys); });
    }
    void Keys(const std::string& keys, bool repeat = false) {
        static const std::map<char, Qt::Key> special = {
            {'<', Qt::Key_Left},    {'>', Qt::Key_Right},  {'^', Qt::Key_Up},
            {'_', Qt::Key_Down},    {'!', Qt::Key_Escape}, {'\b', Qt::Key_Backspace},
            {'\n', Qt::Key_Return}, {'\r', Qt::Key_Enter}};
        for (char c : keys) {
            const bool typed = !special.contains(c);
            QKeyEvent press(QEvent::KeyPress, typed ? 0 : special.at(c), Qt::NoModifier,
                            typed ? QString(QLatin1Char(c)) : QString(), repeat);
            QCoreApplication::sendEvent(&host, &press);
        }
    }
    const DialogCell& Cell(const char* caption) {
        for (const DialogCell& cell : Front()->Cells())
            if (cell.caption == QString::fromUtf8(caption)) return cell;
        ADD_FAILURE() << "no button " << caption;
        return Front()->Cells().front();
    }
    void Touch(QPoint at) { Click(*Front(), at); }
    /// A message that the keys, or the action, answer.
    template<class Does> void Tell(Does does, const std::string& text = std::string(4000, 'w')) {
        Then(does);
        skinDialogs.ShowMessage(text, "Title", MessageKind::Warning);
    }
    void Touch(const char* caption) { Touch(Cell(caption).box.center()); }
    /// The answer to a question, a text or a folder that the action, or the keys, lead to.
    template<class Does> bool Asked(Does does) {
        Then(does);
        return skinDialogs.AskYesNo("Sure?");
    }
    template<class Does> std::optional<std::string> Typed(Does does, const std::string& value) {
        Then(does);
        return skinDialogs.InputBox("Name:", "Save", value);
    }
    template<class Does> std::string Chosen(Does does, const std::string& start) {
        Then(does);
        return skinDialogs.ChooseFolder("Music\nlies in", start);
    }

    KeyCounter host;
    Surfaces surfaces;
    SkinDialogs skinDialogs{&host, volumes, clock, pump, surfaces};
    std::string tree;
};

TEST_F(DialogsTest, AMessageWaitsForItsKeyAndKeepsTheHostFromKeys) {
    const auto answer = [this] {
        EXPECT_EQ(Front()->geometry(), host.rect());
        EXPECT_GE(Cell("OK").box.height(), 480 / 7);
        Keys("a<");
        EXPECT_TRUE(skinDialogs.Active());
        Keys("\n");
    };
    Tell(answer, "Text");
    EXPECT_FALSE(skinDialogs.Active());
    EXPECT_EQ(host.keys, 0);
    Keys("a");
    EXPECT_EQ(host.keys, 1);
}

TEST_F(DialogsTest, QuestionsByKeysAndTouch) {
    const std::pair<const char*, bool> cases[] = {{"\n", true},   {"\r", true},   {"!", false},
                                                  {">\n", false}, {"><\n", true}, {">>\n", false},
                                                  {"_\n", false}, {"__\n", true}, {"^\n", false}};
    for (const auto& [keys, answer] : cases) {
        EXPECT_EQ(Asked(keys), answer);
        Then(keys);
        EXPECT_EQ(skinDialogs.AskOkCancel("Sure?"), answer);
    }
    commands.Run([this] { EXPECT_FALSE(Asked([this] { Touch("No"); })) << "in a command, too"; });
    Then([this] {
        Touch(QPoint(2, 2));
        Press(*Front(), Cell("Cancel").box.center());
        Release(*Front(), {2, 2});
        EXPECT_TRUE(skinDialogs.Active()) << "beside the buttons, and slid off one";
        Touch("OK");
    });
    EXPECT_TRUE(skinDialogs.AskOkCancel("Sure?"));
}

TEST_F(DialogsTest, ADoublePressAnswersOneDialogOnly) {
    Then([this] {
        Keys("\n");
        QTimer::singleShot(0, &host, [this] {
            Keys("!");
            EXPECT_TRUE(skinDialogs.Active()) << "too soon after it opened";
            clock.Advance(1000);
            Keys("!", true);
            EXPECT_TRUE(skinDialogs.Active()) << "the key was still held";
            Keys("\n");
        });
    });
    skinDialogs.ShowMessage("One");
    EXPECT_TRUE(skinDialogs.AskYesNo("Two"));
}

TEST_F(DialogsTest, NestedDialogsGoBackToTheOneBelowUntilAllAreClosed) {
    int closed = 0;
    std::string program;
    surfaces.Put("map", {Layer::Program, [] {}, [&](bool on) { program += on ? "on " : "off "; }});
    skinDialogs.onClosed = [&] { ++closed; };
    EXPECT_TRUE(Asked([&] {
        EXPECT_FALSE(Asked("!"));
        EXPECT_TRUE(skinDialogs.Active());
        EXPECT_EQ(closed, 0);
        Keys("\n");
    }));
    EXPECT_EQ(program, "on off on ") << "it makes way once";
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(Asked([&] {
        EXPECT_EQ(Typed([this] { skinDialogs.CloseAll(); }, "x"), std::nullopt);
        EXPECT_FALSE(skinDialogs.AskYesNo("Late")) << "asked while closing";
    }));
    EXPECT_FALSE(skinDialogs.Active());
    EXPECT_FALSE(skinDialogs.AskYesNo("Later")) << "asked while the program ends";
    EXPECT_TRUE(skinDialogs.Ending());
}

TEST_F(DialogsTest, ADialogStaysInFrontFollowsTheWindowsSizeAndMayGoWithIt) {
    QWidget screen(&host);
    screen.show();
    EXPECT_FALSE(Asked([&] {
        screen.raise();
        EXPECT_EQ(host.children().last(), Front());
        host.resize(640, 480);
        EXPECT_EQ(Front()->width(), 640);
        EXPECT_LT(Cell("No").box.right(), 640);
        Keys("!");
    }));
    auto* doomed = new QWidget;
    doomed->show();
    SkinDialogs other(doomed, volumes, clock, pump, surfaces);
    Then([&] { delete doomed; });
    EXPECT_FALSE(other.AskYesNo("Sure?"));
    EXPECT_FALSE(other.Active());
}

TEST_F(DialogsTest, ALongTextScrollsByKeysFingerAndFineTurnsOfTheWheel) {
    Tell([this] {
        auto* message = dynamic_cast<MessageOverlay*>(Front());
        ASSERT_TRUE(message);
        EXPECT_LE(Cell("OK").box.bottom(), 480);
        Keys("^");
        for (int part = 0; part < 4; ++part) {
            EXPECT_EQ(message->Scrolled(), 0);
            QWheelEvent turn({9, 9}, {9, 9}, {}, {0, -30}, {}, {}, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(message, &turn);
        }
        const int turned = message->Scrolled();
        EXPECT_GT(turned, 0);
        Keys("_");
        const int scrolled = message->Scrolled();
        EXPECT_GT(scrolled, turned + 50);
        Press(*message, {300, 300});
        Drag(*message, {300, 280});
        EXPECT_EQ(message->Scrolled(), scrolled + 20);
        Release(*message, {300, 280});
        Keys("\n");
    });
}

TEST_F(DialogsTest, DialogsWearTheSkin) {
    const auto panel = [&] {
        QRgb colour = 0;
        Tell([&] {
            colour = host.grab().toImage().pixel(400, Cell("OK").box.top() - 6);
            Keys("\n");
        });
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

TEST_F(DialogsTest, ATextIsTypedByKeysAndOnDrawnKeysByArrowsAndTouch) {
    EXPECT_EQ(Typed("\bnd 7\n", "Foe"), "Fond 7");
    EXPECT_EQ(Typed("x!", "Foe"), std::nullopt);
    EXPECT_EQ(host.keys, 0);
    const auto touch = [this] {
        for (const char* key : {"q", "ABC", "Q", "#+=", "?", "abc", "Space", "w", "Delete", "w"})
            Touch(key);
        Keys(">\n^\n<\n____");
        EXPECT_GE(Front()->Marked(), 40) << "the row of the buttons";
        std::set<int> marked;
        for (int press = 0; press < 60; ++press, Keys("_"))
            marked.insert(Front()->Marked());
        EXPECT_EQ(marked.size(), Front()->Cells().size()) << "by one key alone";
        Touch("OK");
    };
    EXPECT_EQ(Typed(touch, ""), "qQ? we32");
}

TEST_F(DialogsTest, TheRemoteWorksTheDialogInFront) {
    RemoteMap codes;
    for (const ActionNames& names : Actions)
        codes[names.action] = names.remote;
    const auto send = [&](const std::string& code, bool repeat = false) {
        return skinDialogs.DoAction(InputCode(code, codes), repeat);
    };
    const int before = skinDialogs.Changes();
    EXPECT_FALSE(send("ok")) << "no dialog is open";
    QTimer::singleShot(0, &host, [&] {
        EXPECT_TRUE(send("ok")) << "it is deaf at first";
        clock.Advance(1000);
        EXPECT_TRUE(send("ok", true)) << "a button that was held before";
        EXPECT_EQ(skinDialogs.Changes(), before + 1);
        for (const char* code : {"mute", "4711", "forward", "ok"})
            EXPECT_TRUE(send(code));
    });
    EXPECT_FALSE(skinDialogs.AskYesNo("Sure?"));
    EXPECT_EQ(skinDialogs.Changes(), before + 2);
    EXPECT_FALSE(Asked([&] { send("quit"); }));
    EXPECT_TRUE(Asked([&] { send("ok"); }));
}

TEST_F(DialogsTest, MappedKeysWorkADialog) {
    KeyMap keys;
    keys[Action::ok] = "79"; // O
    keys[Action::forward] = "37";
    keys[Action::pagedown] = "39"; // which no map can take
    skinDialogs.SetKeys(&keys);
    const auto type = [this](Qt::Key key, const char* text) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString::fromLatin1(text));
        QCoreApplication::sendEvent(&host, &press);
    };
    for (const Qt::Key right : {Qt::Key_Left, Qt::Key_Right})
        EXPECT_FALSE(Asked([&] {
            type(right, "");
            type(Qt::Key_O, "o");
        })) << "moved to No";
    keys[Action::pageup] = "80"; // P
    const auto text = [&] {
        type(Qt::Key_P, "p");
        type(Qt::Key_O, "o");
    };
    EXPECT_EQ(Typed(text, "x"), "xp") << "where a text is typed only what answers does not type";
}

TEST_F(DialogsTest, AFolderIsFoundByKeysAndTouchOrMadeAndEntered) {
    std::filesystem::create_symlink("nowhere", tree + "/0broken");
    const std::array<std::string, 3> cases[] = {
        {tree, "_\n><>\n", tree + "/A"},
        {tree, ">__\n", ""}, // the cancel button
        {tree, "^\n", ""},
        {tree, "_\n^^^\n", tree + "/A"}, // up and down alone
        {tree, "_\n___^__\n", ""},
        {tree, "b\n>\n", tree + "/b"}, // by its letter
        {tree, "\n!", ""},
        {tree + "/A", "\n\n>\n", tree + "/A"}}; // up, and back to the folder that was left
    for (const auto& [from, keys, chosen] : cases)
        EXPECT_EQ(Chosen(keys.c_str(), from), chosen) << keys;
    const auto touch = [this] {
        Touch(QPoint(60, Cell("Select this folder").box.top() + 60 * 2 + 10));
        Touch("Select this folder");
    };
    EXPECT_EQ(Chosen(touch, tree), tree + "/b");
    const auto make = [this] {
        Then("Fresh\n");
        Keys(">_\n\n");
    };
    EXPECT_EQ(Chosen(make, tree), tree + "/Fresh");
    EXPECT_TRUE(FolderExists(tree + "/Fresh"));
    const auto refused = [this] {
        Then([this] {
            Then("\n"); // to the message
            Keys("a/b\n");
        });
        Keys(">_\n!");
    };
    EXPECT_EQ(Chosen(refused, tree), "");
    EXPECT_FALSE(FolderExists(tree + "/a"));
    for (char letter = 'c'; letter <= 'z'; ++letter)
        MakeFolder(tree + "/" + letter);
    const auto slid = [this] {
        const QRect select = Cell("Select this folder").box;
        Touch(QPoint(select.left() - 1, Cell("\xE2\x96\xBC").box.center().y()));
        Touch(QPoint(60, select.top() + 10));
        Touch("Select this folder");
    };
    EXPECT_GT(Chosen(slid, tree), tree + "/m") << "by the scroll mark";
}

TEST_F(DialogsTest, ARowIsChosenByKeysAndTouchAndRowsBeyondTheScreenScroll) {
    std::vector<std::string> rows(12);
    for (std::size_t row = 0; row < rows.size(); ++row)
        rows[row] = "row " + std::to_string(row);
    const auto chosen = [&](const auto& does, int marked) {
        Then(does);
        return skinDialogs.Choose("Rows", rows, marked).value_or(-1);
    };
    EXPECT_EQ(chosen("\n", 11), 11) << "what holds now is on show and marked";
    EXPECT_EQ(chosen("_______\n", 0), 7);
    EXPECT_EQ(chosen("^^^\n", 9), 6);
    EXPECT_EQ(chosen("!", 3), -1);
    const auto touched = [this] {
        Touch("\xE2\x96\xBC");
        Touch("row 5");
    };
    EXPECT_EQ(chosen(touched, 0), 5);
    EXPECT_EQ(chosen([this] { Touch("Cancel"); }, 0), -1);
    rows.resize(2);
    EXPECT_EQ(chosen("__^\n", 0), 1) << "down again leads to the cancelling button";
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
    EXPECT_EQ(rows.Rows()[0].path, "") << "above a medium are the starting places";
    EXPECT_EQ(rows.Rows()[1].caption + rows.Rows()[2].caption, "Ab");
    for (const char* bad : {"", " ", "..", ".", "a/b"})
        EXPECT_FALSE(rows.Make(bad)) << bad;
    const std::string second = app.MakeFolder("second");
    EXPECT_FALSE(rows.LookForMedia()) << "what is there at first is nothing new";
    volumes.drives.push_back({second, DriveType::Removable});
    volumes.ready.insert(second);
    EXPECT_TRUE(rows.LookForMedia());
    EXPECT_EQ(rows.Rows()[0].path, second) << "offered wherever one is";
    EXPECT_EQ(rows.Rows().size(), 4u);
    volumes.ready.erase(second);
    EXPECT_TRUE(rows.LookForMedia());
    EXPECT_EQ(rows.Rows().size(), 3u);
    rows.Enter("/no/such/folder");
    EXPECT_EQ(rows.Path(), app.Path());
    const auto select = [this] {
        Keys("\n");
        Touch("Select this folder");
        EXPECT_TRUE(skinDialogs.Active()) << "without a folder nothing can be selected";
        Keys(">\n");
    };
    EXPECT_EQ(Chosen(select, tree), "");
}

} // namespace vk::test
