// Processes on Linux, as /proc lists them.
#pragma once

#include "platform/processes.h"

namespace vk {

class LinuxProcesses : public Processes {
  public:
    long OwnId() const override;
    long AgeMs() const override;
    bool ProcessRunning(const std::string& name, long ownId) const override;
};

} // namespace vk
