#include "core/commands.h"

#include <utility>

namespace vk {

bool Commands::Run(When when, const std::function<void()>& command) {
    if (closed_) return false;
    if (running_) {
        Keep(when, command);
        return false;
    }
    RunNow(command);
    // What follows may be followed by the next.
    while (next_ && !closed_) {
        const auto next = std::exchange(next_, {});
        if (screens_.CurrentForm == nextForm_) RunNow(next, std::exchange(nextEnded_, false));
    }
    return true;
}

void Commands::RunNow(const std::function<void()>& command, bool following) {
    struct Running {
        Commands& commands;
        ~Running() {
            commands.running_ = commands.following_ = false;
            commands.pump_.Allow();
        }
    };
    running_ = true;
    following_ = following;
    startedMs_ = clock_.TickMs();
    const Running running{*this};
    command();
}

void Commands::Keep(When when, const std::function<void()>& command) {
    if (when == When::Drop) return;
    if (when == When::Interrupt) {
        if (RunningMs() < InterruptMs) return;
        End();
    } else if (next_ && nextEnded_) {
        return;
    }
    next_ = command;
    nextEnded_ = when == When::Interrupt;
    nextForm_ = screens_.CurrentForm.Text();
}

void Commands::End() {
    if (running_) pump_.EndAll();
}

void Commands::Close() {
    closed_ = true;
    next_ = {};
}

} // namespace vk
