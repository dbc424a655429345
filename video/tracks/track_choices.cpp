#include "video/tracks/track_choices.h"

#include "core/line_splitter.h"
#include "core/text.h"
#include "platform/files.h"

#include <algorithm>
#include <sstream>

namespace vk {

namespace {

std::optional<int> PlaceOf(std::string_view text) {
    constexpr int Most = 999;
    const auto place = ParseInteger(text);
    if (!place || *place < TrackChoice::Untouched || *place > Most) return std::nullopt;
    return static_cast<int>(*place);
}

std::string TextOf(const TrackChoice& choice) {
    std::string text = std::to_string(choice.sound) + " " + std::to_string(choice.subtitles);
    if (choice.angle != TrackChoice::Untouched) text += "/" + std::to_string(choice.angle);
    return text;
}

} // namespace

std::optional<TrackChoices::Entry> TrackChoices::Parse(std::string_view line) {
    const auto first = line.find(' ');
    const auto second = line.find(' ', first + 1);
    if (first == line.npos || second == line.npos || second + 1 >= line.size()) return std::nullopt;
    const std::string_view shown = line.substr(first + 1, second - first - 1);
    const auto slash = shown.find('/');
    const auto sound = PlaceOf(line.substr(0, first)), subtitles = PlaceOf(shown.substr(0, slash));
    const auto angle = slash == shown.npos ? std::optional<int>(TrackChoice::Untouched)
                                           : PlaceOf(shown.substr(slash + 1));
    if (!sound || !subtitles || !angle) return std::nullopt;
    return Entry{std::string(line.substr(second + 1)), {*sound, *subtitles, *angle}};
}

std::vector<TrackChoices::Entry> TrackChoices::Read() const {
    std::vector<Entry> entries;
    std::istringstream lines(ReadWholeFile(file_).value_or(""));
    for (std::string line; std::getline(lines, line);)
        if (auto entry = Parse(line)) entries.push_back(std::move(*entry));
    return entries;
}

TrackChoice TrackChoices::Of(const std::string& film) const {
    for (const Entry& entry : Read())
        if (entry.film == film) return entry.choice;
    return {};
}

bool TrackChoices::Keep(const std::string& film, const TrackChoice& choice) const {
    if (film.empty() || film.find('\n') != film.npos) return false;
    std::vector<Entry> entries = Read();
    std::erase_if(entries, [&](const Entry& entry) { return entry.film == film; });
    entries.push_back({film, choice});
    const auto first = entries.size() - std::min(entries.size(), Most);
    std::string text;
    for (auto at = first; at < entries.size(); ++at)
        text += TextOf(entries[at].choice) + " " + entries[at].film + "\n";
    return ReplaceFile(file_, text);
}

} // namespace vk
