// Fakes of the ports that only the wiring, the start and the remote see.
#pragma once

#include "platform/beeper.h"
#include "platform/desktop.h"
#include "platform/instance_lock.h"
#include "platform/local_stream.h"
#include "platform/medium_probe.h"
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

struct FakeDesktop : Desktop {
    bool IsShell() const override { return shell; }
    bool SetShell(bool on) override {
        shell = on;
        return true;
    }
    bool HasAnotherShell() const override { return another; }
    void AskAutoPlay(std::function<void(std::optional<std::int32_t>)> told) override {
        if (told) told(autoPlay);
    }
    bool SetAutoPlay(std::int32_t value) override {
        autoPlay = value;
        return true;
    }
    bool AutoPlayWaitsForStart() const override { return true; }
    bool OpenExplorer() override {
        ++opened;
        return true;
    }
    bool shell = false, another = true;
    std::optional<std::int32_t> autoPlay = 145;
    int opened = 0;
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

/// Answers at once that everything is there, until it is told otherwise.
struct FakeMediumProbe : MediumProbe {
    void Ask(const std::string& path) override { asked.push_back(path); }
    std::optional<bool> Answer() const override { return answer; }
    std::optional<bool> answer = true;
    std::vector<std::string> asked;
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
