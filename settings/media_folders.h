// The choice of media and playlist folder.
#pragma once

#include "core/settings.h"
#include "platform/dialogs.h"

#include <string>

namespace vk {

/// Asks until the user has chosen well, or gives up.
class MediaFolders {
  public:
    MediaFolders(SettingsStore& settings, Dialogs& dialogs)
        : settings_(settings), dialogs_(dialogs) {}

    /// The media folder, and the playlist folder when the one set lies elsewhere. The running lists
    /// are deleted, as their paths point into the old folder, and both stored volumes become 0.
    /// False when the user cancelled, which ends the process.
    bool ChooseMediaDir();
    /// The playlist folder, which must lie within the media folder. Asks until the answer fits;
    /// with `mayKeep`, or when the program ends, a cancelled choice leaves the folder as it is and
    /// gives false.
    bool ChoosePlaylistDir(bool mayKeep);

    /// True when `path` is `folder` or lies in it.
    static bool Within(const std::string& path, const std::string& folder);

  private:
    SettingsStore& settings_;
    Dialogs& dialogs_;
};

} // namespace vk
