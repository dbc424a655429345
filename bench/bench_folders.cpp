// A folder of 10,000 others in the chooser.
#include "skin/dialogs/folder_rows.h"
#include "tests/support/fakes.h"
#include "tests/support/temp_folder.h"

#include <benchmark/benchmark.h>

namespace vk::test {
namespace {

constexpr int Folders = 10'000;

void FolderIsListed(benchmark::State& state) {
    TempFolder folder;
    for (int i = 0; i < Folders; ++i)
        folder.MakeFolder("\u0410\u043b\u044c\u0431\u043e\u043c " +
                          std::to_string(i * 7919 % Folders));
    const FakeVolumes volumes;
    FolderRows rows(volumes, "/");
    for (auto _ : state)
        rows.Enter(folder.Path());
    if (rows.Rows().size() != Folders + 1) state.SkipWithError("not all are there");
}
BENCHMARK(FolderIsListed)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace vk::test
