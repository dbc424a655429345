#include "platform/linux/vlc/vlc_dvd.h"

#include "platform/linux/vlc/vlc_film.h"
#include "platform/linux/vlc/vlc_mouse.h"

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
    title_ = 0;
    domain_ = DvdDomain::None;
    film_.Name(path, true);
}

DiscTitle VlcDvd::Current() const {
    return film_.session_ ? film_.session_->Index().Of(title_) : DiscTitle{};
}

void VlcDvd::Press(DvdKey key) {
    film_.Ask([key](libvlc_media_player_t* player) {
        libvlc_media_player_navigate(player, static_cast<unsigned>(ModeOf(key)));
    });
}

void VlcDvd::Touch(double x, double y) {
    film_.Ask([x, y](libvlc_media_player_t* player) { ClickPicture(player, x, y); });
}

void VlcDvd::RootMenu() {
    Title(MenuTitle);
}

void VlcDvd::Title(int title) {
    film_.Ask(
        [title](libvlc_media_player_t* player) { libvlc_media_player_set_title(player, title); });
}

void VlcDvd::NextChapter() {
    film_.Ask([](libvlc_media_player_t* player) { libvlc_media_player_next_chapter(player); });
}

void VlcDvd::PreviousChapter() {
    film_.Ask([](libvlc_media_player_t* player) { libvlc_media_player_previous_chapter(player); });
}

// libVLC asks the disc for nothing; on one without a menu it would lose its own title.
bool VlcDvd::UOPValid(int flag) const {
    const DiscTitle rights = Current();
    const bool inTitle = domain_ == DvdDomain::Title;
    switch (flag) {
    case uop::Buttons:
        return InMenu();
    case uop::RootMenu:
        if (!rights.rootMenu) return false;
        break;
    case uop::PauseOn:
        break;
    default:
        if (!inTitle) return false;
    }
    return (rights.forbidden & flag) == 0;
}

void VlcDvd::Notify(DvdEvent event, int parameter) const {
    if (onNotify) onNotify(static_cast<int>(event), parameter, 0);
}

void VlcDvd::Enter(DvdDomain domain) {
    if (domain == domain_) return;
    domain_ = domain;
    Notify(DvdEvent::DomainChange, static_cast<int>(domain));
}

void VlcDvd::Navigated(int title) {
    const bool another = title != title_;
    title_ = title;
    Enter(title == MenuTitle ? DvdDomain::TitleMenu : DvdDomain::Title);
    if (another && title != MenuTitle) {
        Notify(DvdEvent::TitleChange, title);
    }
}

} // namespace vk
