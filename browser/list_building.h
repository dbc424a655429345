// The mode that builds and edits lists: two lists side by side, the right one being built.
#pragma once

#include "browser/lists.h"
#include "skin/text_entry.h"

#include <string>

namespace vk {

/// What is given outlives it.
class ListBuilding {
  public:
    ListBuilding(BrowserLists& lists, ListModel& right, TextEntry& text)
        : lists_(lists), desk_(lists.desk), editor_(lists.editor), right_(right), text_(text) {}

    /// Opens a list of files or, with the extension ".xcl", of channels; the extension alone and ""
    /// are new ones.
    void Open(const std::string& path);
    /// Adds the selected row of the left list.
    void AddSelected();
    /// Removes the selected row of the right one.
    void RemoveSelected();
    bool RightListFocus() const { return rightFocus_; }
    /// Turns the keys to the other of the two lists; not to an empty one.
    void ToggleFocus();
    void FocusLeft() { Focus(false); }
    /// Asks for the name to save under, and leaves the mode; at once when there is nothing to save.
    void Finish();
    /// The same before the screen is left, as a list that was built has no other place; false when
    /// nothing keeps it.
    bool Keeps();
    /// The screen is entered: a list that is being built is there again when the mode is still
    /// that; another mode drops it.
    void Enter();
    /// Where every failure ends: the top of the media folder, without a list that is built.
    void FallBack();

  private:
    void Focus(bool right);
    void AskName();
    std::string SaveUnder(const std::string& name);
    void Named(bool saved);
    void Leave();
    void Drop();

    BrowserLists& lists_;
    ListDesk& desk_;
    ListEditor& editor_;
    ListModel& right_;
    TextEntry& text_;
    bool rightFocus_ = false; ///< the keys work the right list
};

} // namespace vk
