// The programs that run beside the system: started, resumed, watched and closed.
#pragma once

#include "core/base.h"
#include "hosting/app_windows.h"
#include "hosting/apps_list.h"
#include "hosting/closing.h"
#include "hosting/launcher.h"
#include "platform/clock.h"

#include <functional>
#include <string>

namespace vk {

/// `RunningApps`, and what is done to them; which of them the user sees is the tool bar's affair.
class Hosting {
  public:
    /// Another window of a program follows the last one within so long, as behind a splash screen;
    /// milliseconds.
    static constexpr int GraceMs = 2000;

    struct Needs {
        Base& base;
        Programs& programs;
        ForeignWindows& windows;
    };
    /// All of it outlives this object.
    explicit Hosting(const Needs& needs);
    ~Hosting();
    Hosting(const Hosting&) = delete;
    Hosting& operator=(const Hosting&) = delete;

    /// Starts a program, adds its record and selects it. Lets events run until its window is there;
    /// a program that shows none is ended and its record dropped. Its outcome is told in words in
    /// `Said`.
    bool ExecCmd(const std::string& commandLine, const std::string& name, bool maximize,
                 bool force);
    /// The same for a line of the list; a program of that name that runs is selected instead.
    bool StartOrResume(const ListedApp& app);
    /// Why the last start came to nothing, for the user.
    const std::string& Said() const { return said_; }
    bool Loaded(const std::string& name) const;
    /// The one selected; null when there is none.
    RunningApp* Current();
    const RunningApps& Running() const { return RunningApps_; }

    /// Looks after the selected program: false when it has gone, or has had no window for a while;
    /// its record is dropped then.
    bool Watch();
    /// Drops the records of the others that have gone, and takes up those again that have opened
    /// another window after all.
    void Sweep();
    /// Closes the selected program and drops its record; false when it asks its user something
    /// first and goes on. Asked again then, it is closed whatever it asks.
    bool CloseCurrent();
    /// Ends all that was started here, at the system's end.
    void CloseAll();
    /// Ends what was started by a system before this one that did not come to its end.
    void EndLeftBehind();

    AppWindows& Collection() { return collection_; }
    const Launcher& Start() const { return launcher_; }
    /// Windows of programs may have come or gone.
    std::function<void()> onWindows;

  private:
    bool Select(const std::string& name);
    void TakeUpAgain();
    void Drop(ProgramId program, bool ended);
    bool Fails(const RunningApp& app, Launched how);

    Needs n_;
    AppWindows collection_{n_.base, n_.programs, n_.windows};
    Launcher launcher_{n_.base, n_.programs, collection_};
    Closing closing_{n_.base, n_.programs, n_.windows, collection_};
    RunningApps RunningApps_;
    RunningApps left_;       ///< records that were dropped of programs that may still run
    ProgramId current_ = 0;  ///< whose record is selected
    ProgramId asked_ = 0;    ///< who has asked its user something when it was closed
    std::size_t asking_ = 0; ///< its windows then
    std::string said_;
};

} // namespace vk
