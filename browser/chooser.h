// What choosing a row does: the interpreter of descriptors.
#pragma once

#include "browser/hand_over.h"
#include "browser/list_building.h"
#include "browser/lists.h"
#include "browser/radio_presets.h"
#include "browser/text_searches.h"

#include <string>

namespace vk {

/// What is given outlives it. Its operations run within one of the desk's.
class Chooser {
  public:
    /// `leave` is called before another screen is shown.
    Chooser(BrowserLists& lists, ListBuilding& building, TextEntry& text,
            std::function<void()> leave);

    /// Acts on the selected row. A failure leads to the top of the media folder and is reported.
    void Choose();
    /// A level up.
    void Back();
    /// Lists the selected folder with all that is below it; deletes the selected preset.
    void Ahead();
    /// Lets the next chosen folder be listed whole, or not.
    void SetRecurse(bool armed);
    bool RecurseArmed() const { return recurseArmed_; }
    TextSearches& Search() { return searches_; }
    HandOver& Player() { return handOver_; }

  private:
    using Handler = void (Chooser::*)(const Descriptor&);

    void ChooseRow();
    void Follow(const Descriptor& row);
    std::string TrackHistory(const Descriptor& row);
    void OpenFile(const Descriptor& row);
    void OpenPath(const Descriptor& row);
    void OpenPlaylist(const Descriptor& row);
    void OpenSql(const Descriptor& row) { searches_.Open(row); }
    void OpenXM(const Descriptor& row);
    void OpenEditor(const Descriptor& row);
    void OpenPreset(const Descriptor& row);
    void PlayAudio(const Descriptor&) { handOver_.PlayAudioFiles(); }
    void PlayVideo(const Descriptor&) { handOver_.PlayVideoFiles(); }
    void OpenPresets(const Descriptor& row) { presets_.ReadPresets(row.body); }

    BrowserLists& lists_;
    ListDesk& desk_;
    ListBuilding& building_;
    std::function<void()> leave_;
    HandOver handOver_;
    RadioPresets presets_;
    TextSearches searches_;
    bool recurseArmed_ = false;
};

} // namespace vk
