// The rows of the browser's lists, as they are made from what they stand for.
#pragma once

#include "core/settings.h"
#include "library/descriptor.h"
#include "skin/list_model.h"

#include <cstdint>
#include <string>

namespace vk {

/// The first text of the row that leads back; it is always row 0.
inline constexpr const char* BackRowText = "<...>";

/// The notice of a list that came out empty.
inline constexpr const char* NothingFound = "No Supported Media Found";
/// The notice of a playlist of which no file is there.
inline constexpr const char* NoValidFilenames = "<No Valid Filenames in the Playlist>";
/// The same of a channel list.
inline constexpr const char* NoValidChannels = "<No Valid Channels in List>";

/// Said of a list that names files which are not there; `count` is not 0. The list may be one that
/// is edited.
std::string FilesMissing(std::size_t count, bool edited);

/// Said when new playlists have no place.
inline constexpr const char* NoPlaylistFolder = "The playlist folder is missing.";
/// Said of a file that `FitsListLine` refuses.
inline constexpr const char* NameFitsNoList = "This file's name cannot be stored in a list.";

/// Pictures of the rows: files in the skin's folder.
inline constexpr const char* backpic = "back.gif";
inline constexpr const char* folderpic = "folder.gif";
inline constexpr const char* hddpic = "hdd_icon.gif";
inline constexpr const char* mp3pic = "mp3.gif";
inline constexpr const char* cdromPic = "cdimage.gif";
inline constexpr const char* dvdpic = "dvd.gif";
inline constexpr const char* cdapic = "audiocd.gif";
inline constexpr const char* wmapic = "wmafile.gif";
inline constexpr const char* moviepic = "movie.gif";
inline constexpr const char* searchpic = "search.gif";
inline constexpr const char* playlistpic = "playlist.gif";
inline constexpr const char* xmdefault = "xm_default.gif";
inline constexpr const char* alertPic = "alert.gif";

/// Adds rows to a list. What it is given outlives it.
class ListRows {
  public:
    ListRows(ListModel& list, const SettingsStore& settings) : list_(list), settings_(settings) {}

    void Clear() { list_.ClearAllArrays(); }
    void Add(const std::string& text, const Descriptor& descriptor,
             const std::string& picture = {});
    /// The way back, to the folder `folder`.
    void AddBack(const std::string& folder) { AddBackTo(Descriptor::Path(folder)); }
    /// The way back, to what that descriptor means.
    void AddBackTo(const Descriptor& descriptor);
    /// The row that edits the list on show.
    void AddEdit(const std::string& path);
    /// A row that says something and does nothing when it is chosen.
    void AddNotice(const std::string& text, const std::string& picture = {});
    /// A folder under its full path.
    void AddFolderRow(const std::string& folder);
    /// A media file. `number` is shown in front when lists are numbered and it is not 0. `path` is
    /// relative to the media folder unless `absolute`.
    void AddFileRow(std::int32_t number, std::string artist, std::string title,
                    const std::string& path, bool absolute);
    /// True when row 0 leads back.
    bool HasBack() const;

  private:
    ListModel& list_;
    const SettingsStore& settings_;
};

/// A folder's or volume's name as it is shown: "_" as a blank.
std::string ShownName(const std::string& name);

/// The picture of a media file by its extension.
std::string FilePicture(const std::string& path);

} // namespace vk
