#include "platform/film_library.h"

namespace vk {

std::unique_ptr<MediaPlayer> LoadMediaPlayer(const std::string&, UiThread&, std::string& reason) {
    reason = "There is no player of films on this system.";
    return nullptr;
}

} // namespace vk
