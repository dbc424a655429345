#include "core/file_registry.h"
#include "library/catalogue_server.h"
#include "platform/files.h"
#include "platform/linux/volumes.h"
#include "platform/qt/virtual_keys.h"
#include "platform/user_folders.h"
#include "tests/support/temp_folder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/cdrom.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <mutex>
#include <thread>

namespace vk {
namespace {

using testing::ElementsAre, testing::Pair;

struct FilesTest : testing::Test {
    /// The kernel's tables as files of the folder.
    LinuxVolumes::Sources From(OpticalCalls calls) const {
        return {folder.File("mounts"), folder.File("cdrom"), folder.File("block"),
                folder.File("labels"), std::move(calls),     std::chrono::minutes(1)};
    }
    test::TempFolder folder;
};

TEST_F(FilesTest, AReplaceIsWholeAndKeepsModeAndLinksAndWhenItFailsTheOldFile) {
    const std::string file = folder.Write("a.ini", "old");
    ::chmod(file.c_str(), 0600);
    ::symlink(file.c_str(), folder.File("link.ini").c_str());
    EXPECT_TRUE(ReplaceFile(folder.File("link.ini"), "new"));
    EXPECT_EQ(folder.Read("a.ini"), "new");
    struct stat info {};
    ::lstat(folder.File("link.ini").c_str(), &info);
    EXPECT_TRUE(S_ISLNK(info.st_mode));
    ::stat(file.c_str(), &info);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
    folder.MakeFolder("a.ini.new"); // the temporary name is taken by a folder
    EXPECT_FALSE(ReplaceFile(file, "x"));
    EXPECT_EQ(folder.Read("a.ini"), "new");
    std::string reason;
    EXPECT_FALSE(ReplaceFile(folder.File("none/a"), "x", &reason));
    EXPECT_FALSE(reason.empty());
}

TEST_F(FilesTest, StateGoesToTheUsersDataWhereTheProgramsFolderTakesNoFiles) {
    const std::string app = folder.MakeFolder("app"), data = folder.MakeFolder("data");
    folder.Write("app/settings.ini", "[main]\n");
    folder.Write("app/winamp", "");
    ::chmod(folder.File("app/settings.ini").c_str(), 0444);
    const auto never = [](const std::string&) { return false; };
    ::setenv("XDG_DATA_HOME", data.c_str(), 1);
    EXPECT_EQ(FindFolders(app).state, app);
    EXPECT_EQ(FindFolders(app, never).state, folder.File("data/velkorandum"));
    EXPECT_EQ(FindFolders(app, never).app, app);
    EXPECT_TRUE(ReplaceFile(folder.File("data/velkorandum/settings.ini"), "changed"));
    EXPECT_FALSE(FileExists(folder.File("data/velkorandum/winamp")));
    DeleteFileAt(folder.File("data/velkorandum/settings.ini"));
    EXPECT_TRUE(FindFolders(app, never).lasting);
    EXPECT_FALSE(FileExists(folder.File("data/velkorandum/settings.ini"))) << "copied once only";
    ::setenv("XDG_DATA_HOME", folder.Write("file", "").c_str(), 1); // no folder can be made there
    EXPECT_FALSE(FindFolders(app, never).lasting);
    ::unsetenv("XDG_DATA_HOME");
}

TEST_F(FilesTest, OnlyRegularFilesAreRead) {
    ::mkfifo(folder.File("pipe").c_str(), 0600);
    for (const std::string& path : {folder.File("pipe"), folder.Path(), folder.File("none")})
        EXPECT_FALSE(ReadWholeFile(path)) << path;
    folder.Write("long", std::string(100, 'x'));
    EXPECT_EQ(ReadWholeFile(folder.File("long"), 10)->size(), 10u);
    EXPECT_EQ(FileLength(folder.File("pipe")), 0u);
    EXPECT_EQ(FileLength(folder.File("long")), 100u);
    EXPECT_TRUE(FolderExists(folder.Path() + "/"));
    EXPECT_TRUE(FolderExists(""));
    EXPECT_FALSE(FileExists(folder.Path()));
}

TEST_F(FilesTest, ListsAFolder) {
    folder.Write("b/x", "");
    folder.Write("a", "12");
    ::symlink("/no/such", folder.File("broken").c_str());
    using Entry = std::tuple<std::string, bool, std::uint64_t>;
    std::vector<Entry> entries;
    for (const FolderEntry& entry : ListFolder(folder.Path()))
        entries.emplace_back(entry.name, entry.isFolder, entry.length);
    EXPECT_THAT(entries, testing::UnorderedElementsAre(Entry("a", false, 2), Entry("b", true, 0)));
    EXPECT_TRUE(ListFolder(folder.File("none")).empty());
}

TEST_F(FilesTest, DrivesComeFromTheKernelsTables) {
    folder.Write("mounts", "22 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
                           "23 22 0:5 / /proc rw - proc proc rw\n"
                           "24 22 8:17 / /media/my\\040stick rw shared:1 - vfat /dev/sdb1 rw\n"
                           "25 22 8:33 / /data rw - ext4 /dev/sdc1 rw\n"
                           "26 22 11:0 / /media/cd ro - iso9660 /dev/sr0 ro\n"
                           "27 22 8:1 /x /boot/efi rw - vfat /dev/sda2 rw\nnonsense\n");
    folder.Write("cdrom", "CD-ROM information\n\ndrive name:\t\tsr1\tsr0\ndrive speed:\t24\n");
    folder.Write("block/8:17/removable", "1\n");
    folder.Write("block/8:33/removable", "0\n");
    LinuxVolumes volumes(From(SystemOpticalCalls()));
    std::vector<std::pair<std::string, DriveType>> drives;
    for (const Drive& drive : volumes.Drives())
        drives.emplace_back(drive.root, drive.type);
    EXPECT_THAT(drives,
                ElementsAre(Pair("/dev/sr1", DriveType::CdRom), Pair("/media/cd", DriveType::CdRom),
                            Pair("/media/my stick", DriveType::Removable),
                            Pair("/data", DriveType::Fixed)));
    EXPECT_EQ(volumes.DriveOf("/media/my stick/a/b.mp3"), "/media/my stick");
    EXPECT_EQ(volumes.DriveOf("/data2/x"), "/");
    EXPECT_FALSE(volumes.IsReady("/dev/no-such-drive"));
    EXPECT_FALSE(volumes.Eject("/dev/no-such-drive"));
    EXPECT_TRUE(LinuxVolumes({"/none", "/none", "/none"}).Drives().empty());
    folder.Write("sdb1", "");
    folder.Write("mounts", "24 22 8:17 / /s rw - vfat " + folder.File("sdb1") + " rw\n");
    folder.MakeFolder("labels");
    std::filesystem::create_symlink(folder.File("sdb1"), folder.File("labels/My\\x20\\x232"));
    EXPECT_EQ(volumes.Label("/s"), "My #2");
}

/// A drive whose disc has these tracks, true for sound; none: it is empty.
OpticalCalls DriveWith(const std::vector<bool>& tracks) {
    const auto control = [tracks](int, unsigned long request, void* argument) {
        auto* header = static_cast<cdrom_tochdr*>(argument);
        auto* entry = static_cast<cdrom_tocentry*>(argument);
        if (request == CDROM_DRIVE_STATUS) return tracks.empty() ? CDS_TRAY_OPEN : CDS_DISC_OK;
        if (tracks.empty()) return -1;
        if (request == CDROMREADTOCHDR) *header = {1, static_cast<__u8>(tracks.size())};
        if (request == CDROMREADTOCENTRY) {
            const std::size_t at = std::min<std::size_t>(entry->cdte_track - 1u, tracks.size());
            entry->cdte_addr.lba = static_cast<int>(at) * 20000;
            entry->cdte_ctrl = at == tracks.size() || tracks[at] ? 0 : CDROM_DATA_TRACK;
        }
        return 0;
    };
    return {[](const std::string& device) {
                return device == "/dev/sr0" ? ::open("/dev/null", O_RDONLY) : -1;
            },
            control};
}

TEST_F(FilesTest, TheTracksOfAnAudioDiscComeFromItsTableOfContents) {
    folder.Write("cdrom", "drive name:\tsr0\n");
    folder.Write("mounts", "");
    const LinuxVolumes mixed(From(DriveWith({false, true, true}))), empty(From(DriveWith({}))),
        data(From(DriveWith({false}))), other(From(DriveWith({true, true})));
    EXPECT_THAT(mixed.AudioTracks("/dev/sr0"),
                ElementsAre("/dev/sr0/Track02.CDA", "/dev/sr0/Track03.CDA"));
    EXPECT_TRUE(mixed.IsReady("/dev/sr0"));
    EXPECT_EQ(mixed.Label("/dev/sr0"), "Audio CD");
    EXPECT_NE(mixed.Serial("/dev/sr0"), 0);
    EXPECT_NE(mixed.Serial("/dev/sr0"), other.Serial("/dev/sr0"));
    for (const LinuxVolumes* none : {&empty, &data}) {
        EXPECT_TRUE(none->AudioTracks("/dev/sr0").empty());
        EXPECT_EQ(none->Serial("/dev/sr0"), 0);
        EXPECT_EQ(none->Label("/dev/sr0"), "");
    }
    EXPECT_FALSE(empty.IsReady("/dev/sr0"));
    EXPECT_TRUE(mixed.AudioTracks(folder.Path()).empty());
    const auto last = [](const std::vector<bool>& disc) {
        const AudioTrack track = ReadAudioDisc(DriveWith(disc), "/dev/sr0").tracks.back();
        return std::vector{track.number, track.first, track.end};
    };
    EXPECT_THAT(last({false, true}), ElementsAre(2, 20000, 40000));
    EXPECT_THAT(last({true, false}), ElementsAre(1, 0, 8600)) << "what lies between two sessions";
    EXPECT_EQ(last(std::vector<bool>(99, true))[0], 99);
}

TEST_F(FilesTest, ADriveThatDoesNotAnswerIsNotWaitedForAndWhatItSaidLastHolds) {
    folder.Write("cdrom", "drive name:\tsr0\n");
    folder.Write("mounts", "");
    struct Slow {
        std::mutex busy;
        std::atomic<int> asked = 0;
    };
    const auto slow = std::make_shared<Slow>();
    LinuxVolumes::Sources from = From(DriveWith({true}));
    from.optical.control = [slow, drive = from.optical.control](int handle, auto request,
                                                                void* to) {
        ++slow->asked;
        const std::lock_guard wait(slow->busy);
        return drive(handle, request, to);
    };
    const LinuxVolumes patient(from);
    from.drivePatience = std::chrono::milliseconds(0);
    const LinuxVolumes hurried(from);
    EXPECT_TRUE(patient.IsReady("/dev/sr0"));
    {
        const std::lock_guard busy(slow->busy);
        EXPECT_FALSE(hurried.IsReady("/dev/sr0")) << "nothing is known yet";
        EXPECT_TRUE(hurried.AudioTracks("/dev/sr0").empty());
        while (slow->asked < 3)
            std::this_thread::yield();
        EXPECT_FALSE(hurried.IsReady("/dev/sr0"));
        EXPECT_EQ(slow->asked, 3) << "each question is asked once";
    }
    while (!hurried.IsReady("/dev/sr0") || hurried.AudioTracks("/dev/sr0").empty())
        std::this_thread::yield();
}

TEST_F(FilesTest, AMountIsReadyAsLongAsItsMediumIsThere) {
    const std::string stick = folder.MakeFolder("stick"), disc = folder.MakeFolder("disc");
    folder.Write("cdrom", "drive name:\tsr0\n");
    folder.Write("mounts", "24 22 8:17 / " + stick + " rw - vfat /dev/sdb1 rw\n26 22 11:0 / " +
                               disc + " ro - iso9660 /dev/sr0 ro\n");
    folder.MakeFolder("block/8:17");
    const LinuxVolumes full(From(DriveWith({false}))), empty(From(DriveWith({})));
    EXPECT_TRUE(full.IsReady(stick) && full.IsReady(disc));
    EXPECT_FALSE(empty.IsReady(disc)) << "the disc was pushed out, and nobody has unmounted it";
    std::filesystem::remove(folder.File("block/8:17"));
    EXPECT_FALSE(full.IsReady(stick)) << "nor a stick that was pulled";
    std::filesystem::remove(folder.File("block"));
    EXPECT_TRUE(full.IsReady(stick)) << "a machine that does not tell";
}

TEST_F(FilesTest, TheRegistryFileKeepsKeysAndValues) {
    FileRegistry registry(folder.File("registry.ini"));
    EXPECT_FALSE(CatalogueServerRegistered(registry));
    EXPECT_TRUE(RegisterCatalogueServer(registry, folder.File("server")));
    EXPECT_TRUE(CatalogueServerRegistered(registry));
    EXPECT_FALSE(registry.KeyExists("DB_UPDATE.clsDB", Hive::CurrentUser));
    EXPECT_EQ(CatalogueServerProgram(registry, folder.Path()), "") << "registered, but gone";
    folder.Write("server", "");
    EXPECT_EQ(CatalogueServerProgram(registry, folder.Path()), folder.File("server"));
    folder.Write("DB_UPDATE", "");
    EXPECT_EQ(CatalogueServerProgram(registry, folder.Path()), folder.File("DB_UPDATE"));
}

TEST(VirtualKeysTest, QtKeysHaveTheirWindowsCodes) {
    const std::tuple<int, Qt::KeyboardModifiers, const char*> cases[] = {
        {Qt::Key_Up, Qt::NoModifier, "38"},        {Qt::Key_Return, Qt::NoModifier, "13"},
        {Qt::Key_Enter, Qt::KeypadModifier, "13"}, {Qt::Key_P, Qt::ShiftModifier, "80"},
        {Qt::Key_F4, Qt::AltModifier, "%115"},     {Qt::Key_Plus, Qt::KeypadModifier, "107"},
        {Qt::Key_7, Qt::NoModifier, "55"},         {Qt::Key_Hyper_L, Qt::NoModifier, ""},
        {Qt::Key_Alt, Qt::AltModifier, "18"},      {Qt::Key_7, Qt::KeypadModifier, "103"}};
    for (const auto& [key, modifiers, text] : cases)
        EXPECT_EQ(VirtualKeyText(QKeyEvent(QEvent::KeyPress, key, modifiers)), text);
}

TEST(VirtualKeysTest, AnyLayoutHasItsLettersAndEveryKeyHasACode) {
    const std::tuple<int, quint32, const char*> cases[] = {
        {Qt::Key_A, 24, "65"},          // French: what is written on the key
        {Qt::Key_Ampersand, 10, "49"},  // French: the digit of that place
        {0x0413, 30, "85"},             // Russian, where U lies
        {Qt::Key_Period, 61, "191"},    // Russian, where / lies
        {Qt::Key_Less, 94, "226"},      // the key that ISO keyboards have more
        {Qt::Key_MediaNext, 24, "176"}, // a steering wheel's
        {Qt::Key_MediaRecord, 175, "431"},
        {0, 200, "456"}};
    for (const auto& [key, scanCode, text] : cases)
        EXPECT_EQ(VirtualKeyText({QEvent::KeyPress, key, Qt::NoModifier, scanCode, 0, 0}), text);
}

} // namespace
} // namespace vk
