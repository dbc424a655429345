// A program that was started here with all that it has started in turn.
#pragma once

#include "platform/linux/child_watch.h"
#include "platform/linux/program_notes.h"

#include <vector>

namespace vk {

/// Every program is started as the leader of a session of its own, whose members are its family,
/// the leader being there or not; what leaves the session leaves the family.
class ProgramFamilies {
  public:
    /// `children` watches the leaders and outlives this object.
    explicit ProgramFamilies(const ChildWatch& children) : children_(children) {}

    /// One that was just started.
    void Add(pid_t leader);
    /// One that another process has started; false when it is there no more, or we are a part of it
    /// ourselves.
    bool Add(const StartedPrograms::value_type& leader);
    bool Has(pid_t process, pid_t leader) const;
    bool Any(pid_t leader) const;
    /// Asks every member to end, or ends it.
    void Close(pid_t leader) const;
    void Kill(pid_t leader) const;
    /// Those of these leaders that have a member left.
    StartedPrograms Living(const std::vector<pid_t>& leaders) const;

  private:
    bool Known(pid_t leader) const;
    std::vector<pid_t> Members(pid_t leader) const;

    const ChildWatch& children_;
    StartedPrograms leaders_;
};

} // namespace vk
