// The desktop's files and its settings program, which is a script here.
#include "platform/linux/linux_desktop.h"
#include "platform/qt/qt_child_process.h"
#include "tests/platform/polled.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

namespace vk::test {
namespace {

struct LinuxDesktopTest : testing::Test {
    LinuxDesktopTest() {
        // The second schema is there; what is set stays.
        Script("gsettings", "cd \"$(dirname \"$0\")\"\n"
                            "[ \"$2\" = org.cinnamon.desktop.media-handling ] || exit 1\n"
                            "[ \"$1\" = set ] && { echo \"$2 $3 $4\" > \"$3\"; exit 0; }\n"
                            "cat automount-open autorun-never");
        folder.Write("automount-open", "schema automount-open true\n");
        folder.Write("autorun-never", "schema autorun-never true\n");
    }
    void Script(const std::string& name, const std::string& text) {
        folder.Write(name, "#!/bin/sh\n" + text + "\n");
        std::filesystem::permissions(folder.File(name), std::filesystem::perms::owner_all);
    }
    std::optional<std::int32_t> AutoPlay() {
        bool answered = false;
        std::optional<std::int32_t> value;
        desktop.AskAutoPlay([&](std::optional<std::int32_t> now) {
            answered = true;
            value = now;
        });
        EXPECT_TRUE(Polled([&] { return answered; }));
        return value;
    }

    TempFolder folder;
    std::unique_ptr<Programs> programs = MakePrograms();
    LinuxDesktop::Places places{.program = "/opt/a \"b\"/100%/velkorandum",
                                .configFolder = folder.File("config"),
                                .home = folder.Path(),
                                .gsettings = folder.File("gsettings"),
                                .opener = folder.File("none")};
    LinuxDesktop desktop{*programs, [] { return std::make_unique<QtChildProcess>(); }, places};
};

TEST_F(LinuxDesktopTest, StartsTheSystemAtLoginAndNoLonger) {
    EXPECT_FALSE(desktop.IsShell());
    EXPECT_TRUE(desktop.SetShell(true));
    EXPECT_TRUE(desktop.IsShell());
    EXPECT_NE(folder.Read("config/autostart/velkorandum.desktop")
                  .find("\nExec=\"/opt/a \\\"b\\\"/100%%/velkorandum\"\n"),
              std::string::npos);
    EXPECT_TRUE(desktop.SetShell(false));
    EXPECT_FALSE(desktop.IsShell());
    EXPECT_FALSE(desktop.OpenExplorer()) << "there is no program for it";
}

TEST_F(LinuxDesktopTest, KeepsRemovableMediaShutAndPutsEachKeyBack) {
    EXPECT_FALSE(desktop.SetAutoPlay(Desktop::NothingOpens)) << "nobody has looked who opens them";
    const auto before = AutoPlay();
    ASSERT_TRUE(before);
    EXPECT_NE(*before, Desktop::NothingOpens);
    EXPECT_NE(*before, Desktop::UsualOpens) << "one of the two is off";
    for (const std::int32_t value : {Desktop::NothingOpens, *before}) {
        EXPECT_TRUE(desktop.SetAutoPlay(value));
        EXPECT_TRUE(Polled([&] { return AutoPlay() == value; }));
    }
    EXPECT_NE(folder.Read("automount-open").find("automount-open true"), std::string::npos);
    std::filesystem::remove(folder.File("gsettings"));
    EXPECT_EQ(AutoPlay(), std::nullopt);
}

} // namespace
} // namespace vk::test
