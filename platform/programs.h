// Other programs of the machine: started, watched and ended. Their windows are those of
// `ForeignWindows`.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace vk {

/// The number of a running program; 0 is none.
using ProgramId = long;

/// What is to be started and how.
struct ProgramStart {
    std::string program; ///< full path
    std::vector<std::string> arguments = {};
    std::string folder = {}; ///< the one that it works in
    /// Asks that its first window be not shown; a program without windows needs no asking, and only
    /// Windows knows the wish.
    bool hidden = false;
    bool background = false; ///< it takes the processors and the disk last
    /// It is not to stay behind when this process crashes: `LeftBehind` of the next one has it, and
    /// Windows ends it at once.
    bool ours = false;
    /// How its first window is to come, a number of ShowWindow; only Windows knows the wish. 0: as
    /// the program likes it.
    int show = 0;
};

/// What is started here outlives this object and this process unless somebody ends it or the start
/// says otherwise, hears none of the terminal's signals, and gets none of the files that are open
/// here. One that has ended leaves nothing behind, whether it is asked about or not. Each operation
/// but `Wait` returns at once.
class Programs {
  public:
    virtual ~Programs() = default;
    /// Its number; 0 when it could not be started.
    virtual ProgramId Start(const ProgramStart& what) = 0;
    /// True while a program that was started here runs.
    virtual bool Running(ProgramId program) const = 0;
    /// Asks it to end; one that was not started here hears nothing, also below.
    virtual void Close(ProgramId program) = 0;
    /// Ends it without asking.
    virtual void Kill(ProgramId program) = 0;
    /// True when the process is that program, started here, or one that it has started in turn, as
    /// a script does; also when the program itself has ended.
    virtual bool IsOf(ProgramId process, ProgramId program) const = 0;
    /// True while the program or anything that it has started runs.
    virtual bool AnyRunning(ProgramId program) const = 0;
    /// What a process before this one has started as its own and left behind, running still: from
    /// now on as if it was started here. To be asked by the one process that has the notes.
    virtual std::vector<ProgramId> LeftBehind() { return {}; }
    /// Ends all of that without asking.
    virtual void KillAll(ProgramId program) = 0;
    /// Waits for its end, at most `timeoutMs` milliseconds; true when it has ended.
    virtual bool Wait(ProgramId program, int timeoutMs) const = 0;
    /// True when a process other than `ownId` runs a program whose file name contains `name`
    /// (compared without regard to case; folders do not count, a missing ".exe" is no difference).
    virtual bool ProcessRunning(const std::string& name, ProgramId ownId) const = 0;
};

/// The platform's own adapter. In the file `notes` it remembers what is not to stay behind, where
/// the system does not see to that; "" is none.
std::unique_ptr<Programs> MakePrograms(const std::string& notes = {});

} // namespace vk
