// What the browser asks of the catalogue of the media folder.
#pragma once

#include "core/app_state.h"

#include <string>
#include <vector>

namespace vk {

/// One file as the catalogue knows it.
struct CatalogueFile {
    std::string path; ///< relative to the media folder, with a separator in front
    std::string artist;
    std::string title;
};

/// The catalogue; where there is none its users hold a null pointer.
class Catalogue {
  public:
    virtual ~Catalogue() = default;
    /// Rows may be shown only while it is `OnLine`.
    virtual DBStateValue State() const = 0;
    /// The files of one folder below the media folder in the order they are shown: by path when
    /// `sortByFilename`, else by artist and title. `playableOnly` leaves out what is no audio,
    /// video or playlist.
    virtual std::vector<CatalogueFile> FolderFiles(const std::string& folder, bool playableOnly,
                                                   bool sortByFilename) = 0;
    /// The files of a folder and of all folders below it.
    virtual std::vector<CatalogueFile> FilesBelow(const std::string& folder) = 0;
};

} // namespace vk
