// What a folder of the destination holds when a run comes to it.
#pragma once

#include "platform/folder_reader.h"
#include "sync/source_walk.h"

#include <optional>
#include <string>
#include <vector>

namespace vk {

class DestFolder {
  public:
    /// Lists the folder at `path` once; one that is not there holds nothing. `from`, what is copied
    /// into it, outlives this object.
    DestFolder(const std::string& path, const SourceFolder& from);

    /// What has this name, perhaps in other letters where the file system does not tell them apart;
    /// nothing when it is free, or a folder's.
    std::optional<FileFacts> Find(const std::string& name) const;
    /// True when it is another source's file that has this name in other letters.
    bool IsTaken(const std::string& name) const;
    /// A copy of that name was made.
    void Add(const std::string& name);

  private:
    /// By its very name, among what was there and what was copied.
    const SourceFile* Known(const std::string& name) const;

    FolderReader reader_;
    const SourceFolder& from_;
    std::vector<SourceFile> files_;  ///< by name
    std::vector<SourceFile> copies_; ///< by name
};

} // namespace vk
