// What the satellite receiver's link tells the log.
#pragma once

#include <functional>
#include <string>

namespace vk {

struct Trace {
    std::function<void(const std::string&)> log = {}; ///< empty: nothing is told
    std::function<bool()> bytes = {};                 ///< whether of each byte too; empty: not

    void Log(const std::string& text) const {
        if (log) log(text);
    }
    /// `XMDataLogging`.
    bool Bytes() const { return log && bytes && bytes(); }
};

} // namespace vk
