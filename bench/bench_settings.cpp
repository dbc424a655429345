// The settings in the whole application: from a tab to the painted page, from a change to its
// picture, on every page.
#include "bench/offscreen.h"
#include "bench/running.h"
#include "settings/screen/settings_screen.h"

#include <QMouseEvent>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace vk::test {
namespace {

constexpr double PageMs = 50, ChangeMs = 16;
constexpr int Rounds = 20, Sheets = 5;

struct Shown {
    const Page* page;
    settings* screen;
};

std::vector<Shown> PagesOf(Running& running) {
    running.Go({Qt::Key_P});
    std::vector<Shown> pages;
    for (QWidget* child : running.host().window.findChildren<QWidget*>())
        if (auto* screen = dynamic_cast<settings*>(child))
            for (const Page& page : screen->Pages())
                pages.push_back({&page, screen});
    return pages;
}

void Report(benchmark::State& state, std::vector<double> times, double limit) {
    std::erase_if(times, [](double ms) { return ms < 0; }); // nothing to be seen of it
    if (times.empty()) return state.SkipWithError("nothing was painted");
    std::ranges::sort(times);
    state.counters["median_ms"] = times[times.size() / 2];
    state.counters["worst_ms"] = times.back();
    if (times.back() > limit) state.SkipWithError("too slow");
}

// Which page or row it was is told, so that it can be mended.
void Tell(const char* what, const std::vector<double>& times) {
    if (!times.empty())
        std::fprintf(stderr, "%-40.40s %6.1f ms\n", what, *std::ranges::max_element(times));
}

void PageOpens(benchmark::State& state) {
    Running running(10);
    const auto pages = PagesOf(running);
    std::vector<double> all;
    for (auto _ : state)
        for (const Shown& each : pages) {
            std::vector<double> times;
            for (int round = 0; round < Rounds; ++round) {
                running.host().screens.Show(pages[each.page == pages[0].page].page->name);
                Running::Run(std::chrono::milliseconds(5));
                times.push_back(
                    running.Shown([&] { running.host().screens.Show(each.page->name); }));
            }
            Tell(each.page->name, times);
            all.insert(all.end(), times.begin(), times.end());
        }
    Report(state, all, PageMs);
}
BENCHMARK(PageOpens)->Iterations(1);

/// What a press on the row changes at once, without a question.
std::vector<std::function<void()>> ChangesOf(const Row& row) {
    std::vector<std::function<void()>> changes;
    if (row.changes.empty() || (row.usable && !row.usable())) return changes;
    if (row.use && row.lit) changes = {row.use, row.use};
    if (row.ends.size() == 2)
        for (const Row::End& end : {row.ends[1], row.ends[0]})
            changes.push_back(end.use);
    return changes;
}

bool IsShown(const settings& screen, const Row& row) {
    return std::ranges::any_of(screen.findChildren<PlateLabel*>(), [&](const PlateLabel* plate) {
        return plate->isVisible() && plate->Text() == row.text();
    });
}

void Touch(QWidget* target) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const QPointF at = target->rect().center();
        QMouseEvent event(type, at, target->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(target, &event);
    }
}

void ChangeShows(benchmark::State& state) {
    Running running(10);
    std::vector<double> all;
    const auto pages = PagesOf(running);
    for (auto _ : state)
        for (const Shown& each : pages)
            for (int sheet = 0; sheet < Sheets; ++sheet) {
                running.host().screens.Show(each.page->name);
                if (auto* more = each.screen->findChild<QWidget*>("More")) Touch(more);
                Running::Run(std::chrono::milliseconds(50));
                for (const Row& row : each.page->rows) {
                    if (!IsShown(*each.screen, row)) continue;
                    std::vector<double> times;
                    for (const auto& change : ChangesOf(row))
                        times.push_back(running.Shown([&] {
                            change();
                            each.screen->Draw();
                        }));
                    Tell(row.text().c_str(), times);
                    // What another size costs the screens that are not in front comes later.
                    Running::Run(std::chrono::milliseconds(100));
                    all.insert(all.end(), times.begin(), times.end());
                }
            }
    Report(state, all, ChangeMs);
}
BENCHMARK(ChangeShows)->Iterations(1);

} // namespace
} // namespace vk::test

int main(int argc, char** argv) {
    return vk::test::RunOffscreen(argc, argv);
}
