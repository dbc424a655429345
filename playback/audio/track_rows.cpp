#include "playback/audio/track_rows.h"

#include "core/text.h"
#include "library/tags/file_name_tag.h"
#include "library/tags/media_type.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::int32_t TagsAPulse = 20;

const char* RowPicture(const Track& track) {
    if (track.station) return "radio.gif";
    const std::string extension = ToLower(ExtensionOf(track.path));
    if (extension == "wma") return "wmafile.gif";
    if (extension == "cda") return "audiocd.gif";
    return "mp3.gif";
}

// What the file's name says: no disk is touched for it.
void NameTrack(Track& track) {
    const TagRecord tag = GetFileNameTag(track.path, MediaAudio);
    track.artist = tag.Artist;
    track.title = tag.Title;
}

} // namespace

void TrackRows::Load(std::vector<Track> tracks, std::int32_t selected) {
    tracks_ = std::move(tracks);
    list_.ClearAllArrays();
    list_.numberedList = base_.settings.values.numberedList;
    list_.HideDupes = base_.settings.values.hideDupeArtist;
    if (list_.HideDupes) ReadTagsForDuplicates();
    Fill(selected);
    ReadTagsOnPage();
}

void TrackRows::LoadStations(std::vector<Track> stations, std::int32_t selected) {
    tracks_ = std::move(stations);
    list_.ClearAllArrays();
    list_.numberedList = list_.HideDupes = false;
    Fill(selected);
    readTop_ = list_.TopRow();
}

void TrackRows::Fill(std::int32_t selected) {
    for (std::int32_t i = 0; i < Count(); ++i)
        AddRow(i);
    list_.iSelected = selected;
    list_.iHighlight = -1;
    list_.LoadList();
}

void TrackRows::Replace(std::int32_t index, Track station) {
    if (index < 0 || index >= Count()) return;
    tracks_[static_cast<std::size_t>(index)] = std::move(station);
    list_.RplartistListItem(index, FirstText(index));
    list_.RplTitleListItem(index, tracks_[static_cast<std::size_t>(index)].title);
}

// The rule for the artist that all rows share needs every row's artist, but only as long as no two
// differ: in most lists the second tag settles it.
void TrackRows::ReadTagsForDuplicates() {
    Work work(base_.pump, "the tags of a list");
    for (std::int32_t i = 0; i < Count(); ++i) {
        if (WithTag(i).artist != tracks_.front().artist) return;
        if (i % TagsAPulse == TagsAPulse - 1 && !work.Pulse()) return;
    }
}

std::string TrackRows::FirstText(std::int32_t index) const {
    const Track& track = tracks_[static_cast<std::size_t>(index)];
    std::string text;
    if (list_.numberedList) text = std::to_string(index + 1) + " - ";
    if (track.artist.empty()) return text + track.title;
    return text + track.artist + (track.title.empty() ? "" : " - ");
}

void TrackRows::AddRow(std::int32_t index) {
    Track& track = tracks_[static_cast<std::size_t>(index)];
    if (!track.tagged) NameTrack(track);
    list_.AddItem(FirstText(index), track.artist.empty() ? "" : track.title, track.path,
                  RowPicture(track));
}

Track& TrackRows::WithTag(std::int32_t index) {
    Track& track = tracks_[static_cast<std::size_t>(index)];
    if (track.tagged) return track;
    track.tagged = true;
    const TagRecord tag = tagOf_ ? tagOf_(track.path) : TagRecord{};
    if (tag.Artist.empty() && tag.Title.empty()) {
        NameTrack(track);
    } else {
        track.artist = tag.Artist;
        track.title = tag.Title;
    }
    return track;
}

const Track* TrackRows::Find(std::int32_t index) {
    return index >= 0 && index < Count() ? &WithTag(index) : nullptr;
}

void TrackRows::ReadTagsOnPage() {
    readTop_ = list_.TopRow();
    const std::int32_t end = std::min(Count(), readTop_ + list_.iMaxVis + 1);
    for (std::int32_t i = readTop_; i < end; ++i) {
        const Track& track = WithTag(i);
        list_.RplartistListItem(i, FirstText(i));
        list_.RplTitleListItem(i, track.artist.empty() ? "" : track.title);
    }
}

bool TrackRows::Rename(std::int32_t index, const std::string& title) {
    if (index < 0 || index >= Count()) return false;
    Track& track = tracks_[static_cast<std::size_t>(index)];
    if (track.title == title) return false;
    track.title = title;
    list_.RplartistListItem(index, FirstText(index));
    return true;
}

void TrackRows::Select(std::int32_t index) {
    const bool there = index >= 0 && index < Count();
    list_.iHighlight = there ? index : -1;
    if (!there) return;
    list_.SelectItem(index);
    ReadTagsOnPage();
}

} // namespace vk
