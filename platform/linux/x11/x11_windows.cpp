#include "platform/linux/x11/x11_windows.h"

#include "platform/linux/x11/x11_focus.h"
#include "platform/linux/x11/x11_keys.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr std::uint32_t FromPager = 2; // EWMH: on the user's behalf
constexpr std::uint32_t DecorationsField = 2;
// A program that insists on another size gets its way in the end.
constexpr int MostCorrections = 8;
constexpr std::size_t MostInside = 4096; // windows of a dialog that are looked through
constexpr std::uint32_t NormalState = 1, IconicState = 3; // ICCCM 4.1.3.1

xcb_window_t Id(WindowHandle window) {
    return static_cast<xcb_window_t>(window);
}

XReply<xcb_get_window_attributes_reply_t> Attributes(const X11Properties& x, xcb_window_t window) {
    return XReply<xcb_get_window_attributes_reply_t>(xcb_get_window_attributes_reply(
        x.connection(), xcb_get_window_attributes(x.connection(), window), nullptr));
}

WindowArea AreaOf(const X11Properties& x, xcb_window_t window) {
    xcb_connection_t* const c = x.connection();
    const auto size = xcb_get_geometry(c, window);
    const auto place = xcb_translate_coordinates(c, window, x.Root(), 0, 0);
    const XReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(c, size, nullptr));
    const XReply<xcb_translate_coordinates_reply_t> corner(
        xcb_translate_coordinates_reply(c, place, nullptr));
    if (!geometry || !corner) return {};
    return {corner->dst_x, corner->dst_y, geometry->width, geometry->height};
}

void Configure(const X11Properties& x, xcb_window_t window, const WindowArea& area) {
    const std::uint32_t values[] = {static_cast<std::uint32_t>(area.x),
                                    static_cast<std::uint32_t>(area.y),
                                    static_cast<std::uint32_t>(std::max(1, area.width)),
                                    static_cast<std::uint32_t>(std::max(1, area.height)), 0};
    xcb_configure_window(x.connection(), window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_BORDER_WIDTH,
                         values);
}

// "instance NUL class NUL"
std::string ClassOf(const std::string& property) {
    const auto instance = property.find('\0');
    return instance == std::string::npos ? property : std::string(property.c_str() + instance + 1);
}

} // namespace

X11Windows::X11Windows(xcb_connection_t* connection)
    : x_(connection),
      keys_(
          x_,
          [this](int key, bool down) {
              const auto tell = down ? onKey : onKeyUp; // it may be given another by what is told
              if (tell) tell(key);
          },
          [this](xcb_window_t window, int x, int y) {
              if (onKeptTouch) onKeptTouch(window, x, y);
          }) {
    const auto root = Attributes(x_, x_.Root());
    if (!root) return;
    const std::uint32_t events =
        root->your_event_mask | XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, x_.Root(), XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection);
}

X11Windows::~X11Windows() {
    while (!adopted_.empty())
        X11Windows::Return(adopted_.begin()->first);
}

bool X11Windows::IsProgramWindow(xcb_window_t window) const {
    const auto attributes = Attributes(x_, window);
    return attributes && attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT &&
           !attributes->override_redirect && !x_.Text(window, "WM_CLASS").empty();
}

// Where nobody manages the windows they are the root's own children.
std::vector<ForeignWindow> X11Windows::List() const {
    const bool managed = x_.Managed();
    std::vector<ForeignWindow> list;
    for (const xcb_window_t window :
         managed ? x_.Numbers(x_.Root(), "_NET_CLIENT_LIST_STACKING") : x_.Children(x_.Root()))
        if ((managed || IsProgramWindow(window)) && !adopted_.contains(window))
            list.push_back(Describe(window));
    return list;
}

bool X11Windows::IsOrdinary(xcb_window_t window) const {
    if (!x_.Numbers(window, "WM_TRANSIENT_FOR").empty()) return false;
    const auto kinds = x_.Numbers(window, "_NET_WM_WINDOW_TYPE");
    return kinds.empty() || std::ranges::count(kinds, x_.Atom("_NET_WM_WINDOW_TYPE_NORMAL")) > 0;
}

ForeignWindow X11Windows::Describe(xcb_window_t window) const {
    const auto attributes = Attributes(x_, window);
    std::string title = x_.Text(window, "_NET_WM_NAME");
    if (title.empty()) title = x_.Text(window, "WM_NAME");
    return {.handle = window,
            .program = x_.Process(window),
            .title = std::move(title),
            .windowClass = ClassOf(x_.Text(window, "WM_CLASS")),
            .visible = attributes &&
                       (attributes->map_state == XCB_MAP_STATE_VIEWABLE || IsMinimized(window)),
            .ordinary = IsOrdinary(window),
            .area = AreaOf(x_, window)};
}

bool X11Windows::Exists(WindowHandle window) const {
    return window != 0 && Attributes(x_, Id(window));
}

