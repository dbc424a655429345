// A terminal on a virtual display of the test's own, with a window manager and without one.
#include "platform/linux/x11/x11_windows.h"
#include "platform/paths.h"
#include "platform/qt/qt_child_process.h"
#include "tests/platform/polled.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <sys/socket.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace vk::test {
namespace {

struct ForeignWindowsTest : testing::TestWithParam<bool> {
    ForeignWindowsTest() {
        server.onOutput = [this](std::string_view text) { display += text; };
        server.Start("/usr/bin/Xvfb",
                     {"-displayfd", "1", "-screen", "0", "640x480x24", "-nolisten", "tcp"});
        EXPECT_TRUE(Polled([&] { return display.ends_with('\n'); }));
        display = ":" + display.substr(0, display.size() - 1);
        ::setenv("DISPLAY", display.c_str(), 1);
        Connect();
        if (!GetParam()) return;
        manager = programs->Start({"/usr/bin/openbox", {}, folder.Path()});
        const X11Properties properties(connection);
        EXPECT_TRUE(Polled([&] { return properties.Managed(); }));
    }
    ~ForeignWindowsTest() override {
        for (const ProgramId program : {manager, terminal}) {
            programs->Kill(program);
            programs->Wait(program, 5000);
        }
        Disconnect();
    }
    void Connect() {
        connection = xcb_connect(display.c_str(), nullptr);
        windows = std::make_unique<X11Windows>(connection);
        const X11Properties properties(connection);
        const xcb_window_t window = xcb_generate_id(connection);
        host = window;
        const std::uint32_t undirected = 1; // where it is put it stays
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, properties.Root(), 50, 40, 400,
                          300, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT, &undirected);
        xcb_map_window(connection, window);
        xcb_flush(connection);
    }
    void Disconnect() {
        windows.reset();
        if (connection) xcb_disconnect(std::exchange(connection, nullptr));
    }
    /// Waits with the display's events handled.
    template<class Condition> bool Soon(Condition condition) {
        return Polled([&] {
            while (XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection)})
                windows->Handle(*event);
            return condition();
        });
    }
    WindowHandle StartTerminal() {
        const std::string script = "read line; echo \"$line\" > line; exec sleep 1000";
        terminal = programs->Start(
            {"/usr/bin/xterm", {"-T", "a probe", "-e", "/bin/sh", "-c", script}, folder.Path()});
        EXPECT_TRUE(Soon([&] { return Terminal().visible; }));
        return Terminal().handle;
    }
    ForeignWindow Terminal() const {
        const auto all = WindowsOf(*windows, terminal);
        return all.empty() ? ForeignWindow{} : all.back();
    }
    xcb_window_t ParentOf(WindowHandle window) const {
        return X11Properties(connection).Parent(static_cast<xcb_window_t>(window)).value_or(0);
    }
    bool Managed(WindowHandle window) const {
        const X11Properties x(connection);
        const auto clients = x.Numbers(x.Root(), "_NET_CLIENT_LIST");
        return std::ranges::count(clients, static_cast<xcb_window_t>(window)) > 0;
    }
    std::pair<int, int> SizeOf(WindowHandle window) const {
        const auto asked = xcb_get_geometry(connection, static_cast<xcb_window_t>(window));
        const XReply<xcb_get_geometry_reply_t> got(
            xcb_get_geometry_reply(connection, asked, nullptr));
        return {got->width, got->height};
    }
    void Type(const std::vector<std::string>& words) {
        const ProgramId typed = programs->Start({"/usr/bin/xdotool", words, folder.Path()});
        EXPECT_TRUE(programs->Wait(typed, 20'000));
    }

    TempFolder folder;
    std::unique_ptr<Programs> programs = MakePrograms();
    QtChildProcess server;
    std::string display;
    xcb_connection_t* connection = nullptr;
    std::unique_ptr<X11Windows> windows;
    WindowHandle host = 0;
    ProgramId manager = 0, terminal = 0;
};

TEST_P(ForeignWindowsTest, ATerminalIsTakenInPlacedTypedIntoAndGivenBack) {
    const WindowHandle window = StartTerminal();
    EXPECT_EQ(Terminal().title, "a probe");
    EXPECT_EQ(Terminal().windowClass, "XTerm");
    windows->SetFrame(window, false);
    windows->Place(window, {10, 20, 300, 200});
    EXPECT_TRUE(Soon([&] { return Terminal().area.x == 10 && Terminal().area.y == 20; }));
    ASSERT_TRUE(windows->Adopt(window, host, {5, 6, 320, 240}));
    // A manager that lets go late takes it back for a moment.
    EXPECT_TRUE(Soon([&] { return !Managed(window) && ParentOf(window) == host; }));
    EXPECT_EQ(Terminal().handle, 0u) << "it is no window of the desktop now";
    EXPECT_TRUE(windows->Exists(window));
    const auto size = [&] { return SizeOf(window); };
    EXPECT_TRUE(Soon([&] { return size() == std::pair(320, 240); }));
    std::vector<int> keys;
    windows->onKey = [&](int key) { keys.push_back(key); };
    windows->HoldKeys({27, 'M'});
    windows->Focus(window);
    Type({"type", "mah\n"});
    EXPECT_TRUE(Soon([&] { return folder.Read("line") == "ah\n"; })) << "but for the held key";
    Type({"key", "Escape"});
    EXPECT_TRUE(Soon([&] { return keys == std::vector{int('M'), 27}; }));
    windows->HoldKeys({});
    windows->Return(window);
    EXPECT_TRUE(Soon([&] { return Terminal().visible; }));
    EXPECT_NE(ParentOf(window), host);
    windows->SetTopmost(window, true);
    windows->Focus(window);
    windows->Close(window);
    EXPECT_TRUE(programs->Wait(terminal, 20'000)) << "asked, not killed";
}

TEST_P(ForeignWindowsTest, AnAdoptedWindowOutlivesUsAndItsEndIsTold) {
    const WindowHandle window = StartTerminal();
    ASSERT_TRUE(windows->Adopt(window, host, {0, 0, 200, 100}));
    windows->Show(window, false);
    ::shutdown(xcb_get_file_descriptor(connection), SHUT_RDWR); // as a crash does
    Disconnect();
    Connect();
    EXPECT_TRUE(Soon([&] { return Terminal().visible; })) << "on the desktop again, and shown";
    EXPECT_TRUE(programs->Running(terminal));
    WindowHandle gone = 0;
    windows->onGone = [&](WindowHandle which) { gone = which; };
    ASSERT_TRUE(windows->Adopt(window, host, {0, 0, 200, 100}));
    programs->Kill(terminal);
    EXPECT_TRUE(Soon([&] { return gone == window; }));
    EXPECT_FALSE(windows->Exists(window));
    EXPECT_FALSE(windows->Adopt(window, host, {}));
    windows->Raise(window);
    windows->Close(window);
    windows->Return(window);
}

INSTANTIATE_TEST_SUITE_P(Managed, ForeignWindowsTest, testing::Bool());

} // namespace
} // namespace vk::test
