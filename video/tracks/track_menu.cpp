#include "video/tracks/track_menu.h"

#include <algorithm>

namespace vk {

namespace {

constexpr const char* Chosen = "\u2713 ";
constexpr const char* NotChosen = "    ";

const char* NameOf(TrackKind kind) {
    switch (kind) {
    case TrackKind::Audio:
        return "Sound: ";
    case TrackKind::Subtitles:
        return "Subtitles: ";
    case TrackKind::Angle:
        break;
    }
    return "Angle: ";
}

// The id of the track at a one-based place; nothing when the film has none there.
std::optional<int> IdAt(const std::vector<FilmTrack>& tracks, int place) {
    if (place == 0) return FilmTrack::None;
    const auto index = static_cast<std::size_t>(place - 1);
    return index < tracks.size() ? std::optional(tracks[index].id) : std::nullopt;
}

} // namespace

void TrackMenu::Enter(const std::string& film) {
    film_ = film;
    wanted_ = choices_.Of(film);
    given_.clear();
}

int& TrackMenu::Wanted(TrackKind kind) {
    if (kind == TrackKind::Angle) return wanted_.angle;
    return kind == TrackKind::Audio ? wanted_.sound : wanted_.subtitles;
}

void TrackMenu::Apply(MediaPlayer& player) {
    for (const TrackKind kind : {TrackKind::Audio, TrackKind::Subtitles, TrackKind::Angle})
        Apply(player, kind);
}

// Given once: a menu of the disc may choose another one later.
void TrackMenu::Apply(MediaPlayer& player, TrackKind kind) {
    const int place = Wanted(kind);
    const auto tracks = player.Tracks(kind);
    if (place == TrackChoice::Untouched || tracks.empty()) return;
    const auto id = IdAt(tracks, place);
    if (!id || (given_.contains(kind) && given_[kind] == *id)) return;
    given_[kind] = *id;
    if (player.Track(kind) != *id) player.Track(kind, *id);
}

std::vector<TrackMenu::Row> TrackMenu::Rows(const MediaPlayer& player) {
    std::vector<Row> rows;
    const auto add = [&](TrackKind kind, const std::string& name, int place, int id) {
        const bool chosen = player.Track(kind) == id;
        rows.push_back(
            {(chosen ? Chosen : NotChosen) + std::string(NameOf(kind)) + name, kind, place});
    };
    const auto addAll = [&](TrackKind kind) {
        int place = 0;
        for (const FilmTrack& track : player.Tracks(kind))
            add(kind, track.name, ++place, track.id);
    };
    addAll(TrackKind::Audio);
    if (!player.Tracks(TrackKind::Subtitles).empty())
        add(TrackKind::Subtitles, "none", 0, FilmTrack::None);
    addAll(TrackKind::Subtitles);
    addAll(TrackKind::Angle);
    return rows;
}

void TrackMenu::Ask(MediaPlayer& player, const Other& other, const std::function<bool()>& playing) {
    const std::vector<Row> rows = Rows(player);
    std::vector<std::string> texts;
    if (!other.row.empty()) texts.push_back(NotChosen + other.row);
    const int first = static_cast<int>(texts.size());
    for (const Row& row : rows)
        texts.push_back(row.text);
    if (texts.empty()) return base_.dialogs.ShowMessage("This film leaves nothing to choose.");
    const std::string film = film_;
    const auto chosen = base_.dialogs.Choose("Sound and subtitles", texts, 0);
    if (!chosen || !playing() || film != film_) return;
    if (*chosen < first) return other.act();
    Choose(player, rows[static_cast<std::size_t>(*chosen - first)]);
}

void TrackMenu::Choose(MediaPlayer& player, const Row& row) {
    const auto id = IdAt(player.Tracks(row.kind), row.place);
    if (!id) return;
    player.Track(row.kind, *id);
    given_[row.kind] = *id;
    Wanted(row.kind) = row.place;
    if (!choices_.Keep(film_, wanted_))
        base_.log.WriteDebugLog("could not keep what was chosen of a film");
}

} // namespace vk
