#include "platform/linux/x11/x11_held_keys.h"

#include "platform/linux/x11/x11_focus.h"
#include "platform/linux/x11/x11_keys.h"

#include <xcb/xinput.h>

#include <utility>

namespace vk {

namespace {

// A key is the same with CapsLock and NumLock. Not with any modifier: a manager that holds Alt with
// the key would keep it from us altogether.
constexpr std::uint16_t Locks[] = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2,
                                   XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};
constexpr int Modifiers[] = {XCB_MAP_INDEX_SHIFT, XCB_MAP_INDEX_CONTROL, XCB_MAP_INDEX_1,
                             XCB_MAP_INDEX_4};

std::set<xcb_keycode_t> ModifierKeys(xcb_connection_t* c) {
    std::set<xcb_keycode_t> keys;
    const XReply<xcb_get_modifier_mapping_reply_t> map(
        xcb_get_modifier_mapping_reply(c, xcb_get_modifier_mapping(c), nullptr));
    if (!map) return keys;
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(map.get());
    for (const int row : Modifiers)
        keys.insert(codes + row * map->keycodes_per_modifier,
                    codes + (row + 1) * map->keycodes_per_modifier);
    return keys;
}

bool IsDown(xcb_connection_t* c, xcb_keycode_t code) {
    const XReply<xcb_query_keymap_reply_t> map(
        xcb_query_keymap_reply(c, xcb_query_keymap(c), nullptr));
    return map && (map->keys[code / 8] >> (code % 8) & 1) != 0;
}

} // namespace

void X11HeldKeys::Hold(const std::vector<int>& keys) {
    if (held_.empty() && keys.empty()) return;
    Grab(false);
    held_.clear();
    told_.clear();
    untold_.clear();
    modifiersDown_.clear();
    if (!keys.empty()) held_ = KeyCodes(x_.connection(), keys);
    if (!keys.empty()) modifiers_ = ModifierKeys(x_.connection());
    Grab(true);
    SelectRaw(!held_.empty());
    xcb_flush(x_.connection());
}

// All of such a key comes to the root: a window of our own that has the focus would be handed its
// end without its beginning.
void X11HeldKeys::Grab(bool on) const {
    for (const auto& [code, key] : held_)
        for (const std::uint16_t locks : Locks)
            if (on)
                xcb_grab_key(x_.connection(), 0, x_.Root(), locks, code, XCB_GRAB_MODE_ASYNC,
                             XCB_GRAB_MODE_ASYNC);
            else
                xcb_ungrab_key(x_.connection(), code, x_.Root(), locks);
}

// Of the master devices: another part of this process may ask the same connection about all.
void X11HeldKeys::SelectRaw(bool on) {
    xcb_connection_t* const c = x_.connection();
    const auto* extension = xcb_get_extension_data(c, &xcb_input_id);
    if (!extension || !extension->present) return;
    extension_ = extension->major_opcode;
    const XReply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(c, xcb_input_xi_query_version(c, 2, 2), nullptr));
    struct {
        xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
        std::uint32_t mask = 0;
    } wish;
    if (on)
        wish.mask = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS |
                    XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE | X11KeptTouches::Events;
    xcb_input_xi_select_events(c, x_.Root(), 1, &wish.head);
}

bool X11HeldKeys::Handle(const xcb_generic_event_t& event) {
    if (held_.empty()) return false;
    if (touches_.Handle(event)) return true;
    switch (event.response_type & 0x7F) {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
        return HandleKey(event);
    case XCB_GE_GENERIC:
        return HandleRaw(event);
    default:
        return false;
    }
}

// While a key is held the display repeats its press, and ends it for that each time.
bool X11HeldKeys::HandleKey(const xcb_generic_event_t& event) {
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    const auto held = held_.find(key.detail);
    if (held == held_.end() || key.event != x_.Root()) return false;
    const bool down = (event.response_type & 0x7F) == XCB_KEY_PRESS;
    const Tell tell = tell_; // what is told may let go of the keys
    if (down) {
        untold_.erase(key.detail);
        told_.insert(key.detail);
        tell(held->second, true);
    } else if (!IsDown(x_.connection(), key.detail)) {
        Released(key.detail, held->second);
    }
    return true;
}

// The display tells of a press before it hands that to anybody, and of its end behind that.
bool X11HeldKeys::HandleRaw(const xcb_generic_event_t& event) {
    const auto& raw = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
    const bool down = raw.event_type == XCB_INPUT_RAW_KEY_PRESS;
    const bool keyEvent = down || raw.event_type == XCB_INPUT_RAW_KEY_RELEASE;
    if (raw.extension != extension_ || !keyEvent) return false;
    const auto code = static_cast<xcb_keycode_t>(raw.detail);
    if (modifiers_.contains(code))
        down ? void(modifiersDown_.insert(code)) : void(modifiersDown_.erase(code));
    const auto held = held_.find(code);
    if (held == held_.end()) return true;
    if (!down)
        Released(code, held->second);
    else if (modifiersDown_.empty())
        untold_.insert(code);
    return true;
}

// Told of in both ways, or in one.
void X11HeldKeys::Released(xcb_keycode_t code, int key) {
    const bool told = told_.erase(code) > 0, missed = untold_.erase(code) > 0;
    const Tell tell = tell_;
    if (!told && !(missed && KeyboardTaken(x_))) return;
    if (!told) tell(key, true);
    tell(key, false);
}

} // namespace vk
