// Fakes of the ports that only the wiring, the start and the remote see.
#pragma once

#include "platform/beeper.h"
#include "platform/instance_lock.h"
#include "platform/local_stream.h"
#include "platform/screen_saver.h"
#include "platform/ui_thread.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vk::test {

class FakeInstance : public InstanceLock {
  public:
    bool Claim(const std::string& folder) override {
        claimed = folder;
        return !running;
    }
    bool running = false; ///< another system, in every folder
    std::string claimed;
};

/// Runs work when a test says so, as an event loop does.
class FakeUiThread : public UiThread {
  public:
    void Post(std::function<void()> work) override { pending.push_back(std::move(work)); }
    void Run() {
        for (auto& work : std::exchange(pending, {}))
            work();
    }
    std::vector<std::function<void()>> pending;
};

struct FakeScreenSaver : ScreenSaver {
    void Reset() override { ++resets; }
    int resets = 0;
};

struct SilentBeeper : Beeper {
    void Beep() override {}
};

/// A stream that is there; a test calls `onBytes`.
struct FakeLocalStream : LocalStream {
    bool Connect(const std::string&) override { return true; }
    void Close() override {}
    std::string Input() override { return {}; }
};

} // namespace vk::test
