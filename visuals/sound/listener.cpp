#include "visuals/sound/listener.h"

#include "visuals/sound/file_input.h"
#include "visuals/sound/monitor_input.h"

#include <chrono>
#include <memory>
#include <optional>

namespace vk {

namespace {

constexpr auto LookEvery = std::chrono::milliseconds(250);

} // namespace

Listener::Listener(std::string socketPath, Events events)
    : events_(std::move(events)), link_(std::move(socketPath)), thread_([this] { Run(); }) {}

Listener::~Listener() {
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
    }
    wake_.notify_all();
    thread_.join();
}

bool Listener::Wait() {
    std::unique_lock lock(mutex_);
    return !wake_.wait_for(lock, LookEvery, [this] { return stop_; });
}

void Listener::Run() {
    std::optional<MonitorInput> monitor;
    std::unique_ptr<FileInput> file; // its library is loaded only where it is needed
    if (MonitorInput::Possible())
        monitor.emplace(ring_);
    else
        file = std::make_unique<FileInput>(ring_);
    do {
        if (!link_.Look()) return events_.gone();
        if (file) file->Follow(link_.News());
        TellTrack();
    } while (Wait());
}

void Listener::TellTrack() {
    const std::string& file = link_.News().file;
    if (file == told_ || file.empty()) return;
    told_ = file;
    events_.track(file);
}

} // namespace vk
