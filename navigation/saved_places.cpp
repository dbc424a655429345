#include "navigation/saved_places.h"

#include "core/text.h"
#include "platform/files.h"

#include <algorithm>
#include <optional>

namespace vk {

namespace {

constexpr std::size_t LeastFields = 4; // name, city, street, house number

std::string Field(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '|' || c == '\r' || c == '\n' || c == '\0'; }, ' ');
    return Trim(text);
}

std::optional<SavedPlace> PlaceOf(const std::string& line) {
    auto fields = Split(line, '|');
    if (fields.size() < LeastFields || line.find('\0') != std::string::npos) return std::nullopt;
    fields.resize(LeastFields + 1);
    return SavedPlace{ToUtf8(fields[0]), ToUtf8(fields[1]), ToUtf8(fields[2]), ToUtf8(fields[3]),
                      ToUtf8(fields[4])};
}

} // namespace

std::vector<SavedPlace> ParsePlaces(std::string_view text, int& foreign) {
    std::vector<SavedPlace> places;
    for (const std::string& raw : Split(text, '\n')) {
        const std::string line = Trim(raw);
        if (line.empty()) continue;
        if (const auto place = PlaceOf(line))
            places.push_back(*place);
        else
            ++foreign;
    }
    return places;
}

std::string LineOf(const SavedPlace& place) {
    std::string line;
    for (const std::string& field : {place.name, place.city, place.street, place.houseNumber})
        line += Field(field) + "|";
    return line + Field(place.state) + "\r\n";
}

bool SavedPlaces::AnySaved() const {
    return FileExists(file_);
}

std::vector<SavedPlace> SavedPlaces::Read() const {
    const auto text = ReadWholeFile(file_, LongestFile + 1);
    if (!text || text->size() > LongestFile) {
        log_.WriteDebugLog(text ? "gps.lst is too large for a list of places"
                                : "gps.lst cannot be read");
        return {};
    }
    int foreign = 0;
    auto places = ParsePlaces(*text, foreign);
    if (foreign > 0)
        log_.WriteDebugLog("gps.lst: " + std::to_string(foreign) + " lines are no places");
    return places;
}

std::string SavedPlaces::Append(const SavedPlace& place) const {
    std::string text;
    if (AnySaved()) {
        const auto before = ReadWholeFile(file_, LongestFile + 1);
        // Read in part it would be written back in part.
        if (!before) return "gps.lst cannot be read";
        text = *before;
    }
    if (!text.empty() && text.back() != '\n') text += "\r\n";
    text += LineOf(place);
    if (text.size() > LongestFile) return "gps.lst is full";
    std::string reason;
    if (ReplaceFile(file_, text, &reason)) return "";
    return "gps.lst cannot be written: " + reason;
}

} // namespace vk
