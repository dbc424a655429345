// The player's tracks as rows of its list control.
#pragma once

#include "core/base.h"
#include "library/tags/tag_record.h"
#include "playback/audio/track_list.h"
#include "skin/list_model.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vk {

/// The tag of an existing file; never fails.
using TagOfFile = std::function<TagRecord(const std::string& path)>;

/// Fills the list and keeps the tracks behind its rows. Reading the tags of a long list takes
/// minutes, so a tag is read when its row comes onto the page on show, before it is drawn there:
/// what is seen is the same as with all tags read first.
class TrackRows {
  public:
    /// `base` and `list` outlive this object.
    TrackRows(Base& base, ListModel& list, TagOfFile tagOf)
        : base_(base), list_(list), tagOf_(std::move(tagOf)) {}

    /// Replaces all rows; `selected` is an entry of them. Events run inside where many tags must be
    /// read at once.
    void Load(std::vector<Track> tracks, std::int32_t selected);
    /// The same for stations and channels, whose texts are final and stand as they are.
    void LoadStations(std::vector<Track> stations, std::int32_t selected);
    /// Another text for one of them.
    void Replace(std::int32_t index, Track station);
    /// Selects an entry and marks it as the one that plays; an index without entry changes nothing.
    void Select(std::int32_t index);
    /// An entry has told its title; true when it is a new one.
    bool Rename(std::int32_t index, const std::string& title);
    /// Reads the tags of the page on show; to be called when the page has moved.
    void ReadTagsOnPage();
    /// True when the page has moved since its tags were read: a touch strip pages by itself.
    bool PageHasMoved() const { return list_.TopRow() != readTop_; }

    /// The track at `index` with its tag; null when there is none.
    const Track* Find(std::int32_t index);
    std::int32_t Count() const { return static_cast<std::int32_t>(tracks_.size()); }
    std::int32_t Selected() const { return list_.GetSelectedSongNum(); }

  private:
    Track& WithTag(std::int32_t index);
    void ReadTagsForDuplicates();
    void Fill(std::int32_t selected);
    void AddRow(std::int32_t index);
    std::string FirstText(std::int32_t index) const;

    Base& base_;
    ListModel& list_;
    TagOfFile tagOf_;
    std::vector<Track> tracks_;
    std::int32_t readTop_ = 0; ///< top row of the page whose tags were read last
};

} // namespace vk
