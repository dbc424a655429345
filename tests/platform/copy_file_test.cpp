#include "platform/copy_file.h"
#include "tests/support/temp_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace vk::test {
namespace {

struct CopyFileTest : testing::Test {
    CopyOutcome::Kind Copy(const std::string& name, std::uint64_t stopAt = ~0ull) {
        const auto outcome =
            CopyInPieces(folder.File(name), to, [&](std::uint64_t done, std::uint64_t of) {
                pieces.push_back(done);
                total = of;
                return done < stopAt;
            });
        EXPECT_EQ(outcome.reason.empty(), outcome.kind != CopyOutcome::Failed);
        EXPECT_FALSE(FileExists(to + ".part")) << "nothing half is left";
        return outcome.kind;
    }
    TempFolder folder;
    std::string to = folder.File("copy");
    std::vector<std::uint64_t> pieces;
    std::uint64_t total = 0;
};

TEST_F(CopyFileTest, ACopyComesWholeWithItsTimesAndCanBeWrittenTo) {
    const std::string text(5'000'000, 'x');
    const std::string from = folder.Write("long", text);
    const timespec times[2] = {{1'000'000'000, 7}, {1'100'000'000, 9}};
    ::utimensat(AT_FDCWD, from.c_str(), times, 0);
    ::chmod(from.c_str(), 0444);
    folder.Write("copy", "old");
    folder.Write("copy.part", "of a power cut");
    EXPECT_EQ(Copy("long"), CopyOutcome::Done);
    EXPECT_EQ(folder.Read("copy"), text);
    EXPECT_GT(pieces.size(), 3u);
    EXPECT_EQ(pieces.back(), text.size());
    EXPECT_EQ(total, text.size());
    struct stat info {};
    ::stat(to.c_str(), &info);
    EXPECT_EQ(info.st_mtim.tv_sec, 1'100'000'000);
    EXPECT_EQ(info.st_mtim.tv_nsec, 9);
    EXPECT_EQ(info.st_mode & 0777, 0644u);
}

TEST_F(CopyFileTest, WhatIsStoppedOrFailsLeavesTheOldOne) {
    folder.Write("copy", "old");
    folder.Write("long", std::string(5'000'000, 'x'));
    EXPECT_EQ(Copy("long", 2'000'000), CopyOutcome::Stopped);
    EXPECT_EQ(Copy("none"), CopyOutcome::Failed);
    folder.MakeFolder("folder");
    EXPECT_EQ(Copy("folder"), CopyOutcome::Failed);
    EXPECT_THROW(CopyInPieces(folder.File("long"), to,
                              [](auto, auto) -> bool { throw std::runtime_error("x"); }),
                 std::runtime_error);
    EXPECT_FALSE(FileExists(to + ".part"));
    EXPECT_EQ(folder.Read("copy"), "old");
    to = "/dev/full/none";
    EXPECT_EQ(Copy("long"), CopyOutcome::Failed);
}

TEST_F(CopyFileTest, TheRoomOfAVolumeIsThatOfTheFolderAbove) {
    const auto here = FreeSpace(folder.Path()), below = FreeSpace(folder.File("a/b/c"));
    ASSERT_TRUE(here && below);
    EXPECT_GT(*here, 0u);
    EXPECT_NEAR(static_cast<double>(*below), static_cast<double>(*here), 1e9);
    EXPECT_EQ(FreeSpace("/proc/none"), 0u) << "another volume";
}

} // namespace
} // namespace vk::test
