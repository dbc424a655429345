// How long the interface stands still at most while the catalogue server scans 20,000 new files,
// and while 10,000 are copied: a timer of a millisecond is watched in the event loop that takes the
// server's events and the finished file, or the log lines and the catalogue's rows of the copies.
// And how long an abort takes in the middle of a large file.
#include "library/catalogue/schema.h"
#include "library/catalogue/updates.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/qt/qt_child_process.h"
#include "platform/qt/qt_clock.h"
#include "sync/synchronizer.h"
#include "tests/library/tag_bytes.h"
#include "tests/support/core_fixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>

namespace vk::test {
namespace {

namespace fs = std::filesystem;

constexpr int FilesAFolder = 12;

/// The longest gap between two ticks, in milliseconds, as long as something works.
template<class Works> double LongestGap(Works works) {
    double longest = 0;
    QElapsedTimer gap;
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tick, &QTimer::timeout, [&] {
        longest = std::max(longest, static_cast<double>(gap.nsecsElapsed()) / 1e6);
        gap.start();
    });
    gap.start();
    tick.start(1);
    while (works())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return longest;
}

/// Tagged files of so many bytes.
void MakeSongs(const std::string& root, int files, std::size_t bytes) {
    for (int i = 0; i < files; ++i) {
        const std::string folder = root + "/Album " + std::to_string(i / FilesAFolder);
        if (i % FilesAFolder == 0) fs::create_directories(folder);
        AppendToFile(folder + "/" + std::to_string(i) + ".mp3",
                     ID3v2(3, TextFrame(3, "TIT2", "Title " + std::to_string(i)) +
                                  TextFrame(3, "TPE1", "Artist")) +
                         std::string(bytes, '\x55'));
    }
}

/// The figure, or that it is worse than it may be.
void Tell(benchmark::State& state, const char* what, double ms, double limit) {
    state.counters[what] = ms;
    const std::string told = std::string(what) + " " + std::to_string(ms) + ", too long";
    if (ms > limit) state.SkipWithError(told.c_str());
}

struct Watched : CoreFixture {
    Watched() {
        MakeEmptyCatalogue(app.File(EmptyCatalogueName));
        settings.values.AudioExtensions = "MP3";
        extensions.AudioExtensionList = {"MP3"};
        state.Setup = true;
        screens.CurrentForm = "velkorandum";
    }

    MediaExtensions extensions;
    ID3 reader{{log, dialogs}, state.DecimalSymbol};
    modDB db{{state, extensions, settings, report, reader}};
};

struct Scanned : Watched {
    static constexpr int Files = 20'000;

    Scanned() {
        settings.values.MediaDir = media.Path();
        MakeSongs(media.Path(), Files, 4000);
    }
    /// One whole scan.
    double Scan() {
        updates.Delete();
        updates.OpenAnew();
        updates.Supervise();
        return LongestGap([this] { return server.Scanning(); });
    }

    TempFolder media;
    CatalogueUpdates updates{{state, settings, screens, report, db,
                              [this](const ScanRequest& request) { server.Scan(request); },
                              [this] { server.Stop(); }}};
    DB_OBJ server{JoinPath(VK_APP_DIR, "DB_UPDATE"),
                  {log, clock, [] { return std::make_unique<QtChildProcess>(); }},
                  updates.Events()};
};

/// A source and an empty media folder on the disk that the build is on: a memory disk flushes
/// nothing.
struct Copied : Watched {
    Copied() {
        fs::remove_all(Root());
        fs::create_directories(Root() + "/from");
        fs::create_directories(Dest());
        volumes.ready = {"/"};
        settings.values.SyncSource = Root() + "/from";
        settings.values.SyncDest = settings.values.MediaDir = Dest();
        settings.values.manualdb = true;
        db.InitDB(false);
    }
    ~Copied() { fs::remove_all(Root()); }
    static std::string Root() { return JoinPath(VK_APP_DIR, "bench-stall"); }
    static std::string Dest() { return Root() + "/to"; }
    double ToItsEnd() {
        return LongestGap([this] { return sync.Running(); });
    }

    QtClock real;
    Base base{state,    settings, log,     report, real,   pump,
              commands, screens,  dialogs, window, locale, volumes};
    Synchronizer sync{base, db};
};

void LongestStall(benchmark::State& state) {
    int count = 0;
    QCoreApplication application(count, nullptr);
    Scanned scanned;
    double longest = 0;
    for (auto _ : state)
        longest = std::max(longest, scanned.Scan());
    state.counters["longest_stall_ms"] = longest;
}
BENCHMARK(LongestStall)->Unit(benchmark::kMillisecond)->Iterations(5)->UseRealTime();

void LongestStallOfACopy(benchmark::State& state) {
    int count = 0;
    QCoreApplication application(count, nullptr);
    Copied copied;
    MakeSongs(copied.settings.values.SyncSource, 10'000, 100'000);
    for (auto _ : state) {
        copied.sync.cmdSync_Click();
        Tell(state, "longest_stall_ms", copied.ToItsEnd(), 30);
    }
    state.SetLabel(copied.sync.Status());
}
BENCHMARK(LongestStallOfACopy)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

// At another place of the file each time.
void AbortInTheMiddle(benchmark::State& state) {
    int count = 0;
    QCoreApplication application(count, nullptr);
    Copied copied;
    MakeSongs(copied.settings.values.SyncSource, 1, 1u << 30);
    double longest = 0;
    int tries = 0, middles = 0;
    for (auto _ : state) {
        QElapsedTimer passed;
        passed.start();
        copied.sync.cmdSync_Click();
        while (copied.sync.Running() && passed.elapsed() < 100 + 40 * tries)
            QCoreApplication::processEvents();
        const int percent = copied.sync.Running() ? copied.sync.FilePercent() : 100;
        passed.start();
        if (copied.sync.Running()) copied.sync.cmdSync_Click();
        copied.ToItsEnd();
        const double taken = static_cast<double>(passed.nsecsElapsed()) / 1e6;
        fs::remove_all(Copied::Dest());
        fs::create_directories(Copied::Dest());
        const bool middle = percent > 0 && percent < 100;
        if (middle) longest = std::max(longest, taken);
        ++tries;
        middles += middle;
    }
    state.counters["in the middle"] = middles;
    Tell(state, "longest_ms", longest, 200);
}
BENCHMARK(AbortInTheMiddle)->Unit(benchmark::kMillisecond)->Iterations(20)->UseRealTime();

} // namespace
} // namespace vk::test
