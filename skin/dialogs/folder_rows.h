// The folders, and files, that the choosers walk through.
#pragma once

#include "platform/dialogs.h"
#include "platform/volumes.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vk {

/// One row of the chooser.
struct FolderRow {
    std::string caption;    ///< as it is shown, UTF-8
    std::string path;       ///< where it leads; "" is the list of starting places
    bool ends = false;      ///< it leads nowhere: it is what is chosen
    std::string order = {}; ///< by which it is sorted
};

/// Shows one folder, or the starting places: the home folder, every medium, the root.
class FolderRows {
  public:
    FolderRows(const Volumes& volumes, std::string home)
        : volumes_(volumes), home_(std::move(home)) {}
    /// Files are shown, too, and what is offered beside them, as a place of its own.
    FolderRows(const Volumes& volumes, std::string home, FileChoice files)
        : volumes_(volumes), home_(std::move(home)), files_(std::move(files)) {}
    bool Files() const { return files_.has_value(); }

    /// Goes to a folder, to the home folder when it does not exist, or (`path` empty) to the
    /// starting places.
    void Enter(const std::string& path);
    /// The folder that is shown, "" for the starting places.
    const std::string& Path() const { return path_; }
    /// The same as a heading, UTF-8.
    std::string Heading() const;
    /// The way up first, then the folders by name; hidden ones are left out.
    const std::vector<FolderRow>& Rows() const { return rows_; }
    /// Looks for media that were plugged in since the last look; they are offered above the rows
    /// until they are gone. True when the rows have changed.
    bool LookForMedia();
    /// Makes a folder in the one shown and enters it. False when the name is none or it cannot be
    /// made.
    bool Make(const std::string& name);

  private:
    std::string Parent() const;
    void List();
    void ListPlaces();
    void ListFolder();
    bool Accepts(const std::string& file) const;
    void ListOffers();
    std::string CaptionOf(const std::string& root) const;

    const Volumes& volumes_;
    std::string home_;
    std::optional<FileChoice> files_;
    std::string path_;
    std::vector<FolderRow> rows_;
    std::optional<std::vector<std::string>> seen_; ///< roots of media; nothing: not looked yet
    std::vector<std::string> offered_;
};

} // namespace vk
