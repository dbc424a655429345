#include "platform/linux/x11/x11_properties.h"

#include <xcb/res.h>

#include <algorithm>

namespace vk {

namespace {

constexpr std::uint32_t LongestProperty = 65536; // in units of 4 bytes

// Nothing where the values are not of `bits` each.
XReply<xcb_get_property_reply_t> Property(const X11Properties& x, xcb_window_t window,
                                          const std::string& name, int bits) {
    XReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(x.connection(),
                               xcb_get_property(x.connection(), 0, window, x.Atom(name),
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, LongestProperty),
                               nullptr));
    if (reply && reply->format != bits) reply.reset();
    return reply;
}

XReply<xcb_query_tree_reply_t> Tree(xcb_connection_t* connection, xcb_window_t window) {
    return XReply<xcb_query_tree_reply_t>(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
}

} // namespace

X11Properties::X11Properties(xcb_connection_t* connection) : connection_(connection) {
    const auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    if (screens.rem > 0) root_ = screens.data->root;
}

xcb_atom_t X11Properties::Atom(const std::string& name) const {
    xcb_atom_t& atom = atoms_[name];
    if (atom != XCB_ATOM_NONE) return atom;
    const auto request =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const XReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_, request, nullptr));
    if (reply) atom = reply->atom;
    return atom;
}

std::vector<std::uint32_t> X11Properties::Numbers(xcb_window_t window,
                                                  const std::string& property) const {
    const auto reply = Property(*this, window, property, 32);
    if (!reply) return {};
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

std::string X11Properties::Text(xcb_window_t window, const std::string& property) const {
    const auto reply = Property(*this, window, property, 8);
    if (!reply) return {};
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return {bytes, reply->value_len};
}

void X11Properties::Set(xcb_window_t window, const std::string& property, const std::string& type,
                        const std::vector<std::uint32_t>& values) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, Atom(property), Atom(type), 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
}

void X11Properties::Tell(xcb_window_t window, const std::string& message,
                         const std::vector<std::uint32_t>& data, bool manager) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = Atom(message);
    std::copy_n(data.begin(), std::min<std::size_t>(data.size(), 5), event.data.data32);
    constexpr std::uint32_t ToManager =
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_send_event(connection_, 0, manager ? root_ : window, manager ? ToManager : 0,
                   reinterpret_cast<const char*>(&event));
}

// A display of another machine knows no processes of this one.
long X11Properties::Process(xcb_window_t window) const {
    const auto told = Numbers(window, "_NET_WM_PID");
    if (!told.empty()) return static_cast<long>(told[0]);
    const auto* extension = xcb_get_extension_data(connection_, &xcb_res_id);
    if (!extension || !extension->present) return 0;
    const xcb_res_client_id_spec_t asked{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const XReply<xcb_res_query_client_ids_reply_t> reply(xcb_res_query_client_ids_reply(
        connection_, xcb_res_query_client_ids(connection_, 1, &asked), nullptr));
    if (!reply) return 0;
    const auto ids = xcb_res_query_client_ids_ids_iterator(reply.get());
    const bool any = ids.rem > 0 && xcb_res_client_id_value_value_length(ids.data) > 0;
    return any ? static_cast<long>(*xcb_res_client_id_value_value(ids.data)) : 0;
}

// A manager that has gone may leave its property behind.
bool X11Properties::Managed() const {
    const auto check = Numbers(root_, "_NET_SUPPORTING_WM_CHECK");
    return !check.empty() && Numbers(check[0], "_NET_SUPPORTING_WM_CHECK") == check;
}

std::vector<xcb_window_t> X11Properties::Children(xcb_window_t window) const {
    const auto tree = Tree(connection_, window);
    if (!tree) return {};
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    return {children, children + xcb_query_tree_children_length(tree.get())};
}

std::optional<xcb_window_t> X11Properties::Parent(xcb_window_t window) const {
    const auto tree = Tree(connection_, window);
    return tree ? std::optional(tree->parent) : std::nullopt;
}

} // namespace vk
