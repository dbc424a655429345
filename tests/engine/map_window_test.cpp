// The real engine's window on a virtual display of the test's own.
#include "navigation/navit/navit_engine.h"
#include "platform/linux/x11/x11_windows.h"
#include "platform/qt/qt_child_process.h"
#include "platform/qt/qt_clock.h"
#include "tests/engine/demo_town.h"
#include "tests/platform/polled.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <set>

namespace vk::test {
namespace {

constexpr WindowArea Area{0, 0, 400, 300};

struct MapWindowTest : testing::Test {
    MapWindowTest() {
        server.onOutput = [this](std::string_view text) { display += text; };
        server.Start("/usr/bin/Xvfb",
                     {"-displayfd", "1", "-screen", "0", "800x480x24", "-nolisten", "tcp"});
        EXPECT_TRUE(Polled([&] { return display.ends_with('\n'); }));
        display = ":" + display.substr(0, display.size() - 1);
        ::setenv("DISPLAY", display.c_str(), 1);
        connection = xcb_connect(display.c_str(), nullptr);
        windows = std::make_unique<X11Windows>(connection);
        host = xcb_generate_id(connection);
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, host, X11Properties(connection).Root(),
                          0, 0, 800, 480, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0,
                          nullptr);
        xcb_map_window(connection, host);
        xcb_flush(connection);
        engine = std::make_unique<NavitEngine>(
            clock, MakeSentenceFeed(),
            NavitPlace{.folder = home.File("navigation"), .windows = windows.get()},
            NavitTimes{.start = 60000}, NavitPauses{.first = 1});
        engine->Start({.map = DemoTown::Get().Map(), .source = ""});
    }
    ~MapWindowTest() override {
        engine.reset();
        windows.reset();
        xcb_disconnect(connection);
        ::unsetenv("DISPLAY");
    }
    template<class Condition> bool Soon(Condition condition) {
        return Polled([&] {
            while (XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection)})
                windows->Handle(*event);
            return condition();
        });
    }
    /// Colours seen in a part of the host.
    std::size_t Colours(const WindowArea& area) const {
        const XReply<xcb_get_image_reply_t> image(xcb_get_image_reply(
            connection,
            xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, host,
                          static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                          static_cast<std::uint16_t>(area.width),
                          static_cast<std::uint16_t>(area.height), ~0u),
            nullptr));
        if (!image) return 0;
        const auto* const pixels =
            reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
        return std::set<std::uint32_t>(pixels, pixels + area.width * area.height).size();
    }
    bool ShowsMap() {
        if (!Soon([&] { return engine->MapWindow() != 0; })) return false;
        if (!windows->Adopt(engine->MapWindow(), host, Area)) return false;
        return Soon([&] { return Colours({300, 200, 100, 100}) > 5; });
    }

    QtClock clock;
    TempFolder home;
    QtChildProcess server;
    std::string display;
    xcb_connection_t* connection = nullptr;
    xcb_window_t host = 0;
    std::unique_ptr<X11Windows> windows;
    std::unique_ptr<NavitEngine> engine;
};

TEST_F(MapWindowTest, TheMapFillsItsPlaceAndComesAgainAfterItsEnd) {
    EXPECT_TRUE(ShowsMap());
    bool gone = false;
    windows->onGone = [&](WindowHandle) { gone = true; };
    EngineSettings other;
    other[4] = "car_shortest"; // takes a new start
    engine->SetSettings(other);
    EXPECT_TRUE(Soon([&] { return gone; }));
    EXPECT_TRUE(ShowsMap());
}

} // namespace
} // namespace vk::test
