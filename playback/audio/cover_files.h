// Where the picture of a track or a station lies. Nothing in here keeps a state, so that any thread
// may call it: disks of a car can be slow.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vk {

/// What is to be shown: a picture file, or else what belongs to a track.
struct CoverRequest {
    std::string picture;   ///< full path, "" to look for the track's
    std::string track;     ///< full path
    std::string temporary; ///< where the tag's picture is put while it is read
    /// Tags of every kind are looked into, and a tag's picture that cannot be shown lets those of
    /// the folder have their turn.
    bool extended = false;
};

/// What came of it.
struct CoverOutcome {
    bool found = false;                ///< there is a picture, be it a good one or not
    std::vector<std::string> pictures; ///< the files that take turns, full paths
    std::string error;                 ///< why it could not be shown, else ""
};

/// Reads a picture file; false when that fails.
using DecodePicture = std::function<bool(const std::string& path)>;

/// Decodes the picture of the request: the named one; the one in the track's tag, through the
/// temporary file, which is gone afterwards; else the first of the track's folder.
CoverOutcome LoadCover(const CoverRequest& request, const DecodePicture& decode);

/// The pictures of a folder: all *.jpeg, then *.jpg, *.gif and *.bmp (any case), of each kind in
/// the file system's order. At most 1000.
std::vector<std::string> FolderPictures(const std::string& folder);

/// The picture of a station in COMMON/FMPICS of the application directory, "" when there is none.
/// `name` is the name of the preset or its frequency.
std::string StationPicture(const std::string& appDir, const std::string& name);

} // namespace vk
