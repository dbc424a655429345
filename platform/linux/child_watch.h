// Children of this process, collected the moment they end.
#pragma once

#include <sys/types.h>

#include <memory>

namespace vk {

/// A thread a child waits for its end, so that none stays a zombie, no signal handler is needed and
/// nobody else's children are taken away. A number that was given to another process meanwhile is
/// never signalled. Children outlive this object.
class ChildWatch {
  public:
    ChildWatch();
    /// To be called once for each child.
    void Watch(pid_t child);
    /// True while a child that is watched has not ended.
    bool Running(pid_t child) const;
    /// Reaches a child that runs, and no other process.
    void Signal(pid_t child, int number) const;
    /// Waits for its end, at most `timeoutMs` milliseconds; true when it does not run.
    bool Wait(pid_t child, int timeoutMs) const;

  private:
    struct Shared;
    std::shared_ptr<Shared> shared_; ///< with the threads
};

} // namespace vk
