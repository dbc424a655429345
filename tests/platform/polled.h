// Waiting for what no event of the loop tells.
#pragma once

#include <QCoreApplication>

#include <chrono>
#include <thread>

namespace vk::test {

/// Asks again and again with events run in between; false when it never holds.
template<class Condition> bool Polled(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) return false;
        QCoreApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

} // namespace vk::test
