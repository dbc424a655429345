// A program that was started here with all that it has started in turn.
#pragma once

#include "platform/linux/child_watch.h"

#include <sys/types.h>

#include <set>
#include <vector>

namespace vk {

/// Every program is started as the leader of a session of its own, whose members are its family,
/// the leader being there or not; what leaves the session leaves the family.
class ProgramFamilies {
  public:
    /// `children` watches the leaders and outlives this object.
    explicit ProgramFamilies(const ChildWatch& children) : children_(children) {}

    void Add(pid_t leader) { leaders_.insert(leader); }
    bool Has(pid_t process, pid_t leader) const;
    bool Any(pid_t leader) const;
    void Kill(pid_t leader) const;

  private:
    bool Known(pid_t leader) const;
    std::vector<pid_t> Members(pid_t leader) const;

    const ChildWatch& children_;
    std::set<pid_t> leaders_;
};

} // namespace vk
