#include "platform/key_place.h"

#include <string_view>

namespace vk {

namespace {

// Key codes of X11 and Wayland are those of linux/input-event-codes.h and 8.
struct PlaceRow {
    std::uint32_t first;
    std::string_view keys; ///< as on an American keyboard, from left to right
};
constexpr PlaceRow Rows[] = {{10, "1234567890-="},
                             {24, "QWERTYUIOP[]"},
                             {38, "ASDFGHJKL;'`"},
                             {51, "\\ZXCVBNM,./"},
                             {94, "<"}};

// winuser.h: VK_OEM_...
int CodeOf(char key) {
    constexpr std::string_view Keys = ";=,-./`[\\]'<";
    constexpr int Codes[] = {186, 187, 188, 189, 190, 191, 192, 219, 220, 221, 222, 226};
    const auto at = Keys.find(key);
    return at == std::string_view::npos ? key : Codes[at];
}

} // namespace

int KeyAtPlace(std::uint32_t scanCode, std::uint32_t) {
    for (const PlaceRow& row : Rows)
        if (scanCode >= row.first && scanCode < row.first + row.keys.size())
            return CodeOf(row.keys[scanCode - row.first]);
    return 0;
}

} // namespace vk
