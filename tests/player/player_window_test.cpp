// The adapter against sockets that behave badly.
#include "platform/linux/spawn.h"
#include "tests/player/process_fixture.h"

#include <gmock/gmock.h>

namespace vk::test {
namespace {

using testing::ElementsAre;

struct PlayerWindowTest : testing::Test {
    static std::ptrdiff_t OpenFiles() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    }
    std::string SocketPath() const { return PlayerSocketPath(PlayerWindowClass); }

    PrivateRuntime runtime;
    std::unique_ptr<Programs> programs = MakePrograms();
    std::unique_ptr<PlayerWindow> window = MakePlayerWindow(*programs, "");
};

TEST(SplitArguments, QuotesKeepBlanks) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"/ADD \"/my lists/a b.m3u\"", {"/ADD", "/my lists/a b.m3u"}},
        {"  a   b ", {"a", "b"}},
        {"\"12\" mix\" x", {"12", "mix\"", "x"}},
        {"\"a\"b\"", {"a\"b"}},
        {"\"\" \"open", {"", "open"}},
        {"", {}}};
    for (const auto& [text, arguments] : cases)
        EXPECT_EQ(SplitArguments(text), arguments) << text;
}

TEST_F(PlayerWindowTest, FindsNothingWhereNobodyListens) {
    EXPECT_EQ(window->FindWindow(PlayerWindowClass), 0u);
    EXPECT_EQ(window->SendMessage(0, WM_USER, 0, 104), 0);
    runtime.folder.Write(PlayerWindowClass, "no socket");
    EXPECT_EQ(window->FindWindow(PlayerWindowClass), 0u);
}

TEST_F(PlayerWindowTest, AHungPlayerCostsASecondAndTheConnection) {
    const FileDescriptor listener = ListenAt(SocketPath());
    const WindowHandle handle = window->FindWindow(PlayerWindowClass);
    ASSERT_NE(handle, 0u);
    EXPECT_EQ(window->FindWindow(PlayerWindowClass), handle);
    const auto began = std::chrono::steady_clock::now();
    EXPECT_EQ(window->SendMessage(handle, WM_USER, 0, 104), 0);
    EXPECT_EQ(window->SendMessage(handle, WM_USER, 0, 105), 0);
    const auto took = std::chrono::steady_clock::now() - began;
    EXPECT_GE(took, std::chrono::milliseconds(900));
    EXPECT_LT(took, std::chrono::milliseconds(1900)) << "only the first of them waits";
    EXPECT_NE(window->FindWindow(PlayerWindowClass), handle);
}

TEST_F(PlayerWindowTest, LeaksNoFiles) {
    const auto cycle = [this] {
        const FileDescriptor listener = ListenAt(SocketPath());
        EXPECT_NE(window->FindWindow(PlayerWindowClass), 0u);
        EXPECT_TRUE(window->RunHidden("/bin/true", "x", "/"));
    };
    cycle();
    window->FindWindow(PlayerWindowClass);
    const auto before = OpenFiles();
    for (int turn = 0; turn < 20; ++turn)
        cycle();
    window->FindWindow(PlayerWindowClass);
    EXPECT_EQ(OpenFiles(), before);
}

TEST_F(PlayerWindowTest, ProgramsRunInTheirFolderWithoutOurFilesAndTerminal) {
    const std::string out = runtime.folder.File("out");
    const std::string script =
        "\"pwd > out; ps -o sid= -p $$ >> out; ls /proc/$$/fd | wc -l >> out; echo $$ >> out; "
        "mv out done\"";
    EXPECT_TRUE(window->RunHidden("/bin/sh", "-c " + script, runtime.folder.Path()));
    ASSERT_TRUE(Eventually([&] { return FileExists(runtime.folder.File("done")); }));
    std::istringstream lines(runtime.folder.Read("done"));
    std::string folder;
    long session = 0, files = 0, process = -1;
    lines >> folder >> session >> files >> process;
    EXPECT_EQ(folder, runtime.folder.Path());
    EXPECT_EQ(session, process) << "a session of its own";
    EXPECT_LE(files, 4);
}

TEST_F(PlayerWindowTest, WhatCannotBeStartedIsToldAtOnce) {
    EXPECT_FALSE(window->RunHidden(runtime.folder.File("none"), "", "/"));
    EXPECT_FALSE(window->StartAndWaitForInputIdle("/bin/true", runtime.folder.File("none")));
    EXPECT_TRUE(window->StartAndWaitForInputIdle("/bin/true", "/")) << "it ran, and ended";
}

TEST_F(PlayerWindowTest, TheSocketLiesWhereOthersHaveNoSay) {
    EXPECT_EQ(SocketPath(), runtime.folder.File(PlayerWindowClass));
    std::filesystem::permissions(runtime.folder.Path(), std::filesystem::perms::all);
    const std::string fallback =
        "/tmp/velkorandum-" + std::to_string(::getuid()) + "/" + PlayerWindowClass;
    EXPECT_EQ(SocketPath(), fallback) << "a folder that others may write to";
    ::unsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(SocketPath(), fallback);
    const auto rights = std::filesystem::status(FolderOf(fallback)).permissions();
    EXPECT_EQ(rights, std::filesystem::perms::owner_all);
}

} // namespace
} // namespace vk::test
