// Starting programs that go on by themselves.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The arguments of a command line: parted by blanks, double quotes keep blanks. A quote closes
/// only before a blank or the end, so that a file name may hold quotes itself.
std::vector<std::string> SplitArguments(std::string_view line);

/// Starts a program in `folder`, in a session of its own (it outlives this process and hears none
/// of the terminal's signals), with the null device for its standard streams and no other open
/// file. Its process number, 0 when it could not be started.
pid_t SpawnDetached(const std::string& program, const std::vector<std::string>& arguments,
                    const std::string& folder);

/// Collects ended children that it was told of, and no others: no signal handler is needed, and
/// nobody else's children are taken away.
class ChildReaper {
  public:
    void Add(pid_t child) { children_.push_back(child); }
    /// Collects who has ended, without waiting.
    void Reap();
    /// True while that child has not been collected.
    bool Running(pid_t child) const;

  private:
    std::vector<pid_t> children_;
};

} // namespace vk
