// One player a user: who may listen, and where.
#pragma once

#include "platform/linux/descriptor.h"

#include <string>

namespace vk {

/// The claim to be the one player. It lies in a locked file beside the socket, so it ends with the
/// process whatever happens, and of two starts at once one gets it.
class Instance {
  public:
    /// `socketPath` as PlayerSocketPath gives it.
    explicit Instance(std::string socketPath) : path_(std::move(socketPath)) {}
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
    std::string path_;
    FileDescriptor lock_;
    FileDescriptor listener_;
};

} // namespace vk
