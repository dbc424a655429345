// What all builders of the browser's lists share: the list, its rows, the heading, and the events
// that run between rows.
#pragma once

#include "library/browser/browser_needs.h"
#include "library/browser/browser_view.h"
#include "library/browser/list_rows.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vk {

/// What is given outlives it. A build goes `Start`, rows, `Finish`; `ListBusy` is set meanwhile.
class ListDesk {
  public:
    ListDesk(BrowserNeeds& browserNeeds, ListModel& shown, BrowserView& screen)
        : needs(browserNeeds), list(shown), view(screen), rows(shown, browserNeeds.settings) {}

    /// Empties the list for the rows that follow.
    void Start();
    /// Shows the rows.
    void Finish();
    /// Runs events, at most some hundred times a second; false when the build is to end early.
    bool Pulse();
    void Abort() { aborted_ = true; }
    bool Aborted() const { return aborted_; }
    /// True once after an `Abort`.
    bool TakeAborted() { return std::exchange(aborted_, false); }

    /// Runs one part of a build. When it fails, that is logged under the operation's name and said
    /// on the screen; the rows that were added stay.
    void Try(const std::string& name, const std::function<void()>& build);
    /// Has something said on the screen when the present operation ends.
    void Say(const std::string& notice) { notice_ = notice; }
    /// What is to be said, once; "" for nothing.
    std::string TakeNotice() { return std::exchange(notice_, {}); }

    /// Sets the heading.
    void SetTitle(const std::string& title);
    const std::string& Title() const { return title_; }

    /// True in the mode that builds a playlist.
    bool Building() const { return needs.state.ListMode == ListBuild; }
    /// True for a file that the mode lists.
    bool Showable(const std::string& path) const;
    /// A numbered row for each file that is still there; returns how many rows that made.
    int AddCatalogueFiles(const std::vector<CatalogueFile>& files);

    BrowserNeeds& needs;
    ListModel& list;
    BrowserView& view;
    ListRows rows;
    bool SqlView = false;      ///< the user is among the lists of the catalogue
    bool PlaylistView = false; ///< the rows are a playlist's
    bool XMView = false;       ///< the rows are channels, or lead to them
    std::string ParentName;    ///< the folder whose rows came from the catalogue, "" otherwise

  private:
    std::string title_;
    std::string notice_;
    std::int64_t lastPulse_ = -1000; ///< ticks of the clock, milliseconds
    bool aborted_ = false;
};

} // namespace vk
