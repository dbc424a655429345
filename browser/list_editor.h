// The list that is being built or edited: the right-hand list of the mode for that.
#pragma once

#include "browser/list_desk.h"
#include "browser/saved_list.h"
#include "browser/xm_lists.h"
#include "library/lists/playlist.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// One list at a time. What is given outlives it.
class ListEditor {
  public:
    ListEditor(ListDesk& desk, XMLists& xmLists, ListModel& right)
        : file(desk), desk_(desk), xmLists_(xmLists), right_(right) {}

    /// Takes the existing files or channels of a list into the right list, none for a new one (""),
    /// and turns to the mode that builds. False, with everything as it was, when the list cannot be
    /// read (which is said) or the user ended the reading.
    bool Open(const std::string& path, bool ofChannels);
    /// Pages the right list, once the screen has its place for it.
    void Show();
    /// Back to the mode, folder and heading from before; the rows go.
    void End();
    /// The rows go, as another mode has been set.
    void Drop();

    bool Editing() const { return editing_; }
    /// True when the right list holds more than its notice.
    bool HasRows() const;
    /// True when there is something that a save would keep: rows, or that a list is empty now.
    bool WorthSaving() const { return HasRows() || !file.Path().empty(); }
    /// True when the rows are others than those that the file gave.
    bool Changed() const { return Entries() != opened_; }

    /// Appends a row of the left list. Nothing when the list has it already or it is of no use
    /// there; why, for the user, is returned, "" when there is nothing to say.
    std::string Add(const ListRow& row);
    /// Removes a row of the right list; the rows behind it are numbered anew.
    void Remove(int row);
    /// Saves the rows; see `SavedList`. Comments, and entries that are not there just now, stay
    /// where they stand in the file.
    SaveResult Save(const std::string& name);

    SavedList file;

  private:
    /// What the mode is left to.
    struct Place {
        std::int16_t ListMode = ListFromMenu;
        bool SqlView = false;
        std::string CurrentPath, title;
    };
    void Fill(const std::string& path);
    void AddFiles(const std::string& folder);
    void AddChannels();
    void AddFile(const std::string& path);
    void AddChannel(int number);
    void EnterMode(const std::string& path);
    bool Takes(const Descriptor& row, std::string& problem) const;
    void AddNoticeIfEmpty();
    void Renumber(int from);
    std::vector<std::string> Entries() const;

    ListDesk& desk_;
    XMLists& xmLists_;
    ListModel& right_;
    bool editing_ = false;
    Playlist lines_;                  ///< of the file as it was opened
    std::vector<std::string> found_;  ///< the entry that each of them stands for, "" for none
    std::vector<std::string> opened_; ///< those entries
    Place before_;
};

} // namespace vk
