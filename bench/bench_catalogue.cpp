// The catalogue server on 20,000 tagged files (an album of 12 a folder) with a warm cache, and the
// screens' queries and the browser's lists on 200,000 rows. The tree lies in the folder for
// temporary files.
#include "browser/browser.h"
#include "dbupdate/scan/scan.h"
#include "dbupdate/scan/walk.h"
#include "library/catalogue/file_row.h"
#include "library/catalogue/mod_db.h"
#include "library/catalogue/schema.h"
#include "platform/files.h"
#include "tests/library/tag_bytes.h"
#include "tests/support/core_fixture.h"
#include "tests/support/sound_card.h"

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <utime.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <utility>

namespace vk::test {
namespace {

constexpr int Files = 20'000;
constexpr int Rows = 200'000;
constexpr int FilesAFolder = 12;

std::string Relative(int number) {
    const int album = number / FilesAFolder;
    return "/Artist Number " + std::to_string(album / 4) + "/The Album " + std::to_string(album) +
           "/" + std::to_string(10 + number % FilesAFolder) + " - Some Title " +
           std::to_string(number) + ".mp3";
}

std::string TaggedFile(int number) {
    const int album = number / FilesAFolder;
    const std::string frames = TextFrame(3, "TIT2", "Some Title " + std::to_string(number)) +
                               TextFrame(3, "TPE1", "Artist Number " + std::to_string(album / 4)) +
                               TextFrame(3, "TALB", "The Album " + std::to_string(album)) +
                               TextFrame(3, "TCON", "(" + std::to_string(album % 40) + ")") +
                               TextFrame(3, "TRCK", std::to_string(1 + number % FilesAFolder));
    return ID3v2(3, frames + std::string(512, '\0')) + std::string(6000, '\x55');
}

/// The tree and an application directory of its own.
struct Tree : CoreFixture {
    Tree() {
        for (int i = 0; i < Files; ++i) {
            const std::string path = media.Path() + Relative(i);
            std::filesystem::create_directories(FolderOf(path));
            AppendToFile(path, TaggedFile(i));
        }
        CopyTemplate();
    }

    void CopyTemplate() const { MakeEmptyCatalogue(app.File(CatalogueFileName)); }

    void Scan() const {
        const std::atomic<bool> stop = false;
        const auto send = [&](const ServerEvent& event) {
            if (event.kind == ServerEvent::Kind::UnhookDB)
                RenameFlushed(app.File(WorkingCatalogueName), app.File(CatalogueFileName));
        };
        RunScan({true, app.Path(), media.Path(), "MP3:OGG", "AVI", "."}, {log, send, stop});
    }

    TempFolder media;
};

Tree& SharedTree() {
    static Tree tree;
    return tree;
}

void BareWalk(benchmark::State& state) {
    Tree& tree = SharedTree();
    MediaExtensions types;
    types.AudioExtensionList = {"MP3"};
    const std::atomic<bool> stop = false;
    for (auto _ : state)
        benchmark::DoNotOptimize(WalkMedia(tree.media.Path(), types, stop).files.size());
}
BENCHMARK(BareWalk)->Unit(benchmark::kMillisecond)->UseRealTime();

void FullScan(benchmark::State& state) {
    Tree& tree = SharedTree();
    for (auto _ : state) {
        state.PauseTiming();
        tree.CopyTemplate();
        state.ResumeTiming();
        tree.Scan();
    }
    const auto bytes = FileLength(tree.app.File(CatalogueFileName));
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    state.counters["bytes_a_title"] = static_cast<double>(bytes) / Files;
    state.counters["peak_MB"] = static_cast<double>(used.ru_maxrss) / 1024;
}
BENCHMARK(FullScan)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

void RescanUnchanged(benchmark::State& state) {
    Tree& tree = SharedTree();
    tree.Scan();
    for (auto _ : state)
        tree.Scan();
}
BENCHMARK(RescanUnchanged)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

void RescanOnePercentChanged(benchmark::State& state) {
    Tree& tree = SharedTree();
    tree.Scan();
    std::time_t date = 1'000'000'000;
    for (auto _ : state) {
        state.PauseTiming();
        ++date;
        const utimbuf times{date, date};
        for (int i = 0; i < Files; i += 100)
            ::utime((tree.media.Path() + Relative(i)).c_str(), &times);
        state.ResumeTiming();
        tree.Scan();
    }
}
BENCHMARK(RescanOnePercentChanged)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

/// A catalogue of rows without files.
struct Large : CoreFixture {
    Large() {
        Database database(app.File(CatalogueFileName), Database::Mode::Create);
        database.Execute("PRAGMA synchronous = OFF; BEGIN");
        CreateTables(database);
        {
            RowWriter writer(database);
            for (int i = 0; i < Rows; ++i)
                writer.Put(Row(i));
            for (int i = 0; i < 500; ++i)
                writer.Put(Row(i, "/One Folder/"));
        }
        CreateIndexes(database);
        MeasureIndexes(database);
        database.Execute("COMMIT");
        settings.values.MediaDir = media.Path();
        settings.values.TopNewCount = 50;
        settings.values.manualdb = true;
        extensions.AudioExtensionList = {"MP3"};
        catalogue.InitDB(false);
    }

