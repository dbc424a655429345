#include "library/tags/tag_text.h"

#include "core/text.h"
#include "core/utf16.h"

#include <algorithm>
#include <charconv>

namespace vk {

std::string TagText(std::string_view bytes) {
    std::string text(bytes);
    std::erase(text, '\0');
    return ToUtf8(text);
}

namespace {

// Each value may have a byte order mark of its own; one without goes by the one before.
void AddUtf16(std::string_view bytes, Utf16Order order, std::vector<std::string>& values) {
    while (bytes.size() >= 2) {
        std::size_t end = 0;
        while (end + 1 < bytes.size() && (bytes[end] != 0 || bytes[end + 1] != 0))
            end += 2;
        const std::string_view value = bytes.substr(0, end);
        if (value.starts_with("\xFE\xFF")) order = Utf16Order::Big;
        if (value.starts_with("\xFF\xFE")) order = Utf16Order::Little;
        values.push_back(Utf16ToUtf8(value, order));
        bytes.remove_prefix(std::min(end + 2, bytes.size()));
    }
}

} // namespace

std::vector<std::string> DecodedValues(std::string_view frame) {
    constexpr char Utf16 = 1, Utf16Big = 2;
    std::vector<std::string> values;
    if (frame.empty()) return values;
    const std::string_view bytes = frame.substr(1);
    if (frame[0] == Utf16 || frame[0] == Utf16Big)
        AddUtf16(bytes, frame[0] == Utf16 ? Utf16Order::Little : Utf16Order::Big, values);
    else
        for (const std::string& value : Split(bytes, '\0'))
            values.push_back(ToUtf8(value));
    for (std::string& value : values)
        value = Trim(value);
    std::erase(values, "");
    return values;
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
