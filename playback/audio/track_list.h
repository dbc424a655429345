// The entries of the list file that the audio player plays.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vk {

/// One entry. Texts are UTF-8, the path is bytes.
struct Track {
    std::string path;
    std::string artist;
    std::string title;
    bool tagged = false;  ///< artist and title are final
    bool station = false; ///< of a tuner: `path` is its frequency or its channel

    bool IsDiscTrack() const; ///< a ".CDA" line, a track of an audio disc
    bool IsStream() const;    ///< an address, whose title is what the stream tells as it plays
};

/// One record of a query on the catalogue.
struct CatalogueRow {
    std::string path; ///< full
    std::string artist;
    std::string title;
};
using CatalogueQuery = std::function<std::vector<CatalogueRow>(const std::string& sql)>;

struct TrackListNeeds {
    CatalogueQuery query; ///< empty without a catalogue
    /// Called now and then with the percentage that is done; false ends the reading.
    std::function<bool(int)> progress;
    std::function<void(const std::string&)> log;
};

/// What a list file holds.
struct TrackList {
    std::vector<Track> tracks;
    std::string title; ///< the comment of the first line, such as the name of the folder
    /// The entry number `wanted` was not there: it must not be resumed at a position.
    bool wantedMissing = false;
    bool expanded = false; ///< some tracks are a query's: the file itself does not name them
    bool ended = false;    ///< `progress` has ended the reading
};

/// Reads a list: paths, addresses of streams, ".CDA" lines and "# SELECT" queries side by side.
/// Files that do not exist are left out, a query that fails is logged and gives none. The file is
/// closed before the entries are looked at. `wanted` counts from 1.
TrackList ReadTrackList(const std::string& listFile, std::int32_t wanted,
                        const TrackListNeeds& needs);

/// The query with the column MediaType added before " FROM" unless it is named there already.
std::string WithMediaType(std::string sql);

} // namespace vk