    static FileRow Row(int number, const std::string& folder = {}) {
        const int album = number / FilesAFolder;
        FileRow row;
        row.Path = folder.empty() ? Relative(number) : folder + std::to_string(number) + ".mp3";
        row.TStamp = "2026-11-21 0" + std::to_string(number % 10) + ":00:00";
        row.Title = "Some Title " + std::to_string(number);
        row.Artist =
            (album % 3 == 0 ? "Ärtist Number " : "Artist Number ") + std::to_string(album / 4);
        row.Album = "The Album " + std::to_string(album);
        row.Genre = "Genre " + std::to_string(album % 40);
        row.MediaType = 1;
        row.ParentDir = FolderOf(row.Path) + "/";
        return row;
    }

    /// Makes the files that a query finds: the browser leaves out what is not there.
    void Touch(const std::vector<CatalogueFile>& found) const {
        for (const CatalogueFile& file : found) {
            const std::string path = media.Path() + file.path;
            std::filesystem::create_directories(FolderOf(path));
            if (!FileExists(path)) AppendToFile(path, "x");
        }
    }

    TempFolder media;
    MediaExtensions extensions;
    ID3 reader{{log, dialogs}, state.DecimalSymbol};
    modDB catalogue{{state, extensions, settings, report, reader}};
};

Large& LargeCatalogue() {
    static Large large;
    return large;
}

void Query(benchmark::State& state, const char* sql) {
    Large& large = LargeCatalogue();
    std::size_t records = 0;
    for (auto _ : state)
        records = large.catalogue.Records(sql).size();
    state.counters["records"] = static_cast<double>(records);
}
BENCHMARK_CAPTURE(Query, artists,
                  "SELECT DISTINCT Artist FROM Media WHERE ((Artist)<>'') ORDER BY Artist")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Query, one_artist,
                  "SELECT DISTINCT Artist, Title, Path FROM Media WHERE Artist='Artist Number 77'"
                  " ORDER BY Title")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Query, one_folder,
                  "SELECT Path, Artist, Title, MediaType FROM Media WHERE "
                  "ParentDir='/One Folder/' ORDER BY Artist, Title")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Query, text_search,
                  "SELECT Path, Artist, Title FROM Media WHERE Title LIKE '%title 12345%'")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Query, artist_search,
                  "SELECT Path, Artist, Title FROM Media WHERE Artist LIKE '%number 1234%'")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Query, path_search,
                  "SELECT Path, Artist, Title FROM Media WHERE Path LIKE '%title 12345%'")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Query, genre_search,
                  "SELECT Media.Path, Media.Artist, Media.Title, Genres.Description FROM Genres "
                  "INNER JOIN Media ON Genres.GenreID = Media.GenreID WHERE "
                  "(((Genres.Description) Like '%genre 7%'))")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Query, newest,
                  "SELECT TOP 50 Path, Artist, Title, TStamp FROM Media WHERE MediaType=1 "
                  "ORDER BY TStamp DESC")
    ->Unit(benchmark::kMillisecond);

void OpenedFolder(benchmark::State& state, bool below) {
    Large& large = LargeCatalogue();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            below ? large.catalogue.FilesBelow(large.media.File("One Folder"))
                  : large.catalogue.FolderFiles(large.media.File("One Folder"), true, true));
}
BENCHMARK_CAPTURE(OpenedFolder, itself, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenedFolder, and_below, true)->Unit(benchmark::kMillisecond);

