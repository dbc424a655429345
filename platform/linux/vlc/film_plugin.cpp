// libvkfilm.so: the player of films, apart from the program so that libVLC is loaded by the first
// film alone.
#include "platform/linux/vlc/disc_angles.h"
#include "platform/linux/vlc/vlc_film.h"

#include <malloc.h>

namespace {

// Pictures come and go by the megabyte, from a dozen threads. As the allocator is by itself, it
// keeps ever larger ones once they were let go, for each of the threads.
void GiveMemoryBack() {
    constexpr int LargestKept = 1 << 20, Arenas = 4;
    ::mallopt(M_MMAP_THRESHOLD,
              LargestKept); // below are what decoders take for each piece of sound
    ::mallopt(M_TRIM_THRESHOLD, LargestKept);
    ::mallopt(M_ARENA_MAX, Arenas);
}

} // namespace

extern "C" {

/// The caller owns what is returned. `ui` outlives it.
vk::MediaPlayer* make_film_player(vk::UiThread* ui, std::string* /*reason*/) {
    GiveMemoryBack();
    vk::DiscAngles::Begin();
    return new vk::VlcFilm(*ui);
}
}
