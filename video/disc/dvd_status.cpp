#include "video/disc/dvd_status.h"

#include "platform/dvd_events.h"

namespace vk {

namespace {

const char* DomainText(std::int64_t domain) {
    switch (domain) {
    case 1:
    case 2:
        return "DVDPLAY";
    case 3:
        return "DVDMENU";
    case 4:
        return "DVDSELECTED";
    case 5:
        return "DVDSTOP";
    default:
        return nullptr;
    }
}

} // namespace

std::optional<DvdStatus> StatusOf(int code, std::int64_t first, std::int64_t second) {
    const auto status = [&](std::string text, int value) {
        return DvdStatus{std::move(text), value, first, second};
    };
    switch (static_cast<DvdEvent>(code)) {
    case DvdEvent::DomainChange:
        if (const char* text = DomainText(first)) return status(text, static_cast<int>(first));
        return std::nullopt;
    case DvdEvent::TitleChange:
        return status(std::to_string(first), 7);
    case DvdEvent::AnglesAvailable:
        return status("CD_STOPPED", 5);
    case DvdEvent::DiscEjected:
        return status("CD_EJECTED", 2);
    case DvdEvent::DiscInserted:
        return status("CD_INSERTED", 3);
    default:
        return std::nullopt;
    }
}

} // namespace vk
