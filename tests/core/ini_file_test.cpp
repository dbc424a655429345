#include "core/ini_file.h"
#include "tests/support/core_fixture.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

struct IniFileTest : testing::Test, test::CoreFixture {
    std::string Read(std::string_view section, std::string_view key) {
        return GetPrivateProfileString(section, key, "", app.File("a.ini"));
    }
};

TEST_F(IniFileTest, FindsKeysAsTheProfileCallsDo) {
    app.Write("a.ini", "\xEF\xBB\xBF[Main]\r\n Key One = some value \r\n;Key Two=no\r\nempty=\r\n"
                       "quoted=\" kept \"\r\n[other]\nkey one=2\n[main]\nlate=never\n");
    struct Case {
        const char* section;
        const char* key;
        const char* value;
    };
    for (const Case& c : {Case{"main", "KEY ONE", "some value"}, Case{"MAIN", "Key Two", ""},
                          Case{"main", "quoted", " kept "}, Case{"OTHER", "Key One", "2"},
                          Case{"main", "late", ""}, Case{"none", "key one", ""}})
        EXPECT_EQ(Read(c.section, c.key), c.value) << c.section << "/" << c.key;
    EXPECT_EQ(GetPrivateProfileString("main", "x", "fallback", app.File("a.ini")), "fallback");
}

TEST_F(IniFileTest, CutsValuesToTheBufferButNeverInsideACharacter) {
    app.Write("a.ini", "[s]\nlong=" + std::string(300, 'a') + "\nwide=" + std::string(253, 'a') +
                           "\xC3\xA4\n");
    EXPECT_EQ(Read("s", "long"), std::string(254, 'a'));
    EXPECT_EQ(Read("s", "wide"), std::string(253, 'a'));
}

TEST_F(IniFileTest, WritesOneKeyAndLeavesTheRest) {
    app.Write("a.ini", "; mine\r\n[main]\r\na=1\r\n\r\n[Next]\r\nb = 2\r\n");
    EXPECT_TRUE(WritePrivateProfileString("MAIN", "A", "new", app.File("a.ini")));
    EXPECT_TRUE(WritePrivateProfileString("main", "c", "3", app.File("a.ini")));
    EXPECT_TRUE(WritePrivateProfileString("third", "d", "x\r\n[evil]", app.File("a.ini")));
    EXPECT_EQ(app.Read("a.ini"), "; mine\r\n[main]\r\nA=new\r\nc=3\r\n\r\n[Next]\r\nb = 2\r\n"
                                 "[third]\r\nd=x  [evil]\r\n");
    EXPECT_FALSE(FileExists(app.File("a.ini.new")));
}

TEST_F(IniFileTest, AnUnwritableFileIsReportedAndKept) {
    EXPECT_EQ(ini.WriteINI(app.File("no such folder/a.ini"), "s", "k", "v"), 0);
    EXPECT_TRUE(Logged("Could not write k to "));
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(IniFileTest, ReadsAnyBytesWithoutHarm) {
    std::string noise("[\0=]\r[[a\n==\n[s", 14);
    noise += std::string(5000, '\xFF') + "]\nk=v\n[t]\nok=1";
    app.Write("a.ini", noise);
    EXPECT_EQ(Read("t", "ok"), "1");
    EXPECT_EQ(Read("", ""), "");
    EXPECT_EQ(GetPrivateProfileString("s", "k", "d", app.Path()), "d"); // a folder
}

TEST_F(IniFileTest, ConvertsByType) {
    struct Case {
        const char* text;
        IniType type;
        const char* symbol;
        IniValue::Storage expected;
    };
    const std::string zero = "0";
    const Case cases[] = {
        {"TrUe", IniType::Boolean, ".", true},
        {"False", IniType::Boolean, ".", false},
        {"1", IniType::Boolean, ".", true},
        {"", IniType::Boolean, ".", false},
        {"tr.ue", IniType::Boolean, ",", false},
        {"12", IniType::Long, ".", 12},
        {"", IniType::Long, ".", zero},
        {"abc", IniType::Long, ".", zero},
        {"9999999999", IniType::Long, ".", zero},
        {"2.5", IniType::Long, ".", 2},
        {"-7", IniType::Integer, ".", std::int16_t{-7}},
        {"40000", IniType::Integer, ".", zero},
        {"0.2", IniType::Double, ",", 0.2},
        {"0,2", IniType::Double, ",", 0.2},
        {"1e5", IniType::Double, ".", zero},
        {"nan", IniType::Double, ".", zero},
        {"1.00004", IniType::Currency, ".", 1.0},
        {" 87.70 ", IniType::Decimal, ".", 87.7},
        {"0.5", IniType::Single, ".", 0.5},
        {"1.5", IniType::String, ",", std::string("1.5")},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ConvertIniText(c.text, c.type, c.symbol).Value(), c.expected) << c.text;
}

TEST_F(IniFileTest, RemovesKeysAndSections) {
    app.Write("a.ini", "[a]\nx=1\ny=2\n[b]\nz=3\n");
    EXPECT_TRUE(ini.DeleteKey(app.File("a.ini"), "A", "X"));
    EXPECT_FALSE(ini.DeleteKey(app.File("a.ini"), "a", "x"));
    EXPECT_TRUE(ini.DeleteSection(app.File("a.ini"), "b"));
    EXPECT_EQ(app.Read("a.ini"), "[a]\r\ny=2\r\n");
}

} // namespace
} // namespace vk
