// What the simulated FM radio receives, and was told.
#pragma once

#include <cstdint>
#include <set>

namespace vk::test {

/// Found through the library's call SimRadioState.
struct SimRadio {
    bool there = true; ///< plugged in
    bool open = false, on = false;
    std::int32_t tuned = 0; ///< in units of 50 kHz
    std::set<std::int32_t> stereo = {1770, 1826, 1902, 1930, 1998, 2066, 2134}; ///< stations
    int opened = 0, closed = 0;
};

} // namespace vk::test