// The manager lets go of a window that is withdrawn (ICCCM 4.1.4); it is told so by the message
// even when the window was not shown.
void X11Windows::Withdraw(xcb_window_t window) const {
    xcb_unmap_window(x_.connection(), window);
    xcb_unmap_notify_event_t event{};
    event.response_type = XCB_UNMAP_NOTIFY;
    event.event = x_.Root();
    event.window = window;
    xcb_send_event(x_.connection(), 0, x_.Root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
}

bool X11Windows::Adopt(WindowHandle window, WindowHandle host, const WindowArea& area) {
    if (!Exists(window) || !Exists(host)) return false;
    xcb_connection_t* const c = x_.connection();
    const xcb_window_t id = Id(window);
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(c, id, XCB_CW_EVENT_MASK, &events);
    xcb_change_save_set(c, XCB_SET_MODE_INSERT, id);
    Withdraw(id);
    adopted_[id] = {Id(host), area, MostCorrections};
    Put(id);
    return true;
}

void X11Windows::Put(xcb_window_t window) const {
    const Adopted& wish = adopted_.at(window);
    xcb_reparent_window(x_.connection(), window, wish.host, static_cast<std::int16_t>(wish.area.x),
                        static_cast<std::int16_t>(wish.area.y));
    Configure(x_, window, wish.area);
    if (wish.shown) xcb_map_window(x_.connection(), window);
    shields_.Raise(window);
    xcb_flush(x_.connection());
}

void X11Windows::Shield(WindowHandle window) {
    const auto adopted = adopted_.find(Id(window));
    if (adopted == adopted_.end()) return;
    shields_.Put(adopted->first, adopted->second.host, adopted->second.area);
    xcb_flush(x_.connection());
}

// A manager that hears late that the window is no longer its own gives it back its old size, or
// even its old place on the desktop.
void X11Windows::SeeTo(xcb_window_t window, bool asWished) {
    const auto adopted = adopted_.find(window);
    if (adopted == adopted_.end() || asWished || adopted->second.corrections-- <= 0) return;
    Put(window);
}

void X11Windows::Return(WindowHandle window) {
    const xcb_window_t id = Id(window);
    if (adopted_.erase(id) == 0) return;
    shields_.Drop(id);
    xcb_connection_t* const c = x_.connection();
    const WindowArea area = AreaOf(x_, id);
    const std::uint32_t none = XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(c, id, XCB_CW_EVENT_MASK, &none);
    xcb_unmap_window(c, id);
    xcb_reparent_window(c, id, x_.Root(), static_cast<std::int16_t>(area.x),
                        static_cast<std::int16_t>(area.y));
    xcb_change_save_set(c, XCB_SET_MODE_DELETE, id);
    xcb_map_window(c, id);
    xcb_flush(c);
}

void X11Windows::Place(WindowHandle window, const WindowArea& area) {
    const auto adopted = adopted_.find(Id(window));
    if (adopted != adopted_.end()) {
        adopted->second.area = area;
        adopted->second.corrections = MostCorrections;
    }
    Configure(x_, Id(window), area);
    shields_.Place(Id(window), area);
    xcb_flush(x_.connection());
}

void X11Windows::Show(WindowHandle window, bool shown) {
    if (const auto adopted = adopted_.find(Id(window)); adopted != adopted_.end())
        adopted->second.shown = shown;
    shown ? xcb_map_window(x_.connection(), Id(window))
          : xcb_unmap_window(x_.connection(), Id(window));
    shields_.Show(Id(window), shown);
    xcb_flush(x_.connection());
}

void X11Windows::Raise(WindowHandle window) {
    if (IsMinimized(Id(window))) Restore(Id(window));
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(x_.connection(), Id(window), XCB_CONFIG_WINDOW_STACK_MODE, &above);
    shields_.Raise(Id(window));
    xcb_flush(x_.connection());
}

bool X11Windows::IsMinimized(xcb_window_t window) const {
    const auto state = x_.Numbers(window, "WM_STATE");
    return !state.empty() && state[0] == IconicState;
}

// Where nobody manages the windows, what a manager would do falls to us. The display shows a window
// of the save set again when this process ends.
void X11Windows::Minimize(xcb_window_t window) const {
    xcb_connection_t* const c = x_.connection();
    if (x_.Managed()) return x_.Tell(window, "WM_CHANGE_STATE", {IconicState}, true);
    x_.Set(window, "WM_STATE", "WM_STATE", {IconicState, XCB_NONE});
    xcb_change_save_set(c, XCB_SET_MODE_INSERT, window);
    xcb_unmap_window(c, window);
}

void X11Windows::Restore(xcb_window_t window) const {
    if (x_.Managed()) return GiveInput(x_, window, true);
    xcb_map_window(x_.connection(), window);
    xcb_change_save_set(x_.connection(), XCB_SET_MODE_DELETE, window);
    x_.Set(window, "WM_STATE", "WM_STATE", {NormalState, XCB_NONE});
}

void X11Windows::FreeInput(WindowHandle window) {
    if (KeyboardTaken(x_) || PointerTaken(x_)) Minimize(Id(window));
    xcb_flush(x_.connection());
}

void X11Windows::SetTopmost(WindowHandle window, bool on) {
    if (on) Raise(window);
    x_.Tell(Id(window), "_NET_WM_STATE",
            {on ? 1u : 0u, x_.Atom("_NET_WM_STATE_ABOVE"), 0, FromPager}, true);
    xcb_flush(x_.connection());
}

void X11Windows::Maximize(WindowHandle window) {
    x_.Tell(Id(window), "_NET_WM_STATE",
            {1, x_.Atom("_NET_WM_STATE_MAXIMIZED_VERT"), x_.Atom("_NET_WM_STATE_MAXIMIZED_HORZ"),
             FromPager},
            true);
    xcb_flush(x_.connection());
}

// _MOTIF_WM_HINTS: flags, functions, decorations, input mode, status; all managers know it.
void X11Windows::SetFrame(WindowHandle window, bool on) {
    x_.Set(Id(window), "_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS",
           {DecorationsField, 0, on ? 1u : 0u, 0, 0});
    xcb_flush(x_.connection());
}

void X11Windows::Focus(WindowHandle window) {
    GiveInput(x_, Id(window), x_.Managed() && !adopted_.contains(Id(window)));
}

void X11Windows::Close(WindowHandle window) {
    const auto protocols = x_.Numbers(Id(window), "WM_PROTOCOLS");
    const xcb_atom_t wish = x_.Atom("WM_DELETE_WINDOW");
    if (std::ranges::find(protocols, wish) == protocols.end()) return; // it takes no such wish
    x_.Tell(Id(window), "WM_PROTOCOLS", {wish, XCB_CURRENT_TIME}, false);
    xcb_flush(x_.connection());
}

WindowHandle X11Windows::Inside(WindowHandle window, const std::string& windowClass,
                                const std::string& title) const {
    std::vector<xcb_window_t> inside = x_.Children(Id(window));
    for (std::size_t at = 0; at < inside.size() && at < MostInside; ++at) {
        if (ClassOf(x_.Text(inside[at], "WM_CLASS")) == windowClass &&
            x_.Text(inside[at], "WM_NAME") == title)
            return inside[at];
        for (const xcb_window_t deeper : x_.Children(inside[at]))
            inside.push_back(deeper);
    }
    return 0;
}

void X11Windows::PostMouse(WindowHandle window, bool down) {
    const WindowArea area = AreaOf(x_, Id(window));
    xcb_button_press_event_t event{};
    event.response_type = down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE;
    event.detail = XCB_BUTTON_INDEX_1;
    event.root = x_.Root();
    event.event = Id(window);
    event.event_x = static_cast<std::int16_t>(area.width / 2);
    event.event_y = static_cast<std::int16_t>(area.height / 2);
    event.root_x = static_cast<std::int16_t>(area.x + event.event_x);
    event.root_y = static_cast<std::int16_t>(area.y + event.event_y);
    event.state = down ? 0 : XCB_BUTTON_MASK_1;
    event.same_screen = 1;
    x_.Post(Id(window), event);
}

void X11Windows::PostControl(WindowHandle window, char letter) {
    for (const auto& [code, key] : KeyCodes(x_.connection(), {letter}))
        for (const int type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
            xcb_key_press_event_t event{};
            event.response_type = static_cast<std::uint8_t>(type);
            event.detail = code;
            event.root = x_.Root();
            event.event = Id(window);
            event.state = XCB_MOD_MASK_CONTROL;
            event.same_screen = 1;
            x_.Post(Id(window), event);
        }
}

bool X11Windows::TellsOfWindows(const xcb_generic_event_t& event) const {
    switch (event.response_type & 0x7F) {
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
    case XCB_DESTROY_NOTIFY: // all three begin with the window that tells
        return reinterpret_cast<const xcb_map_notify_event_t&>(event).event == x_.Root();
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        return change.window == x_.Root() && change.atom == x_.Atom("_NET_CLIENT_LIST_STACKING");
    }
    default:
        return false;
    }
}

bool X11Windows::Handle(const xcb_generic_event_t& event) {
    if (TellsOfWindows(event) && onChange) onChange();
    if (keys_.Handle(event)) return true;
    switch (event.response_type & 0x7F) {
    case XCB_CONFIGURE_NOTIFY: {
        const auto& now = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        const auto adopted = adopted_.find(now.window);
        const WindowArea area{now.x, now.y, now.width, now.height};
        SeeTo(now.window, adopted == adopted_.end() || area == adopted->second.area);
        return adopted != adopted_.end();
    }
    case XCB_REPARENT_NOTIFY: {
        const auto& now = reinterpret_cast<const xcb_reparent_notify_event_t&>(event);
        const auto adopted = adopted_.find(now.window);
        SeeTo(now.window, adopted == adopted_.end() || now.parent == adopted->second.host);
        return adopted != adopted_.end();
    }
    case XCB_DESTROY_NOTIFY: {
        const auto& end = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
        if (adopted_.erase(end.window) == 0) return false;
        shields_.Drop(end.window);
        if (onGone) onGone(end.window);
        return true;
    }
    default:
        return false;
    }
}

} // namespace vk
