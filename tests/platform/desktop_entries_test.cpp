// Programs of the machine by their desktop entries.
#include "platform/linux/desktop_entries.h"
#include "platform/programs.h"
#include "tests/platform/polled.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <unistd.h>

namespace vk::test {
namespace {

TEST(DesktopEntries, AnExecLineLosesItsQuotesAndFieldCodes) {
    const std::pair<const char*, std::vector<std::string>> lines[] = {
        {"maps %U", {"maps"}},
        {"\"/opt/my maps/run\" --title \"a \\\"b\\\" $\" %f x%%y",
         {"/opt/my maps/run", "--title", "a \"b\" $", "x%y"}},
        {"maps --name=%c %i --file=%f \"\"", {"maps", "--name=Car Maps", "--file=", ""}},
        {"maps \"torn", {}},
        {"", {}},
        {"%U", {}}};
    for (const auto& [line, words] : lines)
        EXPECT_EQ(ExecWords(line, "Car Maps"), words) << line;
}

TEST(DesktopEntries, WhatIsHiddenTornOrMissingIsNotOffered) {
    TempFolder data;
    for (const char* name : {"bin/maps", "bin/tool"}) {
        data.Write(name, "#!/bin/sh\n");
        std::filesystem::permissions(data.File(name), std::filesystem::perms::owner_all);
    }
    data.Write("bin/text", "no program");
    const auto entry = [&](const std::string& name, const std::string& lines,
                           const std::string& folder = "user") {
        data.Write(folder + "/applications/" + name + ".desktop",
                   "#!x\n[Desktop Entry]\nType=Application\n" + lines);
    };
    entry("maps", "Name[de]=Karten\nName = Car Maps\r\nExec=maps -v %U\nIcon=maps\n"
                  "[Desktop Action New]\nExec=other\nName=Other\n");
    entry("sub/tool", "Name=Tool\nExec=" + data.File("bin/tool") + "\nTryExec=tool\n");
    entry("hidden", "Name=a\nExec=maps\nNoDisplay=true\n");
    entry("masked", "Hidden=true\n");
    entry("masked", "Name=b\nExec=maps\n", "system");
    entry("terminal", "Name=c\nExec=maps\nTerminal=true\n");
    entry("missing", "Name=d\nExec=none\n");
    entry("text", "Name=e\nExec=text\n");
    entry("tried", "Name=f\nExec=maps\nTryExec=none\n");
    entry("nameless", "Exec=maps\n");
    entry("torn", "Name=g\nExec=\"map");
    data.Write("user/applications/binary.desktop", std::string("\0\1[Desktop Entry", 16));
    data.Write("user/applications/huge.desktop", std::string(1 << 20, 'x'));
    data.Write("user/applications/link.desktop", "[Desktop Entry]\nType=Link\nName=h\nExec=maps\n");
    data.Write("system/icons/hicolor/48x48/apps/maps.png", "picture");
    const auto found = ReadDesktopEntries({data.File("user"), data.File("system"), "/no"},
                                          {"/no", data.File("bin")});
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].name, "Car Maps");
    EXPECT_EQ(found[0].program, data.File("bin/maps"));
    EXPECT_EQ(found[0].arguments, std::vector<std::string>{"-v"});
    EXPECT_EQ(found[0].icon, data.File("system/icons/hicolor/48x48/apps/maps.png"));
    EXPECT_EQ(found[1].name, "Tool");
}

TEST(ProgramFamily, WhatAScriptHasStartedIsItsOwnAlsoWhenItHasEnded) {
    TempFolder folder;
    const auto programs = MakePrograms();
    const ProgramId script = programs->Start({.program = "/bin/sh",
                                              .arguments = {"-c", "sleep 1000 & echo $! > child"},
                                              .folder = folder.Path()});
    const ProgramId other = programs->Start({"/bin/sleep", {"1000"}, folder.Path()});
    ASSERT_TRUE(programs->Wait(script, 20'000));
    const ProgramId child = std::atol(folder.Read("child").c_str());
    ASSERT_GT(child, 0);
    EXPECT_TRUE(programs->IsOf(child, script) && programs->AnyRunning(script));
    EXPECT_FALSE(programs->IsOf(other, script) || programs->IsOf(0, script));
    EXPECT_FALSE(programs->IsOf(::getpid(), ::getsid(0))) << "it was not started here";
    programs->KillAll(::getsid(0));
    programs->KillAll(script);
    EXPECT_TRUE(Polled([&] { return !programs->AnyRunning(script); }));
    EXPECT_TRUE(programs->Running(other));
    programs->KillAll(other);
    EXPECT_TRUE(programs->Wait(other, 20'000));
}

TEST(ProgramFamily, WhatACrashLeavesBehindIsKnownToTheNextProcess) {
    TempFolder folder;
    const auto start = [&](Programs& programs, const char* script, bool ours) {
        return programs.Start({.program = "/bin/sh",
                               .arguments = {"-c", script},
                               .folder = folder.Path(),
                               .ours = ours});
    };
    auto before = MakePrograms(folder.File("notes"));
    const ProgramId left = start(*before, "sleep 1000 & wait", true);
    const ProgramId other = start(*before, "exec sleep 1000", false);
    ASSERT_TRUE(before->Wait(start(*before, "exit", true), 20'000));
    before.reset();
    const std::string notes = folder.Read("notes");
    auto next = MakePrograms(folder.File("notes"));
    EXPECT_EQ(next->LeftBehind(), std::vector{left});
    EXPECT_TRUE(next->LeftBehind().empty()) << "it is known by now";
    next->Close(left);
    EXPECT_TRUE(Polled([&] { return !next->AnyRunning(left); })) << "with what it has started";
    EXPECT_EQ(::kill(static_cast<pid_t>(other), 0), 0);
    const std::string boot = notes.substr(0, notes.find('\n') + 1), number = std::to_string(other);
    for (const std::string& foreign :
         {boot + number + " 1\n", "boot\n" + notes, std::string("\0\1 9", 4), boot + "1 -"}) {
        folder.Write("notes", foreign);
        EXPECT_TRUE(MakePrograms(folder.File("notes"))->LeftBehind().empty()) << foreign;
        EXPECT_FALSE(FileExists(folder.File("notes")));
    }
    ::kill(static_cast<pid_t>(other), SIGKILL);
}

} // namespace
} // namespace vk::test
