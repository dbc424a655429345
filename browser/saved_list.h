// The file of the list that is built, and what it may be called.
#pragma once

#include "browser/list_desk.h"

#include <functional>
#include <string>

namespace vk {

/// What became of a save.
enum class SaveResult {
    Saved,    ///< the list is on the disk
    NotSaved, ///< no name was given
    Refused   ///< nothing was changed on the disk
};

/// One file at a time. What is given outlives it.
class SavedList {
  public:
    explicit SavedList(ListDesk& desk) : desk_(desk) {}

    /// From now on the list is that of `path` ("" for a new one), of channels or of files.
    void Open(const std::string& path, bool ofChannels);
    void Close() { path_.clear(); }
    /// "" for a new list and for none.
    const std::string& Path() const { return path_; }
    /// The list that was opened: another than `Path` once that was saved under a new name.
    const std::string& OpenedPath() const { return opened_; }
    bool OfChannels() const { return channels_; }
    /// Playlists have a folder of their own.
    bool HasFolder() const;

    /// The name that the keyboard starts with, "" for a new list.
    std::string DefaultName() const;
    /// What a file is to hold at a path.
    using Contents = std::function<std::string(const std::string& path)>;
    /// Saves under a name as it was typed: the opened list when it is that list's name, which is
    /// written only when it was `changed`, else a new file, which takes the place of the opened
    /// one. Another list of that name is never written over. `Message` tells what became of it.
    SaveResult Save(const std::string& text, bool changed, const Contents& contents);
    /// For the user, UTF-8.
    const std::string& Message() const { return message_; }

  private:
    std::string TargetPath(const std::string& name) const;
    std::string NameProblem(const std::string& name, const std::string& path) const;
    SaveResult Refuse(const std::string& why);
    SaveResult Write(const std::string& name, const std::string& path, const std::string& contents);
    SaveResult Saved(const std::string& name, const std::string& path);

    ListDesk& desk_;
    bool channels_ = false;
    std::string path_, opened_, message_;
};

} // namespace vk
