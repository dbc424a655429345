// How long the interface stands still at most while the catalogue server scans 20,000 new files: a
// timer of a millisecond is watched in the event loop that takes the server's events and the
// finished file.
#include "library/catalogue/schema.h"
#include "library/catalogue/updates.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/qt/qt_child_process.h"
#include "tests/library/tag_bytes.h"
#include "tests/support/core_fixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>

namespace vk::test {
namespace {

constexpr int Files = 20'000;
constexpr int FilesAFolder = 12;

struct Watched : CoreFixture {
    Watched() {
        for (int i = 0; i < Files; ++i) {
            const std::string folder = media.Path() + "/Album " + std::to_string(i / FilesAFolder);
            if (i % FilesAFolder == 0) std::filesystem::create_directories(folder);
            AppendToFile(folder + "/" + std::to_string(i) + ".mp3",
                         ID3v2(3, TextFrame(3, "TIT2", "Title " + std::to_string(i)) +
                                      TextFrame(3, "TPE1", "Artist")) +
                             std::string(4000, '\x55'));
        }
        MakeEmptyCatalogue(app.File(EmptyCatalogueName));
        settings.values.MediaDir = media.Path();
        settings.values.AudioExtensions = "MP3";
        extensions.AudioExtensionList = {"MP3"};
        state.Setup = true;
        screens.CurrentForm = "velkorandum";
    }
    /// Runs one whole scan; the longest gap between two ticks in milliseconds.
    double Scan() {
        updates.Delete();
        updates.OpenAnew();
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
        updates.Supervise();
        while (server.Scanning())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return longest;
    }

    TempFolder media;
    MediaExtensions extensions;
    ID3 reader{{log, dialogs}, state.DecimalSymbol};
    modDB db{{state, extensions, settings, report, reader}};
    CatalogueUpdates updates{{state, settings, screens, report, db,
                              [this](const ScanRequest& request) { server.Scan(request); },
                              [this] { server.Stop(); }}};
    DB_OBJ server{JoinPath(VK_APP_DIR, "DB_UPDATE"),
                  {log, clock, [] { return std::make_unique<QtChildProcess>(); }},
                  updates.Events()};
};

void LongestStall(benchmark::State& state) {
    int count = 0;
    QCoreApplication application(count, nullptr);
    Watched watched;
    double longest = 0;
    for (auto _ : state)
        longest = std::max(longest, watched.Scan());
    state.counters["longest_stall_ms"] = longest;
}
BENCHMARK(LongestStall)->Unit(benchmark::kMillisecond)->Iterations(5)->UseRealTime();

} // namespace
} // namespace vk::test
