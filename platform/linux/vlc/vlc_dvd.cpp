#include "platform/linux/vlc/vlc_dvd.h"

#include "platform/linux/vlc/vlc_film.h"

namespace vk {

namespace {

constexpr int MenuTitle = 0;

libvlc_navigate_mode_t ModeOf(DvdKey key) {
    switch (key) {
    case DvdKey::Up:
        return libvlc_navigate_up;
    case DvdKey::Down:
        return libvlc_navigate_down;
    case DvdKey::Left:
        return libvlc_navigate_left;
    case DvdKey::Right:
        return libvlc_navigate_right;
    case DvdKey::Enter:
        break;
    }
    return libvlc_navigate_activate;
}

} // namespace

void VlcDvd::Directory(const std::string& path) {
    directory_ = path;
    inMenu_ = false;
    film_.Name(path.empty() ? "" : "dvd://" + path, true);
}

void VlcDvd::Press(DvdKey key) {
    film_.Ask([key](libvlc_media_player_t* player) {
        libvlc_media_player_navigate(player, static_cast<unsigned>(ModeOf(key)));
    });
}

void VlcDvd::RootMenu() {
    film_.Ask(
        [](libvlc_media_player_t* player) { libvlc_media_player_set_title(player, MenuTitle); });
}

void VlcDvd::NextChapter() {
    film_.Ask([](libvlc_media_player_t* player) { libvlc_media_player_next_chapter(player); });
}

void VlcDvd::PreviousChapter() {
    film_.Ask([](libvlc_media_player_t* player) { libvlc_media_player_previous_chapter(player); });
}

void VlcDvd::Navigated() {}

} // namespace vk
