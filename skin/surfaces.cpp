#include "skin/surfaces.h"

#include <algorithm>

namespace vk {

void Surfaces::Put(const std::string& owner, Surface surface) {
    std::erase_if(entries_, [&](const Entry& entry) { return entry.owner == owner; });
    const auto place = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.surface.layer > surface.layer;
    });
    const auto put = entries_.insert(place, {owner, std::move(surface)});
    if (put->surface.show) put->surface.show(dialogs_ == 0);
    Restack();
}

void Surfaces::Remove(const std::string& owner) {
    std::erase_if(entries_, [&](const Entry& entry) { return entry.owner == owner; });
}

std::string Surfaces::Owner(Layer layer) const {
    const auto front = std::find_if(entries_.rbegin(), entries_.rend(), [&](const Entry& entry) {
        return entry.surface.layer == layer;
    });
    return front == entries_.rend() ? std::string() : front->owner;
}

void Surfaces::DialogOpened() {
    if (++dialogs_ == 1) ShowPrograms(false);
}

void Surfaces::DialogClosed() {
    if (dialogs_ == 0 || --dialogs_ > 0) return;
    ShowPrograms(true);
    Restack();
}

void Surfaces::Restack() const {
    if (dialogs_ > 0) return;
    for (const Entry& entry : entries_)
        entry.surface.raise();
}

void Surfaces::ShowPrograms(bool shown) const {
    for (const Entry& entry : entries_)
        if (entry.surface.show) entry.surface.show(shown);
}

} // namespace vk