/// A screen that draws nothing.
class NoView : public BrowserView, public TextEntryView {
  public:
    void SetTitle(const std::string&) override {}
    void ShowLoading(const std::string&) override {}
    void HideLoading() override {}
    void SetClock(const std::string&) override {}
    void SetButton(BrowserButton, const std::string&) override {}
    void ShowToolFrame(bool) override {}
    void SlideKeyboard(bool) override {}
    void ReDrawList() override {}
    void ReDrawRightList() override {}
    void LayOut(std::int16_t) override {}
    void ShowFocus(bool) override {}
    void ShowAtFront() override {}
};

/// The browser on the large catalogue.
struct LargeBrowser {
    LargeBrowser() {
        list.SetGeometry(20, "3", 400);
        large.screens.CurrentForm = "playlists"; // without a screen the system is ending
    }

    /// "OK" on a row of that descriptor, until the list that it stands for is loaded.
    void Choose(const std::string& descriptor) {
        list.ClearAllArrays();
        list.AddItem("", "", descriptor);
        list.LoadList();
        browser.runok();
    }

    Large& large = LargeCatalogue();
    BrowserState state{.CurrentPath = large.media.Path(), .Played = ""};
    AudioState audio;
    VideoState video;
    SoundCard sound{large};
    TransportLink player;
    MediaTags tags{large.extensions, large.reader, &large.catalogue};
    KeyMap keys;
    NoView view;
    ListModel list, rightList;
    KeyboardModel keyboard;
    TextEntry text{keyboard, view};
    Browser browser{{.base = large.base,
                     .state = state,
                     .keys = keys,
                     .library = {tags, large.extensions, &large.catalogue},
                     .players = {audio, video, sound.loudness, player}},
                    {list, rightList, text},
                    view};
};

/// From the press of "OK" until the list is loaded.
void Pressed(benchmark::State& state, const std::string& descriptor, const char* found) {
    LargeBrowser shown;
    if (*found) shown.large.Touch(shown.large.catalogue.Files(found));
    for (auto _ : state)
        shown.Choose(descriptor);
    state.counters["rows"] = shown.list.ItemCount();
}
BENCHMARK_CAPTURE(Pressed, artists, "SQL:BrowseArtist", "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Pressed, one_artist, "SQL:BrowseArtist|Artist='Artist Number 77'",
                  "SELECT Path FROM Media WHERE Artist='Artist Number 77'")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Pressed, text_search, "SQL:SearchTitle|Title='title 12345'",
                  "SELECT Path FROM Media WHERE Title LIKE '%title 12345%'")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Pressed, artist_search, "SQL:SearchArtist|Artist='number 1234'",
                  "SELECT Path FROM Media WHERE Artist LIKE '%number 1234%'")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Pressed, path_search, "SQL:SearchPath|Path='title 12345'",
                  "SELECT Path FROM Media WHERE Path LIKE '%title 12345%'")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Pressed, newest, "SQL:BrowseNewMusic",
                  "SELECT TOP 50 Path FROM Media WHERE MediaType=1 ORDER BY TStamp DESC")
    ->Unit(benchmark::kMillisecond);

/// All music; the files are looked for and not there. Between two of its pulses the interface
/// stands still.
void PressedAllMusic(benchmark::State& state) {
    LargeBrowser shown;
    shown.large.clock.workMs = 5; // events run after each row
    double longest = 0;
    auto last = std::chrono::steady_clock::now();
    const auto note = [&] {
        const auto now = std::chrono::steady_clock::now();
        const std::chrono::duration<double, std::milli> gap = now - std::exchange(last, now);
        longest = std::max(longest, gap.count());
    };
    shown.large.clock.onEvents = note;
    for (auto _ : state) {
        last = std::chrono::steady_clock::now();
        shown.Choose("SQL:BrowseMusic");
        note();
    }
    shown.large.clock.onEvents = {};
    shown.large.clock.workMs = 0;
    state.counters["longest_stall_ms"] = longest;
}
BENCHMARK(PressedAllMusic)->Unit(benchmark::kMillisecond)->Iterations(2);

void PressedFolder(benchmark::State& state) {
    LargeBrowser shown;
    const std::string folder = shown.large.media.File("One Folder");
    shown.large.Touch(shown.large.catalogue.FolderFiles(folder, false, true));
    for (auto _ : state)
        shown.Choose("PATH:" + folder);
    state.counters["rows"] = shown.list.ItemCount();
}
BENCHMARK(PressedFolder)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace vk::test
