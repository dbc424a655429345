// Programs that only tell what was asked of them.
#pragma once

#include "platform/programs.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vk::test {

class RecordingPrograms : public Programs {
  public:
    ProgramId Start(const ProgramStart& what) override {
        started.push_back(what);
        if (!canStart) return 0;
        running.insert(++last_);
        return last_;
    }
    bool Running(ProgramId program) const override { return running.contains(program); }
    void Close(ProgramId program) override { running.erase(program); }
    void Kill(ProgramId program) override {
        killed.push_back(program);
        running.erase(program);
    }
    bool IsOf(ProgramId process, ProgramId program) const override {
        return process == program && process > 0 && process <= last_;
    }
    bool AnyRunning(ProgramId program) const override { return Running(program); }
    void KillAll(ProgramId program) override { Kill(program); }
    std::vector<ProgramId> LeftBehind() override { return std::exchange(left, {}); }
    bool Wait(ProgramId program, int /*timeoutMs*/) const override { return !Running(program); }
    bool ProcessRunning(const std::string&, ProgramId) const override { return false; }

    bool canStart = true;
    std::vector<ProgramId> left; ///< by a process before this one
    std::vector<ProgramStart> started;
    std::set<ProgramId> running;
    std::vector<ProgramId> killed;

  private:
    ProgramId last_ = 0;
};

} // namespace vk::test
