#include "navigation/navit/navit_bus.h"

#include <string_view>
#include <utility>

namespace vk {

namespace {

constexpr const char* Service = "org.navit_project.navit";
constexpr const char* Root = "/org/navit_project/navit";
constexpr const char* Navit = "/org/navit_project/navit/default_navit";
constexpr const char* NavitInterface = "org.navit_project.navit.navit";
constexpr const char* SearchInterface = "org.navit_project.navit.search_list";

DBusLink::Reply Succeeded(NavitBus::Done done) {
    return [done = std::move(done)](sd_bus_message* reply, const std::string&) {
        done(reply != nullptr);
    };
}

void Ignored(sd_bus_message*, const std::string&) {}

std::optional<std::string> TextOf(sd_bus_message* reply, const char* type) {
    const char* text = nullptr;
    if (!reply || sd_bus_message_read(reply, type, &text) < 0 || !text) return std::nullopt;
    return std::string(text);
}

/// Where a value of a line goes; null for what is not needed.
std::string* Place(SearchResult& result, std::string_view kind, std::string_view name) {
    if (kind == "housenumber" && name == "postal") return &result.postal;
    if (kind == "country" && name == "iso2") return &result.country;
    if (name != "name") return nullptr;
    if (kind == "town") return &result.town;
    if (kind == "street") return &result.street;
    return kind == "housenumber" ? &result.houseNumber : nullptr;
}

// a{sv}
bool ReadValues(sd_bus_message* reply, SearchResult& result, std::string_view kind) {
    if (sd_bus_message_enter_container(reply, 'a', "{sv}") < 0) return false;
    while (sd_bus_message_enter_container(reply, 'e', "sv") > 0) {
        const char* name = "";
        const char* type = "";
        const char* text = nullptr;
        sd_bus_message_read(reply, "s", &name);
        sd_bus_message_peek_type(reply, nullptr, &type);
        const bool isText = type && std::string_view(type) == "s";
        if (!isText)
            sd_bus_message_skip(reply, "v");
        else if (sd_bus_message_read(reply, "v", "s", &text) < 0)
            return false;
        std::string* const place = Place(result, kind, name);
        if (place && text) *place = text;
        sd_bus_message_exit_container(reply);
    }
    return sd_bus_message_exit_container(reply) >= 0;
}

// i(iii)a{sa{sv}}: number, projection and place, what is known of each level.
std::optional<SearchResult> ResultOf(sd_bus_message* reply) {
    SearchResult result;
    std::int32_t projection = 0;
    if (!reply || sd_bus_message_read(reply, "i(iii)", &result.id, &projection, &result.point.x,
                                      &result.point.y) < 0)
        return std::nullopt;
    if (sd_bus_message_enter_container(reply, 'a', "{sa{sv}}") < 0) return std::nullopt;
    while (sd_bus_message_enter_container(reply, 'e', "sa{sv}") > 0) {
        const char* kind = "";
        sd_bus_message_read(reply, "s", &kind);
        if (!ReadValues(reply, result, kind)) return std::nullopt;
        sd_bus_message_exit_container(reply);
    }
    return result;
}

} // namespace

NavitBus::NavitBus(const std::string& address) : link_(address, DBusLink::GreetingMs, Service) {
    link_.onReady = [this] {
        if (onReady) onReady();
    };
    link_.onLost = [this](const std::string&) {
        if (onLost) onLost();
    };
    link_.Hear("/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged",
               [this](sd_bus_message* signal) {
                   const char *name = "", *before = "", *now = "";
                   if (sd_bus_message_read(signal, "sss", &name, &before, &now) < 0) return;
                   if (onEngine && std::string_view(name) == Service) onEngine(*now != '\0');
               });
}

template<class... Arguments>
void NavitBus::Tell(const char* method, const char* types, Arguments... arguments) {
    link_.Call(Navit, NavitInterface, method, Ignored, types, arguments...);
}

void NavitBus::Evaluate(const char* name, Text done) {
    const auto answered = [done = std::move(done)](sd_bus_message* reply, const std::string&) {
        done(TextOf(reply, "s"));
    };
    link_.Call(Navit, NavitInterface, "evaluate", answered, "s", name);
}

void NavitBus::SetNumber(const char* name, std::int32_t value) {
    Tell("set_attr", "sv", name, "i", value);
}

void NavitBus::SetSwitch(const char* name, bool value) {
    Tell("set_attr", "sv", name, "b", static_cast<int>(value));
}

void NavitBus::SetLayout(const char* name) {
    Tell("set_layout", "s", name);
}

void NavitBus::SetDestination(MapPoint point, const std::string& name, Done done) {
    link_.Call(Navit, NavitInterface, "set_destination", Succeeded(std::move(done)), "(iii)s", 1,
               point.x, point.y, name.c_str());
}

void NavitBus::ClearDestination() {
    Tell("clear_destination", "");
}

void NavitBus::Draw() {
    Tell("draw", "");
}

void NavitBus::ZoomToRoute() {
    Tell("zoom_to_route", "");
}

void NavitBus::NewSearch(Text done) {
    const auto answered = [this, done = std::move(done)](sd_bus_message* reply,
                                                         const std::string&) {
        const char *name = nullptr, *mapset = nullptr;
        if (!reply || sd_bus_message_read(reply, "s", &name) < 0 ||
            sd_bus_message_read(reply, "v", "o", &mapset) < 0)
            return done({});
        FromMapset(mapset, done);
    };
    link_.Call(Navit, NavitInterface, "get_attr", answered, "s", "mapset");
}

void NavitBus::FromMapset(const std::string& mapset, Text done) {
    const auto answered = [done = std::move(done)](sd_bus_message* reply, const std::string&) {
        done(TextOf(reply, "o"));
    };
    link_.Call(Root, Service, "search_list_new", answered, "o", mapset.c_str());
}

void NavitBus::Search(const std::string& search, const char* level, const std::string& text,
                      bool beginnings, Done done) {
    link_.Call(search.c_str(), SearchInterface, "search", Succeeded(std::move(done)), "svi", level,
               "s", text.c_str(), static_cast<int>(beginnings));
}

void NavitBus::Result(const std::string& search, Found done) {
    const auto answered = [done = std::move(done)](sd_bus_message* reply, const std::string&) {
        done(ResultOf(reply));
    };
    link_.Call(search.c_str(), SearchInterface, "get_result", answered, "");
}

void NavitBus::Select(const std::string& search, const char* level, std::int32_t id, Done done) {
    link_.Call(search.c_str(), SearchInterface, "select", Succeeded(std::move(done)), "sii", level,
               id, 1);
}

void NavitBus::EndSearch(const std::string& search) {
    link_.Call(search.c_str(), SearchInterface, "destroy", Ignored, "");
}

} // namespace vk
