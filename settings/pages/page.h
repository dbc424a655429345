// A settings page, as data.
#pragma once

#include "input/actions.h"
#include "settings/pages/row.h"

#include <functional>
#include <string>
#include <vector>

namespace vk {

/// What is left empty is as on every page.
struct Page {
    const char* name; ///< as a screen
    const char* tab;
    std::vector<Row> rows;
    std::vector<Row> footer = {}; ///< under each sheet; without it: Done, as Escape
    std::function<std::string()> heading = {};
    std::function<void()> enter = {}, leave = {};
    /// Brings the page to the front in its own way.
    std::function<void()> open = {};
    /// What Escape does; else it leads to the first page.
    std::function<void()> quit = {};
    /// Takes a key, or a code of the remote, before it works the page; true when it did.
    std::function<bool(const std::string&)> takesKey = {};
    std::function<bool(const InputCode&)> takesCode = {};
    int refreshMs = 1000; ///< how often what it shows is looked at again
    bool repeats = true;  ///< the arrows go on while they are held
};

} // namespace vk
