// The folders that the folder chooser walks through.
#pragma once

#include "platform/volumes.h"

#include <string>
#include <vector>

namespace vk {

/// One row of the chooser.
struct FolderRow {
    std::string caption; ///< as it is shown, UTF-8
    std::string path;    ///< where it leads; "" is the list of starting places
};

/// Shows one folder, or the starting places: the home folder, every medium, the root.
class FolderRows {
  public:
    FolderRows(const Volumes& volumes, std::string home)
        : volumes_(volumes), home_(std::move(home)) {}

    /// Goes to a folder, to the home folder when it does not exist, or (`path` empty) to the
    /// starting places.
    void Enter(const std::string& path);
    /// The folder that is shown, "" for the starting places.
    const std::string& Path() const { return path_; }
    /// The way up first, then the folders by name; hidden ones are left out.
    const std::vector<FolderRow>& Rows() const { return rows_; }
    /// Makes a folder in the one shown and enters it. False when the name is none or it cannot be
    /// made.
    bool Make(const std::string& name);

  private:
    std::string Parent() const;
    void ListPlaces();
    void ListFolders();

    const Volumes& volumes_;
    std::string home_;
    std::string path_;
    std::vector<FolderRow> rows_;
};

} // namespace vk
