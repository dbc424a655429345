// One player an application directory: who may listen, and where.
#pragma once

#include "platform/linux/descriptor.h"

#include <string>

namespace vk {

/// The claim to be the one player. It lies in a locked file beside the socket, so it ends with the
/// process whatever happens, and of two starts at once one gets it.
class Instance {
  public:
    /// `socketPath` as PlayerSocketPath gives it. Programs from outside look at `commonPath`: it
    /// leads to the player unless it leads to another one.
    explicit Instance(std::string socketPath, std::string commonPath = {})
        : path_(std::move(socketPath)), common_(std::move(commonPath)) {}
    ~Instance() { Release(); }
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    /// Takes the place and listens; false when another process has it or the folder is unusable.
    bool Claim();
    /// The listening socket while the place is taken.
    const FileDescriptor& Listener() const { return listener_; }
    /// Gives the place up: the socket's name is gone when this returns.
    void Release();

  private:
    void LeadHere() const;
    void LeadNowhere() const;

    std::string path_, common_;
    FileDescriptor lock_;
    FileDescriptor listener_;
};

} // namespace vk
