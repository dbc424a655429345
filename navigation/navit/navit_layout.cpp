#include "navigation/navit/navit_layout.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vk {

namespace {

/// One of them a layout; colours as in HTML.
struct Palette {
    int Px(double pixels) const { return static_cast<int>(pixels * percent / 100); }

    const char *name, *ground, *town, *wood, *park, *water, *building, *edge, *street, *main,
        *major, *motorway, *rail, *text, *halo, *route, *vehicle, *vehicleEdge;
    int percent = 100; ///< of the sizes that suit 480 lines
};

constexpr Palette Day{DayLayout, "#f4f1ea", "#e6e1d8", "#b9d8a4", "#c8e6b0", "#8fc0ea",
                      "#d6cfc2", "#a8a296", "#ffffff", "#fff3a0", "#ffd070", "#f29e6a",
                      "#807870", "#202020", "#ffffff", "#1668e8", "#d81e1e", "#ffffff"};
constexpr Palette Night{NightLayout, "#10141c", "#191f2a", "#14281c", "#183222", "#123454",
                        "#222a36",   "#2c3440", "#4e5a6c", "#6f6e4c", "#8e7030", "#8e4e30",
                        "#3c4450",   "#dce2ec", "#10141c", "#3aa0ff", "#ff5038", "#10141c"};

/// A kind of street: how wide against the narrowest, and the zoom order from which it is drawn.
struct Kind {
    const char* items;
    const char* Palette::*colour;
    double width;
    int from;
};

constexpr Kind Kinds[] = {
    {"street_0,street_1_city,street_1_land,living_street,street_service,street_parking_lane",
     &Palette::street, 1, 12},
    {"street_2_city,street_2_land", &Palette::street, 1.15, 10},
    {"street_3_city,street_3_land,ramp,roundabout", &Palette::main, 1.3, 9},
    {"street_4_city,street_4_land,street_n_lanes", &Palette::major, 1.5, 7},
    {"highway_city,highway_land", &Palette::motorway, 1.7, 4}};

constexpr int LastOrder = 18;
/// Pixels of the narrowest street at each zoom order.
constexpr std::array<int, LastOrder + 1> Widths = {1, 1, 1, 1, 1, 1,  1,  1,  1, 2,
                                                   2, 3, 4, 6, 9, 13, 20, 30, 50};

std::string Polyline(std::string_view items, int order, const char* colour, int width) {
    return "<itemgra item_types=\"" + std::string(items) + "\" order=\"" + std::to_string(order) +
           "\"><polyline color=\"" + colour + "\" width=\"" + std::to_string(width) +
           "\"/></itemgra>\n";
}

int WidthAt(const Kind& kind, int order, const Palette& palette) {
    return std::max(1, palette.Px(Widths.at(static_cast<std::size_t>(order)) * kind.width));
}

/// All edges come before all fills, so that crossings are open.
std::string Streets(const Palette& palette) {
    std::string text = "<layer name=\"streets\">\n";
    for (int order = 0; order <= LastOrder; ++order) {
        for (const Kind& kind : Kinds)
            if (order >= std::max(kind.from, 9))
                text +=
                    Polyline(kind.items, order, palette.edge, WidthAt(kind, order, palette) + 4);
        for (const Kind& kind : Kinds)
            if (order >= kind.from)
                text += Polyline(kind.items, order, palette.*kind.colour,
                                 WidthAt(kind, order, palette));
        const int route = std::max(7, Widths.at(static_cast<std::size_t>(order)) * 7 / 10);
        text += Polyline("street_route", order, palette.route, palette.Px(route));
    }
    return text + "</layer>\n";
}

std::string Area(const char* items, const char* order, const char* colour) {
    return std::string("<itemgra item_types=\"") + items + "\" order=\"" + order +
           "\"><polygon color=\"" + colour + "\"/></itemgra>\n";
}

std::string Ground(const Palette& palette) {
    return "<layer name=\"ground\">\n" + Area("poly_town", "0-", palette.town) +
           Area("poly_wood", "0-", palette.wood) + Area("poly_park", "0-", palette.park) +
           Area("poly_water,poly_water_tiled", "0-", palette.water) +
           Area("poly_building", "15-", palette.building) +
           "<itemgra item_types=\"water_line,water_river,water_canal\" order=\"6-\"><polyline "
           "color=\"" +
           palette.water + "\" width=\"6\"/></itemgra>\n" +
           "<itemgra item_types=\"rail\" order=\"10-\"><polyline color=\"" + palette.rail +
           "\" width=\"3\"/></itemgra>\n</layer>\n";
}

// The engine sorts places by their people, into 1, 2 and 5 times a power of ten.
std::string PlaceItems(const char* kind, int fromPower, int toPower) {
    std::string items;
    for (int power = fromPower; power <= toPower; ++power)
        for (const char* times : {"1", "2", "5"})
            items += std::string(kind) + "_label_" + times + "e" + std::to_string(power) + ",";
    return items;
}

std::string Label(const std::string& items, int from, int size, const Palette& palette) {
    return "<itemgra item_types=\"" + items + "\" order=\"" + std::to_string(from) +
           "-\"><circle color=\"" + palette.text + "\" background_color=\"" + palette.halo +
           "\" radius=\"0\" text_size=\"" + std::to_string(palette.Px(size)) + "\"/></itemgra>\n";
}

std::string Words(const Palette& palette) {
    return std::string("<layer name=\"words\">\n") +
           "<itemgra item_types=\"street_0,street_1_city,street_2_city,street_3_city,"
           "street_4_city,street_1_land,street_2_land,street_3_land,street_4_land,"
           "street_n_lanes\" order=\"14-\"><text text_size=\"" +
           std::to_string(palette.Px(17)) + "\" color=\"" + palette.text +
           "\" background_color=\"" + palette.halo + "\"/></itemgra>\n" +
           Label("house_number", 17, 15, palette) +
           Label("poi_fuel,poi_hospital,poi_car_parking,poi_rail_station", 15, 15, palette) +
           Label(PlaceItems("town", 5, 6) + "town_label_1e7", 3, 24, palette) +
           Label(PlaceItems("town", 3, 4), 8, 22, palette) +
           Label(PlaceItems("town", 0, 2) + PlaceItems("district", 0, 6) +
                     "town_label,district_label,town_label_0e0,district_label_0e0",
                 11, 20, palette) +
           "<itemgra item_types=\"route_end\" order=\"0-\"><circle color=\"" + palette.vehicle +
           "\" radius=\"" + std::to_string(palette.Px(22)) + "\" width=\"" +
           std::to_string(palette.Px(8)) + "\"/></itemgra>\n</layer>\n";
}

std::string Arrow(const Palette& palette, const char* colour, int wide, int ahead, int behind) {
    const auto corner = [&](int x, int y) {
        return "<coord x=\"" + std::to_string(palette.Px(x)) + "\" y=\"" +
               std::to_string(palette.Px(y)) + "\"/>";
    };
    return std::string("<itemgra><polygon color=\"") + colour + "\">" + corner(0, ahead) +
           corner(-wide, -behind) + corner(0, -behind / 2) + corner(wide, -behind) +
           corner(0, ahead) + "</polygon></itemgra>";
}

std::string Layout(Palette palette, int percent) {
    palette.percent = percent;
    const std::string cursor = std::to_string(palette.Px(57));
    return std::string("<layout name=\"") + palette.name + "\" color=\"" + palette.ground +
           "\" font=\"DejaVu Sans\">\n<cursor w=\"" + cursor + "\" h=\"" + cursor + "\">" +
           Arrow(palette, palette.vehicleEdge, 21, 27, 24) +
           Arrow(palette, palette.vehicle, 16, 21, 19) + "</cursor>\n" + Ground(palette) +
           Streets(palette) + Words(palette) + "</layout>\n";
}

} // namespace

std::string NavitLayouts(int percent) {
    return Layout(Day, percent) + Layout(Night, percent);
}

} // namespace vk
