#include "platform/linux/x11/x11_keys.h"

#include "platform/linux/x11/x11_properties.h"

#include <cctype>

namespace vk {

namespace {

// The keys that bear no character, by keysymdef.h.
const std::map<int, xcb_keysym_t> NamedKeys = {
    {8, 0xFF08},       {9, 0xFF09},       {13, 0xFF0D},      {19, 0xFF13},      {27, 0xFF1B},
    {32, 0x20},        {33, 0xFF55},      {34, 0xFF56},      {35, 0xFF57},      {36, 0xFF50},
    {37, 0xFF51},      {38, 0xFF52},      {39, 0xFF53},      {40, 0xFF54},      {45, 0xFF63},
    {46, 0xFFFF},      {93, 0xFF67},      {173, 0x1008FF12}, {174, 0x1008FF11}, {175, 0x1008FF13},
    {176, 0x1008FF17}, {177, 0x1008FF16}, {178, 0x1008FF15}, {179, 0x1008FF14}};

constexpr int F1 = 112, F24 = 135, Keypad0 = 96, Keypad9 = 105;
constexpr xcb_keysym_t F1Symbol = 0xFFBE, Keypad0Symbol = 0xFFB0;

xcb_keysym_t SymbolOf(int key) {
    if (const auto named = NamedKeys.find(key); named != NamedKeys.end()) return named->second;
    if (key >= F1 && key <= F24) return F1Symbol + static_cast<xcb_keysym_t>(key - F1);
    if (key >= Keypad0 && key <= Keypad9)
        return Keypad0Symbol + static_cast<xcb_keysym_t>(key - Keypad0);
    const bool letter = key >= 'A' && key <= 'Z', digit = key >= '0' && key <= '9';
    return letter || digit ? static_cast<xcb_keysym_t>(std::tolower(key)) : XCB_NO_SYMBOL;
}

} // namespace

std::map<xcb_keycode_t, int> KeyCodes(xcb_connection_t* connection, const std::vector<int>& keys) {
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const xcb_keycode_t first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const XReply<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(
        connection, xcb_get_keyboard_mapping(connection, first, count), nullptr));
    std::map<xcb_keycode_t, int> codes;
    if (!map) return codes;
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    const int length = xcb_get_keyboard_mapping_keysyms_length(map.get());
    for (const int key : keys)
        for (int at = 0; at < length; ++at)
            if (symbols[at] == SymbolOf(key) && symbols[at] != XCB_NO_SYMBOL)
                codes[static_cast<xcb_keycode_t>(first + at / map->keysyms_per_keycode)] = key;
    return codes;
}

} // namespace vk
