#include "library/tags/tag_text.h"

#include "core/text.h"

#include <charconv>

namespace vk {

std::string TagText(std::string_view bytes) {
    std::string text(bytes);
    std::erase(text, '\0');
    return ToUtf8(text);
}

std::uint16_t TrackNumber(std::string_view text) {
    const std::string digits = Trim(text);
    std::uint16_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number); // stays 0 on failure
    return number;
}

void CutTexts(TagRecord& tag) {
    for (std::string* text : {&tag.Title, &tag.Artist, &tag.Album, &tag.Genre})
        *text = Left(*text, TagTextLength);
}

} // namespace vk
