// The list that is being built or edited: the right-hand list of the mode for that, and its saving.
#pragma once

#include "browser/list_desk.h"
#include "browser/xm_lists.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// What became of a save.
enum class SaveResult {
    Saved,    ///< the list is on the disk, named by `EditListPath`
    NotSaved, ///< no name was given
    Refused   ///< nothing was changed on the disk, and the rows are still there
};

/// One list at a time. What is given outlives it. `Add` and `Save` leave their words in `Message`.
class ListEditor {
  public:
    ListEditor(ListDesk& desk, XMLists& xmLists, ListModel& right)
        : desk_(desk), xmLists_(xmLists), right_(right) {}

    /// Takes the existing files of a playlist into the right list, none for a new list (""), and
    /// turns to the mode that builds. False, with everything as it was, when the list cannot be
    /// read (which is said) or the user ended the reading.
    bool EditPlaylist(const std::string& path);
    /// The same for a channel list.
    bool EditChannelList(const std::string& path);
    /// Pages the right list, once the screen has its place for it.
    void Show();
    /// Back to the mode, folder and heading from before; the rows go.
    void End();
    /// The rows go, as another mode has been set.
    void Drop();

    bool Editing() const { return editing_; }
    /// The list that was opened: another than `EditListPath` once that was saved under a new name.
    const std::string& OpenedPath() const { return before_.list; }
    /// True when the list is of channels.
    bool OfChannels() const { return channels_; }
    /// True when the right list holds more than its notice.
    bool HasRows() const;
    /// True when there is something that a save would keep: rows, or that a list is empty now.
    bool WorthSaving() const { return HasRows() || !EditListPath.empty(); }

    /// Appends a row of the left list. Silently nothing when the list has it already or it is of
    /// no use there.
    void Add(const ListRow& row);
    /// Removes a row of the right list; the rows behind it are numbered anew.
    void Remove(int row);

    /// The name that the keyboard starts with, "" for a new list.
    std::string DefaultName() const;
    /// Saves the rows under a name as it was typed: the edited list when it is that list's name,
    /// else a new file, which takes the place of the edited one. Another list of that name is never
    /// written over.
    SaveResult Save(const std::string& text);

    /// For the user, UTF-8; "" when there is nothing to say.
    const std::string& Message() const { return message_; }

    std::string EditListPath; ///< the list that is edited, "" for a new one and for none

  private:
    /// What the mode is left to.
    struct Place {
        std::int16_t ListMode = ListFromMenu;
        bool SqlView = false;
        std::string CurrentPath, title, list;
    };
    bool Open(const std::string& path, bool ofChannels);
    void Fill(const std::string& path);
    void AddFiles(const std::string& contents, const std::string& folder);
    void AddFile(const std::string& path);
    bool HasPlaylistFolder() const;
    void AddChannel(int number);
    bool Takes(const ListRow& row);
    void AddNoticeIfEmpty();
    void Renumber(int from);
    std::string TargetPath(const std::string& name) const;
    std::string NameProblem(const std::string& name, const std::string& path) const;
    std::vector<std::string> Entries() const;
    SaveResult Refuse(const std::string& why);
    SaveResult Write(const std::string& name, const std::string& path);

    ListDesk& desk_;
    XMLists& xmLists_;
    ListModel& right_;
    bool editing_ = false;
    bool channels_ = false;
    Place before_;
    std::string message_;
};

} // namespace vk
