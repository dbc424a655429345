// What a disc's notifications are called.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vk {

/// One word on what happened, with the parameters of the notification.
struct DvdStatus {
    std::string text;
    int value = 0; ///< the new domain, or the kind of the text
    std::int64_t first = 0, second = 0;
};

/// Nothing for codes that have no text.
std::optional<DvdStatus> StatusOf(int code, std::int64_t first, std::int64_t second);

} // namespace vk
