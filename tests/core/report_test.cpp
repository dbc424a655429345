#include "core/error_report.h"
#include "tests/support/core_test.h"

namespace vk::test {
namespace {

using ReportTest = CoreTest;

TEST_F(ReportTest, LogsShowsAndEndsButASkinErrorIsOnlyLogged) {
    report.unloadAll = [] { FAIL(); };
    report.ReportError("x", "Skin Error", 1);
    EXPECT_TRUE(dialogs.shown.empty());
    int ended = 0;
    report.unloadAll = [&] { ++ended; };
    report.ReportError("An error occured in modIni.ReadINI ", "it broke", 53);
    const std::string text = "An error occured in modIni.ReadINI   : it broke :  Error number 53";
    EXPECT_EQ(dialogs.shown.at(0), text + "\nClick ok to terminate the application");
    EXPECT_EQ(dialogs.titles.at(0), "Velkorandum Error");
    EXPECT_EQ(ended, 1);
    const std::string time = "11/21/2026 12:00:00 PM - ";
    EXPECT_EQ(app.Read("debug.log"),
              time + "x  : Skin Error :  Error number 1\r\n" + time + text + "\r\n");
}

TEST_F(ReportTest, TrapReturnsTheFallback) {
    EXPECT_EQ(Trap<int>(report, "where ", 7, []() -> int { throw Error("gone", 91); }), 7);
    EXPECT_EQ(Trap<int>(report, "where ", 7, [] { return 1; }), 1);
    EXPECT_TRUE(Logged("where   : gone :  Error number 91"));
    TrapAndLog(report, "quiet: ", [] { throw std::runtime_error("oops"); });
    EXPECT_TRUE(Logged("quiet: oops"));
    EXPECT_EQ(dialogs.shown.size(), 1u);
}

TEST_F(ReportTest, TheLogIsOneLineAnEventAndNeverFails) {
    clock.SetNow({2026, 2, 3, 0, 4, 5, 0, 2});
    log.MakeLogFile();
    log.WriteDebugLog("two\r\nlines");
    EXPECT_EQ(app.Read("debug.log"), "Velkorandum Version  - Logfile created on 2/3/2026\r\n"
                                     "2/3/2026 12:04:05 AM - two  lines\r\n");
    DebugLog("/no/such/folder", clock).WriteDebugLog("x");
}

} // namespace
} // namespace vk::test
