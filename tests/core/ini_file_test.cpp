#include "core/ini_file.h"
#include "tests/support/core_test.h"

namespace vk::test {
namespace {

using namespace std::string_literals;

struct IniFileTest : CoreTest {
    std::string Read(std::string_view section, std::string_view key) {
        return GetPrivateProfileString(section, key, "fallback", app.File("a.ini"));
    }
};

TEST_F(IniFileTest, FindsKeysAsTheProfileCallsDo) {
    app.Write("a.ini", "\xEF\xBB\xBF[Main]\r\n Key One = some value \r\n;Key Two=no\r\nempty=\r\n"
                       "quoted=\" kept \"\r\n[other]\nkey one=2\n[main]\nlate=never\n");
    const char* cases[][3] = {{"main", "KEY ONE", "some value"}, {"MAIN", "Key Two", "fallback"},
                              {"main", "quoted", " kept "},      {"main", "empty", ""},
                              {"OTHER", "Key One", "2"},         {"main", "late", "fallback"},
                              {"none", "key one", "fallback"}};
    for (const auto& [section, key, value] : cases)
        EXPECT_EQ(Read(section, key), value) << section << "/" << key;
    std::string wide;
    for (int i = 0; i < 254; ++i)
        wide += "\xD0\x96"; // a letter
    app.Write("a.ini", "[s]\nlong=" + std::string(300, 'a') + "\nwide=" + wide + "\nwider=" + wide +
                           "\xC3\xA4\n");
    EXPECT_EQ(Read("s", "long"), std::string(254, 'a'));
    EXPECT_EQ(Read("s", "wide"), wide) << "characters count, not bytes";
    EXPECT_EQ(Read("s", "wider"), wide);
    app.Write("a.ini", "\xFF\xFE[\0s\0]\0\n\0k\0=\0\x16\x04\n\0"s);
    EXPECT_EQ(Read("s", "k"), "\xD0\x96") << "UTF-16";
}

TEST_F(IniFileTest, WritesSingleKeysAndLeavesTheRest) {
    const std::string file =
        app.Write("a.ini", "; mine\r\n[main]\r\na=1\r\n\r\n[Next]\r\nb = 2\r\n");
    EXPECT_TRUE(WritePrivateProfileString("MAIN", "A", "new", file));
    EXPECT_TRUE(WritePrivateProfileString("main", "c", "3", file));
    EXPECT_TRUE(WritePrivateProfileString("third", "d", "x\r\n[evil]", file));
    EXPECT_EQ(app.Read("a.ini"), "; mine\r\n[main]\r\nA=new\r\nc=3\r\n\r\n[Next]\r\nb = 2\r\n"
                                 "[third]\r\nd=x  [evil]\r\n");
    EXPECT_FALSE(FileExists(file + ".new"));
    IniDocument document("[a]\nx=1\n[b]\ny=2\n"); // keys that come in between are found at once
    for (const auto& [section, key] : {std::pair{"A", "k"}, {"b", "k"}, {"a", "x"}, {"c", "k"}})
        document.SetValue(section, key, std::string(section) + key);
    EXPECT_EQ(document.Contents(), "[a]\r\nx=ax\r\nk=Ak\r\n[b]\r\ny=2\r\nk=bk\r\n[c]\r\nk=ck\r\n");
    EXPECT_EQ(*document.Value("b", "y") + *document.Value("b", "k") + *document.Value("a", "k"),
              "2bkAk");
}

TEST_F(IniFileTest, WhatCannotBeWrittenIsReportedAndKeptInMemory) {
    const std::string file = app.File("later/a.ini");
    for (const char* value : {"v", "w"})
        EXPECT_EQ(ini.WriteINI(file, "s", "k", value), 0);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_EQ(LinesLogged("Could not write"), 1);
    EXPECT_TRUE(Logged("Could not write " + file));
    EXPECT_EQ(ini.ReadText(file, "s", "k"), "w") << "from memory";
    app.MakeFolder("later");
    EXPECT_EQ(ini.WriteINI(file, "s", "k", "w"), 1) << "tried again";
    app.MakeFolder("later/a.ini.new"); // the temporary name is taken
    EXPECT_EQ(ini.WriteINI(file, "s", "k", "x"), 0);
    EXPECT_EQ(ini.ReadText(file, "s", "k") + app.Read("later/a.ini"), "x[s]\r\nk=w\r\n");
    AppendToFile(file, "j=2\n");
    EXPECT_EQ(ini.ReadText(file, "s", "k") + ini.ReadText(file, "s", "j"), "w2") << "by others";
}

// What is asked to be written waits here until `write` is called.
struct HeldWriter : FileWriter {
    std::uint64_t Replace(const std::string& path, std::string contents) override {
        jobs.emplace_back(path, std::move(contents));
        return ++last;
    }
    void Finish() override {
        for (const auto& [path, contents] : std::exchange(jobs, {}))
            outcomes.push_back({path, last, ReplaceFile(path, contents), ""});
    }
    std::vector<Outcome> TakeOutcomes() override { return std::exchange(outcomes, {}); }
    std::vector<std::pair<std::string, std::string>> jobs;
    std::vector<Outcome> outcomes;
    std::uint64_t last = 0;
};

TEST_F(IniFileTest, WhatIsWrittenIsReadAtOnceAndWhatOthersWriteWhenNothingWaits) {
    HeldWriter writer;
    Ini queued(state.DecimalSymbol, report, writer);
    const std::string file = app.Write("a.ini", "[s]\r\na=1\r\n");
    const auto value = [&](const char* key) { return queued.ReadText(file, "s", key); };
    EXPECT_EQ(queued.WriteKeys(file, {{"s", "a", "2"}, {"s", "b", "3"}}), 1);
    EXPECT_EQ(writer.jobs.size(), 1u) << "both in one replacement";
    EXPECT_EQ(queued.WriteKeys(file, {{"S", "A", "2"}}), 1);
    EXPECT_EQ(writer.jobs.size(), 1u) << "nothing changed";
    EXPECT_EQ(value("a") + value("b"), "23");
    EXPECT_EQ(app.Read("a.ini"), "[s]\r\na=1\r\n");
    queued.Finish();
    EXPECT_EQ(app.Read("a.ini"), "[s]\r\na=2\r\nb=3\r\n");
    for (const char* other : {"7", "8", "9"}) { // of one length, within one tick
        app.Write("a.ini", std::string("[s]\r\na=") + other + "\r\n");
        EXPECT_EQ(value("a"), other);
    }
}

TEST_F(IniFileTest, ReadsAnyBytesWithoutHarm) {
    std::string noise("[\0=]\r[[a\n==\n[s", 14);
    noise += std::string(5000, '\xFF') + "]\nk=v\n[t]\nok=1";
    app.Write("a.ini", noise);
    EXPECT_EQ(Read("t", "ok"), "1");
    EXPECT_EQ(Read("", ""), "fallback");
    EXPECT_EQ(GetPrivateProfileString("s", "k", "d", app.Path()), "d") << "a folder";
}

TEST_F(IniFileTest, ConvertsByType) {
    using Type = IniType;
    const struct {
        const char* text;
        Type type;
        const char* symbol;
        IniValue::Storage expected;
    } cases[] = {{"TrUe", Type::Boolean, ".", true},
                 {"False", Type::Boolean, ".", false},
                 {"1", Type::Boolean, ".", true},
                 {"", Type::Boolean, ".", false},
                 {"tr.ue", Type::Boolean, ",", false},
                 {"12", Type::Long, ".", 12},
                 {"", Type::Long, ".", "0"s},
                 {"abc", Type::Long, ".", "0"s},
                 {"9999999999", Type::Long, ".", "0"s},
                 {"2.5", Type::Long, ".", 2},
                 {"-7", Type::Integer, ".", std::int16_t{-7}},
                 {"40000", Type::Integer, ".", "0"s},
                 {"0.2", Type::Double, ",", 0.2},
                 {"0,2", Type::Double, ",", 0.2},
                 {"1e5", Type::Double, ".", "0"s},
                 {"nan", Type::Double, ".", "0"s},
                 {"1.00004", Type::Currency, ".", 1.0},
                 {" 87.70 ", Type::Decimal, ".", 87.7},
                 {"0.5", Type::Single, ".", 0.5},
                 {"1.5", Type::String, ",", "1.5"s}};
    for (const auto& c : cases)
        EXPECT_EQ(ConvertIniText(c.text, c.type, c.symbol).Value(), c.expected) << c.text;
}

} // namespace
} // namespace vk::test
