// The visualisation: a program of its own beside the player.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

namespace vk {

/// One at a time. It has a window and ends by itself when that is closed or the player goes.
class VisProgram {
  public:
    /// The name of the program in the application directory.
    static constexpr const char* Name = "visuals";

    /// `folder` is the application directory.
    explicit VisProgram(std::string folder) : folder_(std::move(folder)) {}
    ~VisProgram() { End(); }
    VisProgram(const VisProgram&) = delete;
    VisProgram& operator=(const VisProgram&) = delete;

    /// Starts it, or ends the one that runs, without asking: it holds nothing that could be lost.
    /// `client` is who wants it.
    void Toggle(std::uint64_t client);
    /// Who wanted it has gone, and nobody would end it.
    void Left(std::uint64_t client);
    /// Children have ended: collects them. The player has no others.
    void Collect();
    bool Running() const { return child_ != 0; }

  private:
    void End();

    std::string folder_;
    pid_t child_ = 0;
    std::uint64_t client_ = 0; ///< whose it is
};

} // namespace vk
