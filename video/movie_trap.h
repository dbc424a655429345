// The films' screen by name, and how its operations log what fails in them.
#pragma once

#include "core/base.h"

#include <functional>
#include <string>

namespace vk {

/// The name of the screen that films are shown on.
inline constexpr const char* MovieScreen = "playmovie";

/// Runs an operation of that screen; what fails in it is logged under its name.
inline void TrapMovie(Base& base, const char* where, const std::function<void()>& operation) {
    TrapAndLog(base.report, std::string("An error occured in playmovie.") + where + " ", operation);
}

} // namespace vk
