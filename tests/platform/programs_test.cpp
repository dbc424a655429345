#include "platform/instance_lock.h"
#include "platform/own_process.h"
#include "platform/paths.h"
#include "platform/programs.h"
#include "platform/qt/qt_child_process.h"
#include "tests/platform/polled.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vk::test {
namespace {

struct ProgramsTest : testing::Test {
    static constexpr int PatienceMs = 20'000;
    ProgramId Shell(const std::string& script, bool background = false) {
        return programs->Start({.program = "/bin/sh",
                                .arguments = {"-c", script},
                                .folder = folder.Path(),
                                .background = background});
    }
    TempFolder folder;
    std::unique_ptr<Programs> programs = MakePrograms();
};

TEST_F(ProgramsTest, AProgramRunsUntilItIsAskedOrMadeToEnd) {
    const ProgramId polite = Shell("exec sleep 1000", true);
    const ProgramId rude = Shell("trap '' TERM; echo > ready; while :; do sleep 0.01; done");
    ASSERT_TRUE(Polled([&] { return FileExists(folder.File("ready")); }));
    EXPECT_TRUE(programs->Running(polite) && programs->Running(rude));
    EXPECT_FALSE(programs->Wait(polite, 0));
    EXPECT_EQ(::getpriority(PRIO_PROCESS, static_cast<id_t>(polite)), 19);
    programs->Close(polite);
    programs->Close(rude);
    EXPECT_TRUE(programs->Wait(polite, PatienceMs));
    EXPECT_FALSE(programs->Wait(rude, 20)) << "it does not listen";
    programs->Kill(rude);
    EXPECT_TRUE(programs->Wait(rude, PatienceMs));
    EXPECT_FALSE(programs->Running(rude));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "no zombie stays, asked about or not";
    programs->Kill(::getpid()); // was not started here
    EXPECT_EQ(programs->Start({.program = folder.File("none"), .folder = "/"}), 0);
}

TEST_F(ProgramsTest, ProcessesAreFoundByTheirFileNameAlone) {
    const long own = ::getpid();
    const std::string name = "vk-probe-" + std::to_string(own);
    std::filesystem::copy_file("/bin/sleep", folder.File(name));
    const ProgramId probe =
        programs->Start({.program = folder.File(name), .arguments = {"60"}, .folder = "/"});
    EXPECT_TRUE(programs->ProcessRunning(name + ".EXE", own));
    EXPECT_FALSE(programs->ProcessRunning(name, probe));
    EXPECT_FALSE(programs->ProcessRunning(FileNameOf(folder.Path()), 0)) << "folders do not count";
    programs->Kill(probe);
    EXPECT_TRUE(programs->Wait(probe, PatienceMs));
    EXPECT_FALSE(programs->ProcessRunning(name, own));
    EXPECT_GE(OwnProcessAgeMs(), 0);
    EXPECT_LT(OwnProcessAgeMs(), 120000) << "this test program has just been started";
}

TEST_F(ProgramsTest, OneSystemAnApplicationDirectory) {
    const auto first = MakeInstanceLock();
    EXPECT_TRUE(first->Claim(folder.Path()));
    EXPECT_TRUE(first->Claim(folder.Path())) << "the same one again";
    std::filesystem::create_directory_symlink(folder.Path(), folder.File("link"));
    auto second = MakeInstanceLock();
    EXPECT_FALSE(second->Claim(folder.File("link"))) << "another name, the same folder";
    EXPECT_TRUE(second->Claim(folder.MakeFolder("other")));
    EXPECT_FALSE(first->Claim(folder.File("other")));
    const ProgramId child = Shell("exec sleep 1000");
    second.reset();
    EXPECT_TRUE(first->Claim(folder.File("other"))) << "what was started has no part in it";
    programs->Kill(child);
}

struct ChildProcessTest : testing::Test {
    void Start(const std::string& script) {
        child->onOutput = [this](std::string_view bytes) { said += bytes; };
        child->onEnded = [this](int code) { codes.push_back(code); };
        child->Start("/bin/sh", {"-c", script});
    }
    std::unique_ptr<ChildProcess> child = std::make_unique<QtChildProcess>();
    std::string said;
    std::vector<int> codes;
};

TEST_F(ChildProcessTest, TalksUntilItsInputEnds) {
    Start("while read line; do echo \"<$line>\"; done; echo bye; exit 3");
    child->Write("one\ntwo\n");
    ASSERT_TRUE(Polled([&] { return said == "<one>\n<two>\n"; }));
    child->Write("three\n");
    child->CloseInput();
    ASSERT_TRUE(Polled([&] { return !codes.empty(); }));
    EXPECT_EQ(said, "<one>\n<two>\n<three>\nbye\n");
    EXPECT_EQ(codes, std::vector{3});
}

TEST_F(ChildProcessTest, IsEndedWithItsObjectAlsoFromItsOwnWords) {
    Start("trap '' TERM; echo $$; exec sleep 1000 <&-");
    child->onOutput = [this](std::string_view bytes) {
        said += bytes;
        if (said.ends_with('\n')) child.reset();
    };
    ASSERT_TRUE(Polled([&] { return !child; }));
    EXPECT_TRUE(Polled([&] { return ::kill(std::stoi(said), 0) != 0; })) << "nor a zombie";
    EXPECT_TRUE(codes.empty());
    child = std::make_unique<QtChildProcess>();
    child->onEnded = [this](int code) { codes.push_back(code); };
    child->Start("/no/such/program", {});
    EXPECT_TRUE(Polled([&] { return codes == std::vector{ChildProcess::NotStarted}; }));
}

} // namespace
} // namespace vk::test
