// A terminal on a virtual display of the test's own, with a window manager and without one.
#include "tests/platform/desktop.h"

#include <gmock/gmock.h>
#include <sys/socket.h>

namespace vk::test {
namespace {

struct ForeignWindowsTest : testing::TestWithParam<bool>, Desktop {
    ForeignWindowsTest() : Desktop(GetParam()) { MakeHost(); }
    void MakeHost() {
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
    WindowHandle StartTerminal() {
        const std::string script = "read line && echo \"$line\" > line && exec sleep 1000";
        terminal = Start("/usr/bin/xterm", {"-T", "a probe", "-e", "/bin/sh", "-c", script});
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

    WindowHandle host = 0;
    ProgramId terminal = 0;
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
    const X11Properties x(connection);
    xcb_reparent_window(connection, static_cast<xcb_window_t>(window), x.Root(), 0, 0);
    EXPECT_TRUE(Soon([&] { return ParentOf(window) == host; }));
    EXPECT_FALSE(Viewable(window)) << "taken back from a late manager, and hidden as before";
    ::shutdown(xcb_get_file_descriptor(connection), SHUT_RDWR); // as a crash does
    Disconnect();
    Connect();
    MakeHost();
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
