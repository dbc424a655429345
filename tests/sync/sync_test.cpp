#include "core/text.h"
#include "platform/file_date.h"
#include "sync/synchronizer.h"
#include "tests/library/catalogue_fixture.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <optional>
#include <thread>

namespace vk::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre, testing::HasSubstr, testing::Not, testing::UnorderedElementsAre;

/// A source beside a media folder.
struct CopyTest : testing::Test {
    /// `written` in seconds since 1970.
    static void Date(const std::string& path, std::int64_t written) {
        const timespec times[2] = {{written, 0}, {written, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }
    SyncResult Run() { return FolderCopy(order, listener).CopyFiles(); }
    /// Every file below the destination, without the root.
    std::vector<std::string> Copies() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(dest.Path()))
            if (!entry.is_directory())
                names.push_back(entry.path().string().substr(dest.Path().size() + 1));
        return names;
    }
    std::string Log() const { return Join(lines, "\n"); }

    TempFolder source, dest;
    SyncOrder order{.source = source.Path(), .dest = dest.Path(), .backupName = "backup_x"};
    std::vector<std::string> lines, copied;
    std::function<bool(int, int)> progress = [](int, int) { return true; };
    SyncListener listener{[] { return true; }, [](const std::string&) {},
                          [this](const std::string& line) { lines.push_back(line); },
                          [this](const std::string& path) { copied.push_back(path); },
                          [this](int file, int whole) { return progress(file, whole); }};
};

