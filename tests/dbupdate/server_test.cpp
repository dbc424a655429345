// The server as a process, with the main program's client.
#include "dbupdate/scan/scan.h"
#include "library/catalogue/server_client.h"
#include "platform/qt/qt_child_process.h"
#include "platform/qt/qt_clock.h"
#include "tests/dbupdate/scan_fixture.h"
#include "tests/paths.h"

#include <QCoreApplication>
#include <QProcess>

#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>

namespace vk::test {
namespace {

using testing::ElementsAre, testing::HasSubstr, testing::SizeIs;

constexpr int PatienceMs = 100'000;

struct ServerTest : ScanFixture {
    DB_OBJ Client(const std::string& executable, int stopMs = PatienceMs) {
        return DB_OBJ(executable,
                      {log, realClock, [] { return std::make_unique<QtChildProcess>(); }},
                      {[this](DBStateValue value) {
                           Take({ServerEvent::Kind::StatusChanged, value, {}, {}});
                       },
                       [this](const ScanProgress& progress) {
                           Take({ServerEvent::Kind::ShowProgress, {}, progress, {}});
                       },
                       [this] { Take({}); },
                       [this](const ServerError& error) { errors.push_back(error.description); },
                       [this] { ++lost; }},
                      stopMs);
    }
    void Run(DB_OBJ& client) {
        client.Scan(Request());
        while (client.Scanning())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    std::string Script(const std::string& text) const {
        std::string path = app.Write("server", "#!/bin/sh\n" + text);
        ::chmod(path.c_str(), 0700);
        return path;
    }

    const std::string program = JoinPath(VK_APP_DIR, "DB_UPDATE");
    QtClock realClock;
    int lost = 0;
};

TEST_F(ServerTest, ScansHandsItsFileOverAndStopsWhenAsked) {
    Albums(3, 20);
    Tagged("l\xE4tin/O'Hanlon.mp3", "Ümlaut");
    DB_OBJ client = Client(program);
    client.Scan(Request());
    EXPECT_TRUE(client.Scanning());
    Run(client); // asked for again: one is enough
    Run(client);
    EXPECT_THAT(states, ElementsAre(3, 1, 4, 3, 4));
    EXPECT_THAT(Paths(), SizeIs(61));
    EXPECT_EQ(First("SELECT Title FROM Media WHERE Title='ümlaut'"),
              std::vector<std::string>{"Ümlaut"});
    EXPECT_EQ(texts.back(), "Ready");
    Albums(10, 60);
    At(ScanStep::Counting, [&] { client.Stop(); });
    Run(client);
    EXPECT_EQ(states.back(), 4);
    EXPECT_THAT(Paths(), SizeIs(61)) << "it was stopped";
    EXPECT_EQ(lost, 0);
    EXPECT_FALSE(Logged("not understood"));
}

/// Runs a scan and the hand-over in a process of its own that is killed after so many
/// microseconds; true when it came to its end before.
bool ScanUntilKilled(const ScanRequest& request, const DebugLog& log, long microseconds) {
    const pid_t child = ::fork();
    if (child == 0) {
        const itimerval when{{}, {microseconds / 1'000'000, microseconds % 1'000'000}};
        if (::setitimer(ITIMER_REAL, &when, nullptr) != 0) ::_exit(1); // its signal kills
        const std::atomic<bool> stop = false;
        const auto send = [&](const ServerEvent& event) {
            if (event.kind == ServerEvent::Kind::UnhookDB)
                RenameFlushed(JoinPath(request.appDir, WorkingCatalogueName),
                              JoinPath(request.appDir, CatalogueFileName));
        };
        RunScan(request, {log, send, stop});
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
    return WIFEXITED(status);
}

TEST_F(ServerTest, KilledAtAnyMomentItLeavesTheOldCatalogueOrTheNew) {
    constexpr long Shortest = 300, Longest = 60'000'000;
    const std::string catalogue = app.File(CatalogueFileName);
    const auto count = [&] {
        Database database(catalogue, Database::Mode::ReadOnly);
        CheckCatalogue(database);
        Statement check(database, "PRAGMA integrity_check");
        EXPECT_TRUE(check.Step());
        EXPECT_EQ(check.Text(0), "ok");
        return CountFiles(database);
    };
    db.Close();
    Albums(2, 10);
    ASSERT_TRUE(ScanUntilKilled(Request(), log, Longest));
    const std::string old = app.Read(CatalogueFileName);
    Albums(8, 20);
    int killed = 0;
    for (long time = Shortest; time < Longest; time += time / 5, ++killed) {
        const bool ended = ScanUntilKilled(Request(), log, time);
        const std::int64_t files = count();
        EXPECT_TRUE(files == 160 || (!ended && files == 20)) << files << " after " << time;
        if (ended) break;
        app.Write(CatalogueFileName, old); // what is left of the working copy stays
    }
    EXPECT_GT(killed, 3);
}

TEST_F(ServerTest, ALostServerIsLoggedAndStartedAgain) {
    Albums(1, 5);
    DB_OBJ broken = Client(Script("read request\necho '{\"event\":\"StatusChanged\",\"state\":3}'\n"
                                  "echo garbage\nexit 3\n"));
    Run(broken);
    EXPECT_EQ(lost, 1);
    EXPECT_TRUE(Logged("DB_UPDATE ended during a scan, exit code 3"));
    EXPECT_TRUE(Logged("DB_UPDATE: not understood: garbage"));
    EXPECT_THAT(states, ElementsAre(3));
    Script("exec '" + program + "' \"$@\"\n");
    Run(broken);
    EXPECT_THAT(Paths(), SizeIs(5));
    DB_OBJ missing = Client(app.File("no such program"));
    Run(missing);
    EXPECT_EQ(lost, 2);
    EXPECT_TRUE(Logged("Could not reference DB_UPDATE.exe"));
    DB_OBJ hung = Client(Script("exec sleep 1000\n"), 1);
    hung.Scan(Request());
    hung.Stop();
    Run(hung);
    EXPECT_EQ(lost, 3);
    EXPECT_TRUE(Logged("DB_UPDATE does not stop"));
}

TEST_F(ServerTest, AnswersWhatItDoesNotUnderstandAndEndsWithItsInput) {
    QProcess server;
    server.start(QString::fromStdString(program), {"--dance"});
    ASSERT_TRUE(server.waitForFinished(PatienceMs));
    EXPECT_EQ(server.exitCode(), 2);
    server.start(QString::fromStdString(program), {"--serve"});
    server.write("\n{\"request\":\"dance\"}\n" + QByteArray(300'000, 'x') + "\n");
    server.write("{\"request\":\"scan\",\"appDir\":7}\n{\"request\":\"stop\"}\n");
    server.closeWriteChannel();
    ASSERT_TRUE(server.waitForFinished(PatienceMs));
    EXPECT_EQ(server.exitCode(), 0);
    const std::string said = server.readAll().toStdString();
    EXPECT_THAT(said, HasSubstr(R"(not understood: {\"request\":\"dance\"})"));
    EXPECT_THAT(said, HasSubstr("cannot be read"));
    EXPECT_TRUE(FileExists(JoinPath(VK_APP_DIR, EmptyCatalogueName))) << "made by the build";
}

TEST(Protocol, IsReadAsItIsWrittenAndNothingElse) {
    const ScanRequest scan{false, "/app \xE4\n", "/m\"e%dia", "MP3:OGG", "AVI", ",", true};
    const std::string request =
        R"({"appDir":"/app%20%E4%0A","audioExtensions":"MP3:OGG","decimalSymbol":",",)"
        R"("extendedTags":true,"full":false,"mediaDir":"/m%22e%25dia","request":"scan","videoExtensions":"AVI"})";
    EXPECT_EQ(ToLine(ServerRequest{ServerRequest::Kind::Scan, scan}), request);
    EXPECT_EQ(ToLine(ParseRequest(request).value()), request);
    const std::string error = R"({"description":"no \"such\"\nfile","event":"DBError","number":-7,)"
                              R"("silent":false,"source":"DB_UPDATE"})";
    EXPECT_EQ(ToLine(ParseEvent(error).value()), error);
    for (const char* line : {"", "[]", "{", "{\"event\":3}", "{\"event\":\"Stop\"}", "null"})
        EXPECT_FALSE(ParseEvent(line)) << line;
    EXPECT_EQ(ParseEvent("{\"event\":\"StatusChanged\",\"state\":99}")->state,
              DBStateValue::Offline);
}

} // namespace
} // namespace vk::test
