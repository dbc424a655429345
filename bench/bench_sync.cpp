// The synchronisation beside what it can be no faster than: a walk that asks for each file's facts,
// and plain copying with the same flushes.
#include "platform/copy_file.h"
#include "platform/files.h"
#include "sync/folder_copy.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace vk;

constexpr int Folders = 100;

/// `files` in all, evenly over the folders, made on the disk that the build is on: a memory disk
/// flushes nothing.
struct Tree {
    Tree(int files, std::size_t bytes) {
        fs::remove_all(root);
        for (int i = 0; i < files; ++i) {
            const fs::path folder = source / std::to_string(i % Folders);
            fs::create_directories(folder);
            std::ofstream(folder / (std::to_string(i) + ".mp3")) << std::string(bytes, 'x');
        }
        fs::create_directories(dest);
    }
    ~Tree() { fs::remove_all(root); }
    SyncResult Copy() const {
        const SyncOrder order{.source = source.string(), .dest = dest.string(), .backupName = ""};
        const SyncListener listener{[] { return false; }, [](const std::string&) {},
                                    [](const std::string&) {}, [](const std::string&) {},
                                    [](int, int) { return true; }};
        return FolderCopy(order, listener).CopyFiles();
    }
    const fs::path root = fs::path(VK_APP_DIR) / "bench-sync";
    const fs::path source = root / "from", dest = root / "to";
};

void BM_CheckUnchanged(benchmark::State& state) {
    const Tree tree(10'000, 10);
    fs::copy(tree.source, tree.dest, fs::copy_options::recursive);
    for (auto _ : state)
        benchmark::DoNotOptimize(tree.Copy());
}
BENCHMARK(BM_CheckUnchanged)->Unit(benchmark::kMillisecond);

void BM_BareWalkWithStat(benchmark::State& state) {
    const Tree tree(10'000, 10);
    for (auto _ : state) {
        std::uintmax_t bytes = 0;
        for (const auto& folder : fs::directory_iterator(tree.source))
            for (const FolderEntry& entry : ListFolder(folder.path().string()))
                bytes += entry.length;
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(BM_BareWalkWithStat)->Unit(benchmark::kMillisecond);

void BM_Copy(benchmark::State& state) {
    const Tree tree(static_cast<int>(state.range(0)), 100'000);
    for (auto _ : state) {
        benchmark::DoNotOptimize(tree.Copy());
        state.PauseTiming();
        fs::remove_all(tree.dest);
        fs::create_directories(tree.dest);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Copy)
    ->Unit(benchmark::kMillisecond)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Iterations(1)
    ->UseRealTime();

// What `cp -r` does, and as many flushes: of each file and of each folder.
void BM_PlainCopyWithFlushes(benchmark::State& state) {
    const Tree tree(static_cast<int>(state.range(0)), 100'000);
    for (auto _ : state) {
        for (const auto& folder : fs::directory_iterator(tree.source)) {
            const fs::path below = tree.dest / folder.path().filename();
            fs::create_directory(below);
            for (const auto& file : fs::directory_iterator(folder)) {
                const fs::path to = below / file.path().filename();
                fs::copy_file(file, to);
                FlushFile(to.string());
            }
            FlushFile(below.string());
        }
        state.PauseTiming();
        fs::remove_all(tree.dest);
        fs::create_directories(tree.dest);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_PlainCopyWithFlushes)
    ->Unit(benchmark::kMillisecond)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Iterations(1)
    ->UseRealTime();

} // namespace
