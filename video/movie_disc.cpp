#include "video/movie_disc.h"

#include "core/optical_drive.h"
#include "core/text.h"
#include "platform/paths.h"

#include <utility>

namespace vk {

std::string MovieDisc::Drive() const {
    return OpticalRoot(n_.base.volumes, n_.base.settings.values.CDDriveLetter);
}

DVD* MovieDisc::Made() {
    MediaPlayer* player = n_.deck.Player();
    if (!player || DVD1) return DVD1.get();
    DVD1 = std::make_unique<DVD>(DVD::Needs{*player, n_.loudness, n_.base.volumes});
    DVD1->onRefused = [this] { n_.say("The disc does not permit this here."); };
    DVD1->onPosted = [this](const DvdStatus& status) { Told(status); };
    return DVD1.get();
}

bool MovieDisc::Open(const std::string& directory, const DiscPlace& place) {
    DVD* control = Made();
    if (!control) return false;
    control->directory(directory);
    wanted_ = place;
    asked_ = false;
    open_ = n_.deck.OpenDisc([&] { return control->Play(); });
    if (!open_) n_.base.log.WriteDebugLog("No valid DVD codec detected.");
    return open_;
}

void MovieDisc::Close() {
    if (std::exchange(open_, false)) DVD1->stopdvd();
}

std::string MovieDisc::Name() const {
    if (!DVD1) return {};
    const std::string& directory = DVD1->directory();
    std::string label = ToUtf8(n_.base.volumes.Label(directory));
    if (!label.empty()) return label;
    const bool folder = EqualNoCase(FileNameOf(directory), "VIDEO_TS");
    return ToUtf8(FileNameOf(folder ? FolderOf(directory) : directory));
}

void MovieDisc::Press(DvdKey key) {
    switch (key) {
    case DvdKey::Up:
        return DVD1->uparrow();
    case DvdKey::Down:
        return DVD1->downarrow();
    case DvdKey::Left:
        return DVD1->leftarrow();
    case DvdKey::Right:
        return DVD1->rightarrow();
    case DvdKey::Enter:
        return DVD1->enterbutton();
    }
}

void MovieDisc::Pause() {
    DVD1->pause();
}

// The disc has begun, in its menu or a title: from there it can be led to where it was left, first
// to the title and, when that plays, to the second.
void MovieDisc::Told(const DvdStatus&) {
    if (!open_ || wanted_.title == 0) return;
    MediaPlayer& player = *n_.deck.Loaded();
    if (player.Dvd().Title() == wanted_.title)
        player.CurrentPosition(std::exchange(wanted_, {}).seconds);
    else if (!std::exchange(asked_, true))
        player.Dvd().Title(wanted_.title);
}

} // namespace vk
