// Which windows a program has, and where they lie.
#pragma once

#include "core/base.h"
#include "hosting/running_app.h"

#include <vector>

namespace vk {

/// A program is here always with all that it has started in turn. All of it outlives this object.
class AppWindows {
  public:
    AppWindows(const Base& base, const Programs& programs, ForeignWindows& windows)
        : base_(base), programs_(programs), windows_(windows) {}

    /// Those that can be seen or are minimised, the front one last.
    std::vector<ForeignWindow> Of(ProgramId program) const;
    bool AppHasWindow(ProgramId program) const { return !Of(program).empty(); }
    /// Fills the record's list and its main window, which stays the one that it is while that can
    /// be seen; else the front one of those that can be minimised, or of all. Their number.
    int CollectAppWindows(RunningApp& app) const;
    /// Gives the windows of their own that have come the system's frame, once each, when the
    /// program is to be maximised.
    void Frame(RunningApp& app) const;
    /// Forces the main window onto the whole frame when it does not cover it; a program that will
    /// not have it is left alone until it changes its size itself.
    void ForceMaximize(RunningApp& app) const;
    /// In front of everything else with all its windows, and with the input; or not above others
    /// any more, and without the keys, which others need then.
    void ComeToFront(const RunningApp& app) const;
    void LetOthersOver(const RunningApp& app) const;

  private:
    WindowArea Whole() const { return {0, 0, base_.state.ScreenWidth, base_.state.ScreenHeight}; }

    const Base& base_;
    const Programs& programs_;
    ForeignWindows& windows_;
};

} // namespace vk
