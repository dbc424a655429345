// Title, artist, album, genre, track and picture of an audio file, read from its ID3 tag or Ogg
// Vorbis comment.
#pragma once

#include "core/debug_log.h"
#include "library/tags/genre_table.h"
#include "library/tags/media_file.h"
#include "library/tags/tag_record.h"
#include "platform/dialogs.h"

#include <cstdint>
#include <string>

namespace vk {

/// What the reader reports to; both outlive it.
struct TagPorts {
    const DebugLog& log;
    Dialogs& dialogs;
};

class ID3 {
  public:
    /// `decimalSymbol` is the process's own and `extended` the setting `ExtendedTags`: both can
    /// change while the system runs.
    ID3(TagPorts ports, const std::string& decimalSymbol, const bool& extended = OlderForms)
        : ports_(ports), decimalSymbol_(decimalSymbol), extended_(extended) {}

    /// What the file's tag says, in the extended reading of whatever kind; never fails. A file
    /// without a usable tag gives empty texts and the genre "(Unknown Genre)"; of a damaged tag
    /// what was read before the damage is kept, and the log says so.
    TagRecord ReadTag(const std::string& path, Picture picture = Picture::Read);

    /// 1 for ID3v1; 2.2, 2.21, 2.3 or 2.4 for ID3v2 (other numbers for versions unheard of); 0 for
    /// none. A tag that is unsynchronised or has an extended header does not count.
    float TagVersion(MediaFile& file) const;

    /// Fills the genre table from a file of one genre a line, or with the built-in list when there
    /// is no such file or, after a message, when nothing can be read from it.
    void InitGenre(const std::string& genreFile = {});

    /// The index of a genre without regard to case; 255 when it is not in the table.
    std::uint8_t GenreStringToNum(const std::string& text) const;

    const GenreTable& Genres() const { return genres_; }
    const DebugLog& Log() const { return ports_.log; }

  private:
    void ReadOlder(MediaFile& file, bool ogg, TagRecord& tag, Picture picture,
                   float& version) const;
    void ReadExtended(MediaFile& file, bool ogg, TagRecord& tag, Picture picture,
                      float& version) const;
    void ReadVersion(float version, MediaFile& file, TagRecord& tag, Picture picture) const;
    bool ReadGenreFile(const std::string& genreFile);
    void ShowGenreFailure(const std::string& text) const;

    TagPorts ports_;
    static constexpr bool OlderForms = false;

    const std::string& decimalSymbol_;
    const bool& extended_;
    GenreTable genres_;
};

} // namespace vk
