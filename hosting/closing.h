// Closing programs, in three stages.
#pragma once

#include "core/base.h"
#include "hosting/app_windows.h"
#include "platform/clock.h"

#include <memory>

namespace vk {

class Closing {
  public:
    /// The passes of a stage, and how long one lasts at least, as long as the event loop does when
    /// nothing happens: milliseconds.
    static constexpr int Passes = 500, PassMs = 20;
    /// At the system's end nothing waits with events: all programs together have so long to close
    /// their windows, and again so long to end when they are asked; milliseconds.
    static constexpr int LastMs = 1500, AskedMs = 500;

    /// All of it outlives this object.
    Closing(Base& base, Programs& programs, ForeignWindows& windows, const AppWindows& collection);

    /// Asks its main window, then all its windows to close, then kills it: events run, and when the
    /// user ends the wait the next stage comes at once. With `mayAsk` false is returned early, and
    /// nothing more done, when it has opened another window in answer: its question to the user
    /// would be lost.
    bool Close(RunningApp& app, bool mayAsk);
    /// The same of all at the system's end.
    void CloseAll(const RunningApps& apps);
    /// The same, in the same time, while everything else goes on.
    void CloseBehind(const RunningApps& apps);

  private:
    bool WindowsGone(const RunningApp& app, const char* what, bool mayAsk, int& passes);
    bool Asks(const RunningApp& app) const;
    bool AllEnd(const RunningApps& apps, int milliseconds) const;
    void AskWindows(const RunningApps& apps) const;
    void AskPrograms(const RunningApps& apps) const;
    void KillWhatRuns(const RunningApps& apps) const;
    void NextBehind();

    Base& base_;
    Programs& programs_;
    ForeignWindows& windows_;
    const AppWindows& collection_;
    RunningApps behind_, askedBehind_; ///< whose windows, and who have been asked
    std::unique_ptr<Timer> later_;
};

} // namespace vk
