// The radio presets: shown, given a label, deleted.
#pragma once

#include "browser/list_desk.h"
#include "skin/text_entry.h"

#include <functional>
#include <string>

namespace vk {

/// What is given outlives it.
class RadioPresets {
  public:
    RadioPresets(ListDesk& desk, TextEntry& text) : desk_(desk), text_(text) {}

    /// Replaces the rows of the list by the presets of a file.
    void ReadPresets(const std::string& path);
    /// Asks for another label of the selected preset and saves it.
    void AskLabel(const std::string& frequency);
    /// Deletes the selected preset, once the user has said so.
    void DeleteFreq(const std::string& frequency);

  private:
    std::string SelectedLabel() const;
    void Change(const char* name, const std::function<void()>& change);

    ListDesk& desk_;
    TextEntry& text_;
    std::string path_; ///< of the presets on show
};

} // namespace vk
