// Buttons from a socket such as lircd's.
#include "input/remote/lirc_receiver.h"
#include "platform/qt/qt_local_stream.h"
#include "tests/input/remote_fixture.h"
#include "tests/support/events.h"

#include <sys/socket.h>
#include <sys/un.h>

namespace vk::test {

TEST(LircButtonTest, TakesTheButtonOfACompleteLineOnly) {
    EXPECT_EQ(LircButton("0000000000f40bf0 1f KEY_VOL+ My_Remote.conf"), "KEY_VOL+");
    for (const char* line : {"", "BEGIN", "f4 00 KEY_UP", "f4 00 KEY_UP ", "f4 00  KEY_UP ANIMAX",
                             "f4 00 KEY_UP two words", "fg 00 KEY_UP ANIMAX", "f4 -1 KEY_UP ANIMAX",
                             "f4 00 KEY\tUP ANIMAX", "f4 00 \"KEY\" ANIMAX"})
        EXPECT_EQ(LircButton(line), std::nullopt) << line;
    EXPECT_EQ(LircButton({"0 0 K\0 A", 8}), std::nullopt);
}

/// Listens as lircd does, for one client.
struct Daemon {
    explicit Daemon(const std::string& path) {
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        ::unlink(path.c_str());
        EXPECT_EQ(
            ::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        ::listen(listener.get(), 1);
    }
    void Accept() { client = FileDescriptor(::accept(listener.get(), nullptr, nullptr)); }
    bool Send(std::string_view bytes) const {
        return ::send(client.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
               static_cast<ssize_t>(bytes.size());
    }
    FileDescriptor listener{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)}, client;
};

struct LircTest : RemoteFixture {
    LircTest() {
        settings.Write("remote", "lircsocket", path);
        devices.stream = [] { return std::make_unique<QtLocalStream>(); };
    }
    /// The daemon starts anew, and the receiver finds it.
    void StartDaemon() {
        daemon = std::make_unique<Daemon>(path);
        clock.Advance(3000);
        daemon->Accept();
    }
    bool HasCommands(std::size_t count) {
        return Eventually([&] { return commands.size() == count; });
    }
    std::string path = app.File("lircd");
    std::unique_ptr<Daemon> daemon;
};

TEST_F(LircTest, ButtonsComeThroughTornNoisyAndHugeLinesAndARestart) {
    EXPECT_FALSE(Init("lirc"));
    StartDaemon();
    ASSERT_TRUE(daemon->Send("BEGIN\nSIGHUP\nEND\n0000000000000001 00 KEY_O"));
    QCoreApplication::processEvents();
    onCommand = [&] { ASSERT_TRUE(daemon->Send("0000000000000003 00 KEY_DOWN remote\n")); };
    ASSERT_TRUE(daemon->Send("K remote\n0000000000000004 00 KEY_MUTE remote\n"));
    EXPECT_TRUE(HasCommands(1));
    EXPECT_EQ(LinesLogged("Remote receiver found: lircd"), 1);
    ASSERT_TRUE(daemon->Send(std::string(100'000, '0') + " 00 KEY_BIG remote\n"));
    ASSERT_TRUE(daemon->Send(std::string("\xFF\0\n", 3) + "0000000000000002 00 KEY_UP remote\n"));
    EXPECT_TRUE(HasCommands(2));
    EXPECT_EQ(commands, (Commands{"KEY_OK", "KEY_UP"})) << "nothing of what came with the command";
    daemon.reset();
    EXPECT_TRUE(Eventually([&] { return Logged("Remote receiver lost: lircd"); }));
    clock.Advance(30'000);
    StartDaemon();
    ASSERT_TRUE(daemon->Send("0000000000000002 00 KEY_UP remote\n"));
    EXPECT_TRUE(HasCommands(3));
    EXPECT_EQ(LinesLogged("Remote receiver"), 4);
}

} // namespace vk::test
