// The choice of media and playlist folder.
#pragma once

#include "core/settings.h"
#include "library/tags/media_type.h"
#include "platform/dialogs.h"

#include <optional>
#include <string>

namespace vk {

/// Asks until the user has chosen well, or gives up.
class MediaFolders {
  public:
    /// All outlives this object.
    MediaFolders(SettingsStore& settings, Dialogs& dialogs, const MediaExtensions& extensions)
        : settings_(settings), dialogs_(dialogs), extensions_(extensions) {}

    enum class Outcome { Chosen, Kept, GivenUp };
    /// The media folder, and the playlist folder when the one set lies elsewhere: both count when
    /// the last question is answered, and not before. The running lists are deleted, as their paths
    /// point into the old folder, and both stored volumes become 0. With `mayKeep` whoever leaves a
    /// chooser keeps everything as it is; else he has to choose, or gives up, which ends the
    /// process.
    Outcome ChooseMediaDir(bool mayKeep);
    /// The playlist folder, which must lie within the media folder. Asks until the answer fits; a
    /// cancelled choice leaves the folder as it is and gives false.
    bool ChoosePlaylistDir();

    /// True when `path` is `folder` or lies in it.
    static bool Within(const std::string& path, const std::string& folder);

  private:
    /// "" when the user gave up, nothing when he keeps what is set.
    std::optional<std::string> AskForMedia(bool mayKeep);
    bool Suits(const std::string& folder);
    std::string OfferedPlaylists(const std::string& media);
    std::string AskForPlaylists(const std::string& media, bool mayKeep);

    SettingsStore& settings_;
    Dialogs& dialogs_;
    const MediaExtensions& extensions_;
};

} // namespace vk
