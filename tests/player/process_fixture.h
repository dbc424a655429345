// A real player in a folder of its own, apart from every other one of this user.
#pragma once

#include "platform/linux/player_socket.h"
#include "playback/c_winamp.h"
#include "tests/paths.h"
#include "tests/support/core_fixture.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

namespace vk::test {

/// Polls until `condition` holds; false after ten seconds.
template<class Condition> bool Eventually(Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

/// A silent wave file of that length (8 kHz, 8 bit, one channel).
inline std::string WaveFile(int milliseconds) {
    const auto number = [](std::uint32_t value, int bytes) {
        std::string text;
        for (int index = 0; index < bytes; ++index)
            text += static_cast<char>(value >> (8 * index));
        return text;
    };
    const auto size = static_cast<std::uint32_t>(milliseconds * 8);
    return "RIFF" + number(36 + size, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) +
           number(1, 2) + number(8000, 4) + number(8000, 4) + number(1, 2) + number(8, 2) + "data" +
           number(size, 4) + std::string(size, '\x80');
}

/// XDG_RUNTIME_DIR is the temporary folder, and no sound server is in sight.
struct PrivateRuntime {
    PrivateRuntime() {
        std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_all);
        ::setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
        ::unsetenv("PULSE_SERVER");
        ::unsetenv("ALSA_CONFIG_PATH");
    }
    TempFolder folder;
};

/// The copy of the player lies in the application directory with its settings.
struct ProcessFixture : testing::Test {
    ProcessFixture() {
        std::filesystem::copy_file(JoinPath(VK_APP_DIR, "winamp"), core.app.File("winamp"));
        core.app.Write("winamp.ini", "[winamp]\r\nrepeat=1\r\nVolume=0\r\n");
    }
    ~ProcessFixture() override {
        winamp.reset();
        window.reset();
        EXPECT_EQ(PlayerPid(), 0) << "left running";
    }
    /// A list of wave files "<name>.wav" of these lengths, in the application directory.
    std::string List(const std::string& name,
                     const std::vector<std::pair<std::string, int>>& tracks) {
        std::string text = "#EXTM3U\r\n";
        for (const auto& [track, milliseconds] : tracks) {
            core.app.Write(track + ".wav", WaveFile(milliseconds));
            text += track + ".wav\r\n";
        }
        return core.app.Write(name, text);
    }
    /// What the player screen does to play a list.
    void Load(const std::string& list, int index) {
        winamp->WinAMP_SCM(WinampStop);
        winamp->WinAMP_ClearPlaylist();
        EXPECT_TRUE(winamp->WinAMP_OpenFile(list));
        winamp->WinAMP_loadtracknum(index);
        winamp->WinAMP_SCM(WinampPlay);
    }
    void StartPlayer() {
        ASSERT_TRUE(winamp->WinAMP_Start());
        ASSERT_TRUE(Eventually([this] { return winamp->WinAMP_FindWindow(); }));
    }
    bool Playing() { return winamp->WinAMP_GetStatus() == "1"; }
    void LoadAndPlay(const std::string& list, int index) {
        Load(list, index);
        ASSERT_TRUE(Eventually([this] { return Playing(); }));
    }
    /// Process number of whoever listens, 0 when nobody does.
    pid_t PlayerPid() const {
        const FileDescriptor connection = ConnectTo(SocketPath());
        ucred peer{};
        socklen_t size = sizeof peer;
        if (!connection ||
            ::getsockopt(connection.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0)
            return 0;
        return peer.pid;
    }

    std::string SocketPath() const { return PlayerSocketPath(PlayerWindowClass, core.app.Path()); }

    PrivateRuntime runtime;
    CoreFixture core;
    std::unique_ptr<Programs> programs = MakePrograms();
    std::unique_ptr<PlayerWindow> window = MakePlayerWindow(*programs, core.app.Path());
    std::unique_ptr<cWinamp> winamp =
        std::make_unique<cWinamp>(WinampNeeds{*window, core.pump, core.report, core.app.Path()});
};

} // namespace vk::test
