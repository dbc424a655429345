#include "library/catalogue/protocol.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace vk {

namespace {

using Json = nlohmann::json;

constexpr std::array<const char*, 3> RequestNames = {"scan", "stop", "quit"};
constexpr std::array<const char*, 4> EventNames = {"StatusChanged", "ShowProgress", "UnhookDB",
                                                   "DBError"};

std::string Encoded(std::string_view bytes) {
    constexpr std::string_view Plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    std::string text;
    for (const char byte : bytes) {
        char code[4];
        std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(byte));
        Plain.find(byte) != std::string_view::npos ? text += byte : text += code;
    }
    return text;
}

std::string Decoded(std::string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        unsigned code = 0;
        const char* const digits = text.data() + at + 1;
        const bool coded = text[at] == '%' && at + 2 < text.size() &&
                           std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2;
        bytes += coded ? static_cast<char>(code) : text[at];
        if (coded) at += 2;
    }
    return bytes;
}

std::string Line(const Json& object) {
    return object.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// Whatever else a line holds, it gives an object: an empty one at worst.
Json Parsed(std::string_view line) {
    Json json = Json::parse(line, nullptr, false);
    return json.is_object() ? json : Json::object();
}

std::string TextOf(const Json& object, const char* key) {
    const auto value = object.find(key);
    return value != object.end() && value->is_string() ? value->get<std::string>() : std::string();
}

template<class Integer> Integer NumberOf(const Json& object, const char* key) {
    const auto value = object.find(key);
    return value != object.end() && value->is_number_integer() ? value->get<Integer>() : 0;
}

bool FlagOf(const Json& object, const char* key, bool missing) {
    const auto value = object.find(key);
    return value == object.end() || !value->is_boolean() ? missing : value->get<bool>();
}

/// The index of the object's name among `names`; nothing when there is none.
template<std::size_t Count>
std::optional<int> Named(const Json& object, const char* key,
                         const std::array<const char*, Count>& names) {
    const std::string name = TextOf(object, key);
    for (std::size_t i = 0; i < Count; ++i)
        if (name == names[i]) return static_cast<int>(i);
    return std::nullopt;
}

ScanRequest ScanOf(const Json& object) {
    return {.full = FlagOf(object, "full", true),
            .appDir = Decoded(TextOf(object, "appDir")),
            .mediaDir = Decoded(TextOf(object, "mediaDir")),
            .audioExtensions = TextOf(object, "audioExtensions"),
            .videoExtensions = TextOf(object, "videoExtensions"),
            .decimalSymbol = TextOf(object, "decimalSymbol"),
            .extendedTags = FlagOf(object, "extendedTags", false)};
}

DBStateValue StateOf(const Json& object) {
    const int number = NumberOf<int>(object, "state");
    const bool known = number >= static_cast<int>(DBStateValue::Disabled) &&
                       number <= static_cast<int>(DBStateValue::OnLine);
    return known ? static_cast<DBStateValue>(number) : DBStateValue::Offline;
}

} // namespace

std::string ToLine(const ServerRequest& request) {
    Json object{{"request", RequestNames[static_cast<std::size_t>(request.kind)]}};
    if (request.kind == ServerRequest::Kind::Scan) {
        object["full"] = request.scan.full;
        object["appDir"] = Encoded(request.scan.appDir);
        object["mediaDir"] = Encoded(request.scan.mediaDir);
        object["audioExtensions"] = request.scan.audioExtensions;
        object["videoExtensions"] = request.scan.videoExtensions;
        object["decimalSymbol"] = request.scan.decimalSymbol;
        object["extendedTags"] = request.scan.extendedTags;
    }
    return Line(object);
}

std::string ToLine(const ServerEvent& event) {
    Json object{{"event", EventNames[static_cast<std::size_t>(event.kind)]}};
    if (event.kind == ServerEvent::Kind::StatusChanged) {
        object["state"] = static_cast<int>(event.state);
    } else if (event.kind == ServerEvent::Kind::ShowProgress) {
        object["step"] = static_cast<int>(event.progress.step);
        object["count"] = event.progress.count;
        object["text"] = event.progress.text;
    } else if (event.kind == ServerEvent::Kind::DBError) {
        object["number"] = event.error.number;
        object["source"] = event.error.source;
        object["description"] = event.error.description;
        object["silent"] = event.error.silent;
    }
    return Line(object);
}

std::optional<ServerRequest> ParseRequest(std::string_view line) {
    const Json object = Parsed(line);
    const auto kind = Named(object, "request", RequestNames);
    if (!kind) return std::nullopt;
    return ServerRequest{static_cast<ServerRequest::Kind>(*kind), ScanOf(object)};
}

std::optional<ServerEvent> ParseEvent(std::string_view line) {
    const Json object = Parsed(line);
    const auto kind = Named(object, "event", EventNames);
    if (!kind) return std::nullopt;
    ServerEvent event;
    event.kind = static_cast<ServerEvent::Kind>(*kind);
    event.state = StateOf(object);
    event.progress = {static_cast<ScanStep>(NumberOf<int>(object, "step")),
                      NumberOf<std::int64_t>(object, "count"), TextOf(object, "text")};
    event.error = {NumberOf<int>(object, "number"), TextOf(object, "source"),
                   TextOf(object, "description"), FlagOf(object, "silent", true)};
    return event;
}

} // namespace vk
