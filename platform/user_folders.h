// Folders of the user who runs the system, and where its own files lie.
#pragma once

#include "platform/file_state.h"

#include <functional>
#include <string>

namespace vk {

/// Home as the environment names it, else as the user's account does; "" when neither does.
std::string HomeFolder();
/// Where programs keep a user's configuration and data; "" when there is none.
std::string UserConfigFolder();
std::string UserDataFolder();
/// The session's folder for sockets; "" where it has none that is this user's alone.
std::string UserRuntimeFolder();
/// A folder that is this user's alone and empty after the next start of the machine, made when it
/// is missing; "" when it cannot be had.
std::string UserTemporaryFolder();

/// Where the system's files lie.
struct Folders {
    /// All in one folder.
    Folders(std::string folder) : app(std::move(folder)), state(app) {}

    std::string app;     ///< what is shipped: programs, skins, pictures
    std::string state;   ///< what the system writes
    bool lasting = true; ///< false: `state` does not outlive the machine's end
};

/// `appDir` for both where it takes files, as `takesFiles` says of a path in it. Else what is
/// written goes to a folder of the user's data, which begins with the files of state that `appDir`
/// has; without one to a temporary folder; and where nothing takes files `state` is `appDir`.
/// Every program of the system comes to the same.
Folders FindFolders(const std::string& appDir,
                    const std::function<bool(const std::string&)>& takesFiles = CanReplace);

} // namespace vk
