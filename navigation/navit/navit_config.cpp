#include "navigation/navit/navit_config.h"

#include "navigation/navit/navit_layout.h"

#include <string_view>

namespace vk {

namespace {

/// The speed on a kind of way: as the engine reckons the time, and how much it is liked.
struct Way {
    const char* items;
    int speed;
};

constexpr Way Ways[] = {
    {"street_0,street_1_city,living_street,street_service,track_gravelled,track_unpaved,"
     "street_parking_lane",
     20},
    {"street_2_city,track_paved", 35},
    {"street_3_city", 40},
    {"street_4_city", 45},
    {"highway_city", 80},
    {"street_1_land", 50},
    {"street_2_land", 65},
    {"street_3_land", 70},
    {"street_4_land", 80},
    {"street_n_lanes,highway_land", 110},
    {"ramp", 45},
    {"roundabout", 20},
    {"ferry", 20}};
constexpr int Everywhere = 60; // weight of all ways where the shortest is asked for

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text)
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '"')
            escaped += "&quot;";
        else
            escaped += c;
    return escaped;
}

std::string Attribute(const char* name, std::string_view value) {
    return std::string(" ") + name + "=\"" + Escaped(value) + "\"";
}

std::string Attribute(const char* name, int value) {
    return Attribute(name, std::to_string(value));
}

// Masks: which directions and what kind of vehicle a way has to be open for, one way streets
// included. Depths: how far around start and end the small streets count.
std::string Profile(const char* name, bool shortest) {
    std::string text = "<vehicleprofile" + Attribute("name", name) +
                       " route_depth=\"4:25%,8:40000,18:10000\" flags=\"0x4000000\""
                       " flags_forward_mask=\"0x4000002\" flags_reverse_mask=\"0x4000001\""
                       " maxspeed_handling=\"0\" route_mode=\"0\" static_speed=\"5\""
                       " static_distance=\"25\">\n";
    for (const Way& way : Ways)
        text += "<roadprofile" + Attribute("item_types", way.items) +
                Attribute("speed", way.speed) +
                Attribute("route_weight", shortest ? Everywhere : way.speed) + "/>\n";
    return text + "</vehicleprofile>\n";
}

std::string Announcement(const char* items, int near, int soon, int far) {
    return std::string("<announce") + Attribute("type", items) + Attribute("level0", near) +
           Attribute("level1", soon) + Attribute("level2", far) + Attribute("unit", "m") + "/>\n";
}

std::string Announcements() {
    return "<navigation>\n" +
           Announcement("street_0,street_1_city,street_parking_lane,living_street,street_service",
                        25, 100, 200) +
           Announcement("street_2_city,street_3_city,street_4_city,ramp", 50, 200, 500) +
           Announcement("highway_city,street_1_land,street_2_land,street_3_land,street_4_land", 100,
                        400, 1000) +
           Announcement("street_n_lanes,highway_land", 300, 1000, 2000) + "</navigation>\n";
}

// The window is small until it has its place: it comes up by itself.
std::string Screen(bool window) {
    if (!window) return "<graphics type=\"null\" event_loop_system=\"glib\"/>\n";
    return "<graphics type=\"gtk_drawing_area\" w=\"16\" h=\"16\"/>\n";
}

} // namespace

// A plug-in is named before it is used, and the one without a display is left out by a line of its
// own elsewhere. Without `menu_on_map_click` a touch of the map ends the program.
std::string NavitConfigText(const NavitConfig& config) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<config>\n<plugins>\n"
           "<plugin path=\"$NAVIT_LIBDIR/*/${NAVIT_LIBPREFIX}lib*.so\" ondemand=\"yes\"/>\n"
           "<plugin path=\"$NAVIT_LIBDIR/*/${NAVIT_LIBPREFIX}libbinding_dbus.so\""
           " active=\"yes\"/>\n</plugins>\n"
           "<debug name=\"global\" dbg_level=\"error\"/>\n<debug name=\"segv\" level=\"0\"/>\n"
           "<navit center=\"9.1 48.9\" tracking=\"1\" recent_dest=\"0\" drag_bitmap=\"0\"" +
           Attribute("zoom", config.zoom) + Attribute("orientation", config.orientation) +
           Attribute("autozoom_active", config.autoZoom) + Attribute("imperial", config.imperial) +
           Attribute("default_layout", config.night ? NightLayout : DayLayout) + ">\n" +
           Screen(config.window) +
           "<gui type=\"internal\" enabled=\"yes\" menu_on_map_click=\"0\"/>\n"
           "<vehicle name=\"Receiver\" enabled=\"yes\" active=\"1\" follow=\"1\"" +
           Attribute("profilename", config.profile) +
           Attribute("source", "file:" + config.receiver) + "/>\n<tracking cdf_histsize=\"0\"/>\n" +
           Profile(VehicleProfiles[0], false) + Profile(VehicleProfiles[1], true) +
           "<route destination_distance=\"50\"/>\n" + Announcements() +
           "<speech type=\"dbus\"/>\n<mapset enabled=\"yes\"><map type=\"binfile\" "
           "enabled=\"yes\"" +
           Attribute("data", config.map) + "/></mapset>\n" + NavitLayouts(config.drawnAt) +
           "</navit>\n</config>\n";
}

std::string PrivateBusConfigText(const std::string& address) {
    return "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
           " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
           "<busconfig>\n<type>session</type>\n<listen>" +
           Escaped(address) +
           "</listen>\n<auth>EXTERNAL</auth>\n<policy context=\"default\">\n"
           "<allow send_destination=\"*\" eavesdrop=\"true\"/>\n<allow eavesdrop=\"true\"/>\n"
           "<allow own=\"*\"/>\n</policy>\n</busconfig>\n";
}

} // namespace vk
