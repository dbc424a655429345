// The adapter against sockets that behave badly.
#include "platform/arguments.h"
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

TEST_F(PlayerWindowTest, AHungPlayerCostsOneShortWaitAndGetsAllMessagesInOrder) {
    const FileDescriptor listener = ListenAt(SocketPath());
    const WindowHandle handle = window->FindWindow(PlayerWindowClass);
    ASSERT_NE(handle, 0u);
    EXPECT_EQ(window->State(), PlayerState::Answers);
    const auto began = std::chrono::steady_clock::now();
    constexpr int Messages = 20;
    for (int number = 0; number < Messages; ++number)
        EXPECT_EQ(window->SendMessage(handle, WM_USER, number, 104), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(2));
    EXPECT_EQ(window->State(), PlayerState::Silent);
    EXPECT_EQ(window->FindWindow(PlayerWindowClass), handle);
    const FileDescriptor player(::accept(listener.get(), nullptr, nullptr));
    for (int number = 0; number < Messages; ++number) {
        PlayerRequest request;
        ASSERT_EQ(::recv(player.get(), &request, sizeof request, 0), ssize_t{sizeof request});
        EXPECT_EQ(request.wParam, number);
        const PlayerReply late{number};
        ::send(player.get(), &late, sizeof late, 0);
    }
    EXPECT_EQ(window->State(), PlayerState::Answers);
    std::thread answers([&] {
        PlayerRequest request;
        ::recv(player.get(), &request, sizeof request, 0);
        const PlayerReply reply{77};
        ::send(player.get(), &reply, sizeof reply, 0);
    });
    EXPECT_EQ(window->SendMessage(handle, WM_USER, 0, 104), 77) << "its own answer";
    answers.join();
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
    const std::string script = "\"pwd > out; ps -o sid= -p $$ >> out; set -- /proc/$$/fd/*; echo "
                               "$# >> out; echo $$ >> out; "
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
    EXPECT_FALSE(window->Start("/bin/true", runtime.folder.File("none")));
    EXPECT_TRUE(window->Start("/bin/true", "/")) << "it ran, and ended";
    EXPECT_TRUE(Eventually([&] { return window->State() == PlayerState::Gone; }));
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
