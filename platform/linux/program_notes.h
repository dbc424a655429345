// A file of the programs that are not to stay behind when this process crashes.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <map>
#include <string>

namespace vk {

/// Programs by their numbers, with when each was started: ticks since the machine's start. A number
/// that was given again has another.
using StartedPrograms = std::map<pid_t, std::uint64_t>;

/// The first line is the boot; each other a program's number, a blank and when it was started. It
/// needs no flushing: a cut of the power ends the programs as well.
class ProgramNotes {
  public:
    /// "" notes nothing.
    explicit ProgramNotes(std::string file) : file_(std::move(file)) {}

    /// Replaces what is noted; without any there is no file.
    void Write(const StartedPrograms& programs) const;
    /// What was noted in this boot.
    StartedPrograms Read() const;

  private:
    std::string file_;
};

} // namespace vk
