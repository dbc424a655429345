#include "platform/user_folders.h"

#include "platform/paths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace vk {

namespace {

std::string Named(const char* variable) {
    const char* value = std::getenv(variable);
    return value && IsAbsolutePath(value) ? value : "";
}

// The XDG base directories: a variable, else a fixed folder of home.
std::string OfUser(const char* variable, const char* inHome) {
    const std::string named = Named(variable);
    const std::string home = HomeFolder();
    return named.empty() && !home.empty() ? JoinPath(home, inHome) : named;
}

bool IsOwnFolder(const std::string& path) {
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode) &&
           info.st_uid == ::getuid() && (info.st_mode & 022) == 0;
}

} // namespace

std::string HomeFolder() {
    std::string named = Named("HOME");
    if (!named.empty()) return named;
    const passwd* account = ::getpwuid(::getuid());
    return account && account->pw_dir ? account->pw_dir : "";
}

std::string UserConfigFolder() {
    return OfUser("XDG_CONFIG_HOME", ".config");
}

std::string UserDataFolder() {
    return OfUser("XDG_DATA_HOME", ".local/share");
}

std::string UserRuntimeFolder() {
    const std::string runtime = Named("XDG_RUNTIME_DIR");
    return IsOwnFolder(runtime) ? runtime : "";
}

std::string UserTemporaryFolder() {
    const std::string own = "/tmp/velkorandum-" + std::to_string(::getuid());
    if (::mkdir(own.c_str(), 0700) != 0 && errno != EEXIST) return {};
    return IsOwnFolder(own) ? own : std::string();
}

} // namespace vk
