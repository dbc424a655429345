// Texts in UTF-16, as some programs write their lists (Unicode 15, section 3.9).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vk {

enum class Utf16Order { Little, Big };

/// The byte order of a text in UTF-16: by its byte order mark, or without one when every second
/// byte of its start is never, the other often 0, as in paths with Latin letters. Nothing for
/// other texts.
std::optional<Utf16Order> Utf16OrderOf(std::string_view bytes);

/// The text as UTF-8, without the byte order mark. A half of a pair alone becomes U+FFFD; an odd
/// byte at the end is dropped.
std::string Utf16ToUtf8(std::string_view bytes, Utf16Order order);

} // namespace vk