TEST_F(CopyTest, WhatIsMissingIsCopiedAndWhatIsThereStays) {
    source.Write("new/a.mp3", "aaaa");
    Date(source.File("new/a.mp3"), 1'000'000'000);
    ::chmod(source.File("new/a.mp3").c_str(), 0444);
    source.Write("there.mp3", "newer and longer");
    dest.Write("there.mp3", "old");
    for (const char* left : {"Thumbs.db", "desktop.INI", "Recycler/x.mp3", "marked/x.mp3",
                             "marked/below/y.mp3", "marked/VK_do_not_copy.txt"})
        source.Write(left, "x");
    source.Write("vk_do_not_copying.mp3", "is no mark");
    source.MakeFolder("empty");
    fs::create_directory_symlink(source.Path(), source.File("new/loop"));
    ASSERT_EQ(::mkfifo(source.File("pipe.mp3").c_str(), 0600), 0);
    order.backup = true;
    const SyncResult result = Run();
    EXPECT_THAT(Copies(), UnorderedElementsAre("new/a.mp3", "there.mp3", "vk_do_not_copying.mp3"));
    EXPECT_EQ(dest.Read("there.mp3"), "old") << "compared with itself";
    EXPECT_TRUE(FolderExists(dest.File("empty")));
    EXPECT_EQ(FileDate(dest.File("new/a.mp3")), 1'000'000'000);
    EXPECT_EQ(fs::status(dest.File("new/a.mp3")).permissions() & fs::perms::owner_write,
              fs::perms::owner_write);
    EXPECT_EQ(std::tuple(result.end, result.filesChecked, result.filesCopied, result.filesBackedUp),
              std::tuple(SyncResult::Whole, 3, 2, 0));
    EXPECT_THAT(Log(), HasSubstr("copying: " + source.File("new/a.mp3") + "  to  " +
                                 dest.File("new/a.mp3")));
    EXPECT_THAT(Log(), HasSubstr("left out: " + source.File("new/loop")));
    EXPECT_THAT(Log(), HasSubstr("left out: " + source.File("marked/VK_do_not_copy.txt")));
}

TEST_F(CopyTest, ChangedFilesAreRefreshedWhereThatIsWanted) {
    constexpr std::int64_t Then = 1'000'000'000;
    const struct {
        const char *name, *from, *to;
        std::int64_t fromDate, toDate;
        bool copied;
    } cases[] = {{"same", "abc", "abc", Then, Then, false},
                 {"rounded", "abc", "xyz", Then + 2, Then, false},
                 {"newer", "abc", "xyz", Then + 3, Then, true},
                 {"longer", "abcd", "xyz", Then, Then, true},
                 {"edited there", "abcd", "xyz", Then, Then + 60, false},
                 {"summer time", "abc", "xyz", Then + 3601, Then, false},
                 {"an hour later", "abcd", "xyz", Then + 3601, Then, true}};
    for (const auto& each : cases) {
        Date(source.Write(each.name, each.from), each.fromDate);
        Date(dest.Write(each.name, each.to), each.toDate);
    }
    order.refresh = order.backup = true;
    EXPECT_EQ(Run().filesBackedUp, 3);
    for (const auto& each : cases) {
        EXPECT_EQ(dest.Read(each.name), each.copied ? each.from : each.to) << each.name;
        EXPECT_EQ(dest.Read(std::string("backup_x/") + each.name), each.copied ? each.to : "");
    }
    EXPECT_THAT(Log(), HasSubstr("archiving: " + dest.File("newer") + "  to  " +
                                 dest.File("backup_x/newer")));
    EXPECT_THAT(lines.front(), HasSubstr("changed"));
}

TEST_F(CopyTest, WhatChangesOrGoesMeanwhileIsToldAndTheOldOneStays) {
    const std::string grows = source.Write("grows.mp3", "new"), goes = source.Write("later", "x");
    Date(dest.Write("grows.mp3", "old"), 1000);
    const std::string longName = std::string(251, 'n') + ".mp3";
    AppendToFile(source.File(longName), "no room for an ending");
    order.refresh = order.backup = true;
    bool copying = false;
    listener.status = [&](const std::string& text) { copying = text.starts_with("Copying"); };
    progress = [&](int, int) {
        if (copying) AppendToFile(grows, "er"), DeleteFileAt(goes);
        return true;
    };
    const SyncResult result = Run();
    EXPECT_EQ(std::tuple(result.end, result.filesCopied, result.filesFailed, result.filesBackedUp),
              std::tuple(SyncResult::Whole, 1, 2, 0));
    EXPECT_EQ(result.failure, "it changes while it is copied");
    EXPECT_THAT(Copies(), UnorderedElementsAre("grows.mp3", longName));
    EXPECT_EQ(dest.Read("grows.mp3"), "old");
    EXPECT_THAT(Log(), HasSubstr("put back: " + dest.File("grows.mp3")));
    EXPECT_THAT(Log(), HasSubstr("not copied: " + goes));
}

TEST_F(CopyTest, ADestinationWithoutRoomEndsTheRun) {
    source.Write("a.mp3", "x");
    order.dest = "/proc";
    EXPECT_EQ(Run().end, SyncResult::NoSpace);
    EXPECT_EQ(lines.back(), "sync aborted due to insufficient disk space");
}

TEST_F(CopyTest, OneFailureDoesNotEndTheRun) {
    source.Write("a/song.mp3", "x");
    source.Write("b.mp3", std::string(3 << 20, 'b'));
    dest.Write("a", "a file in the way");
    const SyncResult result = Run();
    EXPECT_EQ(std::tuple(result.end, result.filesCopied, result.filesFailed),
              std::tuple(SyncResult::Whole, 1, 1));
    EXPECT_THAT(Log(), HasSubstr("not copied: " + source.File("a/song.mp3")));
    EXPECT_THAT(copied, ElementsAre(dest.File("b.mp3")));
}

TEST_F(CopyTest, AnAbortInTheMiddleOfAFileLeavesNoHalfOne) {
    source.Write("b.mp3", std::string(3 << 20, 'b'));
    progress = [](int file, int) { return file < 30; };
    EXPECT_EQ(Run().end, SyncResult::Aborted);
    EXPECT_TRUE(Copies().empty());
}

TEST_F(CopyTest, AFolderThatGoesEndsTheRunAndIsNotMadeAnew) {
    for (const char* name : {"1/a.mp3", "2/b.mp3", "3/c.mp3"})
        source.Write(name, "x");
    const auto goneAfterFirst = [&](const std::string& root) {
        listener.copied = [root](const std::string&) { fs::rename(root, root + ".gone"); };
        const SyncResult result = Run();
        EXPECT_EQ(result.filesCopied, 1);
        fs::remove_all(root);
        fs::rename(root + ".gone", root);
        return result.end;
    };
    EXPECT_EQ(goneAfterFirst(dest.Path()), SyncResult::DestGone);
    fs::remove_all(dest.File("1"));
    EXPECT_EQ(goneAfterFirst(source.Path()), SyncResult::SourceGone);
}

TEST_F(CopyTest, ADestinationWithinTheSourceIsNotCopiedIntoItself) {
    order.dest = source.MakeFolder("media");
    source.Write("a.mp3", "x");
    EXPECT_EQ(Run().filesCopied, 1);
    EXPECT_TRUE(FileExists(source.File("media/a.mp3")));
    EXPECT_FALSE(FolderExists(source.File("media/media")));
}

struct SynchronizerTest : CatalogueFixture {
    SynchronizerTest() {
        volumes.ready = {"/"};
        db.InitDB(false);
        settings.Write({{setting::SyncSource, source.Path()},
                        {setting::SyncDest, media.Path()},
                        {setting::MediaDir, media.Path()}});
    }
    void RunToEnd() {
        while (sync->Running()) {
            clock.Advance(50);
            std::this_thread::yield();
        }
    }
    /// Of all days that passed on the clock.
    std::string Log() const {
        std::string text;
        for (const FolderEntry& entry : ListFolder(app.Path()))
            if (entry.name.starts_with("vk_sync_")) text += app.Read(entry.name);
        return text;
    }

    TempFolder source;
    Base base{state,    settings, log,     report, clock,  pump,
              commands, screens,  dialogs, window, locale, volumes};
    std::optional<Synchronizer> sync{std::in_place, base, db};
};

TEST_F(SynchronizerTest, WhatWasCopiedIsCatalogued) {
    for (int i = 0; i < 12; ++i)
        fs::copy_file(Tagged("x.mp3", "Title " + std::to_string(i)),
                      source.File(std::to_string(i) + ".mp3"));
    fs::remove(media.File("x.mp3"));
    source.Write("taken/x.mp3", "x");
    media.Write("taken", "a file in the way");
    sync->cmdSync_Click();
    EXPECT_STREQ(sync->Caption(), "Abort");
    RunToEnd();
    EXPECT_STREQ(sync->Caption(), "Synchronize Now");
    EXPECT_EQ(sync->Status(), "Files checked: 13  Copied: 12   Made backup: 0   Failed: 1 "
                              "(Not a directory)");
    EXPECT_THAT(First("SELECT COUNT(*) FROM Media WHERE Title LIKE 'Title %'"), ElementsAre("12"));
    EXPECT_THAT(Log(), HasSubstr(" - copying: " + source.File("11.mp3")));
}

TEST_F(SynchronizerTest, TheSameButtonAborts) {
    source.Write("big.mp3", std::string(16 << 20, 'x'));
    sync->cmdSync_Click();
    sync->cmdSync_Click();
    RunToEnd();
    EXPECT_THAT(Log(), HasSubstr(", aborted"));
    EXPECT_TRUE(fs::is_empty(media.Path()));
}

TEST_F(SynchronizerTest, AStickThatWasPulledIsCalledByItsName) {
    struct Pulled : FakeVolumes {
        std::string DriveOf(const std::string& path) const override {
            return path == stick && fs::remove_all(path) > 0 ? stick : "/";
        }
        std::string stick;
    } pulled;
    pulled.ready = {"/"};
    pulled.stick = media.Path();
    Base there{state,    settings, log,     report, clock,  pump,
               commands, screens,  dialogs, window, locale, pulled};
    sync.emplace(there, db);
    source.Write("a.mp3", "x");
    sync->cmdSync_Click();
    RunToEnd();
    EXPECT_EQ(sync->Status(), "Drive " + pulled.stick + "not available");
    sync.reset();
}

TEST_F(SynchronizerTest, WhatCannotBeCopiedFromOrToIsTold) {
    settings.Set(setting::SyncDest, media.File("none"));
    sync->cmdSync_Click();
    EXPECT_THAT(dialogs.shown, ElementsAre(HasSubstr("Not a valid directory!")));
    volumes.ready.clear();
    sync->cmdSync_Click();
    EXPECT_EQ(sync->Status(), "Drive /not available");
    EXPECT_FALSE(sync->Running());
}

} // namespace
} // namespace vk::test
