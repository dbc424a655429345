// A player process that records what it was sent and answers by script.
#pragma once

#include "platform/player_window.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vk::test {

class RecordingPlayer : public PlayerWindow {
  public:
    /// One message, compared whole.
    struct Message {
        unsigned message;
        std::int32_t wParam;
        std::int32_t lParam;
        bool operator==(const Message&) const = default;
    };
    static Message Command(std::int32_t id) { return {WM_COMMAND, id, 0}; }
    static Message Query(std::int32_t function, std::int32_t argument = 0) {
        return {WM_USER, argument, function};
    }

    WindowHandle FindWindow(const std::string& windowClass) override {
        classes.push_back(windowClass);
        return running ? handle : 0;
    }
    std::int32_t SendMessage(WindowHandle window, unsigned message, std::int32_t wParam,
                             std::int32_t lParam) override {
        const Message item{message, wParam, lParam};
        sent.push_back(item);
        windows.push_back(window);
        if (broken) throw std::runtime_error("wire cut");
        return answer ? answer(item) : 0;
    }
    std::string Title(WindowHandle) override { return title; }
    bool Start(const std::string& program, const std::string& folder) override {
        if (broken) throw std::runtime_error("no memory");
        started.emplace_back(program, folder);
        running = canStart && listens;
        starting = canStart && !listens;
        return canStart;
    }
    PlayerState State() override {
        if (running) return silent ? PlayerState::Silent : PlayerState::Answers;
        return starting ? PlayerState::Starting : PlayerState::Gone;
    }
    void Kill() override {
        ++kills;
        running = starting = silent = false;
    }
    bool RunHidden(const std::string& program, const std::string& arguments,
                   const std::string& folder) override {
        ran.push_back(program + " " + arguments);
        runFolders.push_back(folder);
        return canStart;
    }

    bool running = true;
    bool canStart = true;
    bool listens = true;                   ///< one that is started takes messages
    bool starting = false, silent = false; ///< see `PlayerState`
    int kills = 0;
    std::string title;   ///< of its window
    bool broken = false; ///< every message and start throws
    WindowHandle handle = 77;
    std::function<std::int32_t(const Message&)> answer; ///< 0 for everything when empty
    std::vector<Message> sent;
    std::vector<WindowHandle> windows; ///< where each message of `sent` went
    std::vector<std::string> classes;
    std::vector<std::pair<std::string, std::string>> started; ///< program, folder
    std::vector<std::string> ran;                             ///< program, blank, arguments
    std::vector<std::string> runFolders;
};

} // namespace vk::test
