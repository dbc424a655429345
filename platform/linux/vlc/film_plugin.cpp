// libvkfilm.so: the player of films, apart from the program so that libVLC is loaded by the first
// film alone.
#include "platform/linux/vlc/vlc_film.h"

extern "C" {

/// The caller owns what is returned. `ui` outlives it.
vk::MediaPlayer* make_film_player(vk::UiThread* ui, std::string* /*reason*/) {
    return new vk::VlcFilm(*ui);
}
}
