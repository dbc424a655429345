// What all builders of the browser's lists share: the list, its rows, the heading, and the events
// that run between rows.
#pragma once

#include "browser/browser_needs.h"
#include "browser/browser_view.h"
#include "browser/list_rows.h"
#include "browser/notice.h"

#include <functional>
#include <string>
#include <vector>

namespace vk {

/// What is given outlives it. A build goes `Start`, rows, `Finish`, within an operation.
class ListDesk {
  public:
    ListDesk(const BrowserNeeds& browserNeeds, ListModel& shown, BrowserView& screen)
        : needs(browserNeeds), list(shown), view(screen), rows(shown, needs.base.settings),
          notice_(needs.base.clock, screen) {}

    /// Runs one operation of the browser, which can be ended early through the pump. A failure is
    /// logged and reported under `name`, a literal.
    void Run(const char* name, const std::function<void()>& operation);
    /// True when the present operation was ended: what is read is not whole.
    bool Aborted() const { return work_ && work_->Ended(); }
    /// Says something over the list for a while: when the present operation ends, at once outside
    /// of one.
    void Say(const std::string& notice);
    bool Saying() const { return notice_.Showing(); }
    /// Takes away what is said, as the screen is left.
    void Hush();

    /// Empties the list for the rows that follow; none of their texts is left out unless
    /// `HideDupes` is set again.
    void Start();
    /// Shows the rows.
    void Finish();
    /// How often `Start` was called: tells whether an operation led to another list.
    int ListsStarted() const { return started_; }
    /// Runs events, at most some hundred times a second; false when the build is to end early, as
    /// it is when the system ends. Of a long build the label tells how much is `done`.
    bool Pulse(std::size_t done = 0);
    /// The label over the list while it is built.
    void ShowBusy(const std::string& label);
    /// Runs one part of a build. When it fails, that is logged under the operation's name and said
    /// on the screen; the rows that were added stay. False then, and when the build was ended
    /// early.
    bool Try(const std::string& name, const std::function<void()>& build);

    /// Sets the heading.
    void SetTitle(const std::string& title);
    const std::string& Title() const { return title_; }

    /// True in the mode that builds a playlist.
    bool Building() const { return needs.state.ListMode == ListBuild; }
    /// True for the kinds of media that the mode lists.
    bool Accepts(const std::string& path) const;
    /// The same for a file that is there and not empty.
    bool Showable(const std::string& path) const;
    /// A notice row in a list that came out empty; none when the list was not built whole.
    void AddEmptyNotice(const std::string& text, const std::string& picture = {});
    /// A numbered row for each file that is still there; returns how many rows that made.
    int AddCatalogueFiles(const std::vector<CatalogueFile>& files);
    /// The row after `number` for one of them; false when the build is to end early.
    bool AddCatalogueFile(const CatalogueFile& file, int& number);
    /// Selects the row of that descriptor, if there is one but the first; "" is none.
    void SelectMatch(const std::string& descriptor);

    BrowserNeeds needs;
    ListModel& list;
    BrowserView& view;
    ListRows rows;
    bool SqlView = false;      ///< the user is among the lists of the catalogue
    bool PlaylistView = false; ///< the rows are a playlist's
    bool XMView = false;       ///< the rows are channels, or lead to them
    std::string ParentName;    ///< the folder whose rows came from the catalogue, "" otherwise

  private:
    std::string title_;
    Notice notice_;
    std::string toSay_;          ///< when the present operation ends
    std::string busy_;           ///< the label, without what is done
    std::int64_t lastCount_ = 0; ///< when the label told something new; ticks, milliseconds
    int started_ = 0;
    Work* work_ = nullptr; ///< the present operation's
};

} // namespace vk
