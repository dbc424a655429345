#include "platform/linux/power/x11_gamma.h"

#include "platform/linux/x11/x11_properties.h"

#include <charconv>
#include <optional>
#include <string_view>

namespace vk {

namespace {

constexpr std::uint32_t Major = 1, Minor = 3; // the first that tells the resources as last known

constexpr std::string_view Prefix = "crtc-";

std::string NameOf(xcb_randr_crtc_t controller) {
    return std::string(Prefix) + std::to_string(controller);
}

std::optional<xcb_randr_crtc_t> ControllerOf(std::string_view name) {
    if (!name.starts_with(Prefix)) return std::nullopt;
    const std::string_view digits = name.substr(Prefix.size());
    xcb_randr_crtc_t number = 0;
    const auto [end, wrong] = std::from_chars(digits.begin(), digits.end(), number);
    if (wrong != std::errc() || end != digits.end()) return std::nullopt;
    return number;
}

std::vector<std::uint16_t> Values(const std::uint16_t* first, int count) {
    return {first, first + count};
}

} // namespace

X11Gamma::X11Gamma(xcb_connection_t* connection) : connection_(connection) {
    const auto* extension = xcb_get_extension_data(connection_, &xcb_randr_id);
    if (!extension || !extension->present) return;
    const XReply<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
        connection_, xcb_randr_query_version(connection_, Major, Minor), nullptr));
    there_ = version && (version->major_version > Major || version->minor_version >= Minor);
}

std::vector<xcb_randr_crtc_t> X11Gamma::Controllers() const {
    if (!there_) return {};
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    const auto asked = xcb_randr_get_screen_resources_current(connection_, screen->root);
    const XReply<xcb_randr_get_screen_resources_current_reply_t> resources(
        xcb_randr_get_screen_resources_current_reply(connection_, asked, nullptr));
    if (!resources) return {};
    const auto* first = xcb_randr_get_screen_resources_current_crtcs(resources.get());
    return {first, first + xcb_randr_get_screen_resources_current_crtcs_length(resources.get())};
}

// All are asked before the first is answered: one way to the display server and back.
std::vector<DisplayRamp> X11Gamma::Read() const {
    const auto controllers = Controllers();
    std::vector<xcb_randr_get_crtc_gamma_cookie_t> asked;
    asked.reserve(controllers.size());
    for (const xcb_randr_crtc_t controller : controllers)
        asked.push_back(xcb_randr_get_crtc_gamma(connection_, controller));
    std::vector<DisplayRamp> ramps;
    for (std::size_t i = 0; i < asked.size(); ++i) {
        const XReply<xcb_randr_get_crtc_gamma_reply_t> reply(
            xcb_randr_get_crtc_gamma_reply(connection_, asked[i], nullptr));
        if (!reply || reply->size == 0) continue;
        ramps.push_back({NameOf(controllers[i]),
                         {Values(xcb_randr_get_crtc_gamma_red(reply.get()), reply->size),
                          Values(xcb_randr_get_crtc_gamma_green(reply.get()), reply->size),
                          Values(xcb_randr_get_crtc_gamma_blue(reply.get()), reply->size)}});
    }
    return ramps;
}

// The server itself says when there is no such controller any more.
bool X11Gamma::Write(const DisplayRamp& ramp) {
    const auto controller = ControllerOf(ramp.display);
    if (!there_ || !controller) return false;
    const auto set = xcb_randr_set_crtc_gamma_checked(
        connection_, *controller, static_cast<std::uint16_t>(ramp.ramp.red.size()),
        ramp.ramp.red.data(), ramp.ramp.green.data(), ramp.ramp.blue.data());
    const XReply<xcb_generic_error_t> error(xcb_request_check(connection_, set));
    return !error;
}

} // namespace vk
