#include "platform/film_library.h"

#include "platform/loaded_library.h"
#include "platform/paths.h"

namespace vk {

namespace {

constexpr const char* LibraryName = "libvkfilm.so";

} // namespace

// It stays loaded: threads of its decoders may outlive a player for a moment.
std::unique_ptr<MediaPlayer> LoadMediaPlayer(const std::string& appDir, UiThread& ui,
                                             std::string& reason) {
    static std::unique_ptr<LoadedLibrary> library;
    if (!library) library = LoadFirstLibrary({JoinPath(appDir, LibraryName)}, reason);
    if (!library) return nullptr;
    using Make = MediaPlayer* (*)(UiThread*, std::string*);
    const auto make = library->Get<Make>("make_film_player");
    if (!make) reason = std::string(LibraryName) + " is not that of this system";
    return std::unique_ptr<MediaPlayer>(make ? make(&ui, &reason) : nullptr);
}

} // namespace vk
