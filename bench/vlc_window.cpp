// vlc_window FILM WIDTH HEIGHT: plays a film by libVLC's own X11 output in a window of that size,
// for the processor time that others need for it.
#include <unistd.h>
#include <vlc/vlc.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <iterator>

namespace {

xcb_window_t MakeWindow(xcb_connection_t* display, std::uint16_t width, std::uint16_t height) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(display)).data;
    const xcb_window_t window = xcb_generate_id(display);
    xcb_create_window(display, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, width, height, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
    xcb_map_window(display, window);
    xcb_flush(display);
    return window;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    xcb_connection_t* display = xcb_connect(nullptr, nullptr);
    const auto width = static_cast<std::uint16_t>(std::atoi(argv[2]));
    const auto height = static_cast<std::uint16_t>(std::atoi(argv[3]));
    const char* options[] = {
        "--no-xlib", "--quiet",     "--avcodec-hw=none",       "--vout=xcb_x11",
        "--no-osd",  "--aout=alsa", "--alsa-audio-device=null"};
    libvlc_instance_t* library = libvlc_new(static_cast<int>(std::size(options)), options);
    libvlc_media_t* film = libvlc_media_new_path(library, argv[1]);
    libvlc_media_player_t* player = libvlc_media_player_new_from_media(film);
    libvlc_media_player_set_xwindow(player, MakeWindow(display, width, height));
    libvlc_media_player_play(player);
    while (libvlc_media_player_get_state(player) < libvlc_Ended)
        ::sleep(1);
    return 0;
}
