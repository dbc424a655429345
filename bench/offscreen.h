// Benchmarks of what is painted.
#pragma once

#include <QApplication>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace vk::test {

/// What `main` does: all benchmarks, without a display unless QT_QPA_PLATFORM names one. Qt is
/// there before the first of them and goes after the last, while the process is whole.
inline int RunOffscreen(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QApplication qt(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace vk::test
