// A desktop of the test's own: a virtual display, with a window manager or without one, and what is
// asked of its windows.
#pragma once

#include "platform/files.h"
#include "platform/linux/x11/x11_windows.h"
#include "platform/qt/qt_child_process.h"
#include "tests/platform/polled.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vk::test {

struct Desktop {
    explicit Desktop(bool managed) {
        server.onOutput = [this](std::string_view text) { display += text; };
        server.Start("/usr/bin/Xvfb",
                     {"-displayfd", "1", "-screen", "0", "640x480x24", "-nolisten", "tcp"});
        EXPECT_TRUE(Polled([&] { return display.ends_with('\n'); }));
        display = ":" + display.substr(0, display.size() - 1);
        ::setenv("DISPLAY", display.c_str(), 1);
        Connect();
        if (!managed) return;
        // It says so before, but a window that comes while it is starting it never looks after.
        Start("/usr/bin/openbox", {"--startup", "touch " + folder.File("ready")});
        EXPECT_TRUE(Polled([&] { return FileExists(folder.File("ready")); }));
    }
    ~Desktop() {
        for (const ProgramId program : started) {
            programs->Kill(program);
            programs->Wait(program, 5000);
        }
        Disconnect();
    }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    void Connect() {
        connection = xcb_connect(display.c_str(), nullptr);
        windows = std::make_unique<X11Windows>(connection);
    }
    void Disconnect() {
        windows.reset();
        if (connection) xcb_disconnect(std::exchange(connection, nullptr));
    }
    /// One that is ended with the desktop.
    ProgramId Start(const std::string& program, const std::vector<std::string>& arguments) {
        started.push_back(programs->Start({program, arguments, folder.Path()}));
        return started.back();
    }
    void HandleEvents() const {
        while (XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection)})
            windows->Handle(*event);
    }
    /// Waits with the display's events handled.
    template<class Condition> bool Soon(Condition condition) {
        return Polled([&] {
            HandleEvents();
            return condition();
        });
    }
    bool Viewable(WindowHandle window) const {
        const auto asked = xcb_get_window_attributes(connection, static_cast<xcb_window_t>(window));
        const XReply<xcb_get_window_attributes_reply_t> now(
            xcb_get_window_attributes_reply(connection, asked, nullptr));
        return now && now->map_state == XCB_MAP_STATE_VIEWABLE;
    }
    /// By xdotool.
    void Type(const std::vector<std::string>& words) {
        EXPECT_TRUE(programs->Wait(Start("/usr/bin/xdotool", words), 20'000));
    }

    TempFolder folder;
    std::unique_ptr<Programs> programs = MakePrograms();
    QtChildProcess server;
    std::string display;
    xcb_connection_t* connection = nullptr;
    std::unique_ptr<X11Windows> windows;
    std::vector<ProgramId> started;
};

} // namespace vk::test
