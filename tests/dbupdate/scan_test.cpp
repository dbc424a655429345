#include "dbupdate/scan/scan.h"
#include "platform/folder_reader.h"
#include "tests/dbupdate/scan_fixture.h"

#include <sys/stat.h>

namespace vk::test {
namespace {

using std::filesystem::rename, std::filesystem::create_directory_symlink;
using testing::ElementsAre, testing::HasSubstr, testing::IsEmpty, testing::SizeIs;

struct ScanTest : ScanFixture {
    /// Gives the state that the scan ends in.
    int Scan() {
        states.clear();
        errors.clear();
        texts.clear();
        unhooked = 0;
        stop = false;
        RunScan(Request(), {log, [this](const ServerEvent& event) { Take(event); }, stop});
        return states.back();
    }
    template<class Matcher> void ScanFinds(const Matcher& rows, const char* when = "") {
        Scan();
        EXPECT_THAT(Paths(), rows) << when;
    }

    std::atomic<bool> stop = false;
};

TEST_F(ScanTest, CataloguesTheMediaFolder) {
    Tagged("Rock/b.mp3", "B");
    Tagged("Rock/Live/a.MP3", "A");
    for (const char* name :
         {"film.avi", "list.m3u", "cover.jpg", "07_X_-_Y.mp3", "._a.mp3", ".hidden/a.mp3",
          "$Recycle.Bin/a.mp3", "lost+found/a.mp3", "system volume information/a.mp3"})
        media.Write(name, "x");
    ScanFinds(
        ElementsAre("/07_X_-_Y.mp3", "/film.avi", "/list.m3u", "/Rock/b.mp3", "/Rock/Live/a.MP3"));
    EXPECT_THAT(Titles(), ElementsAre("Y", "film", "list", "B", "A"));
    EXPECT_THAT(First("SELECT Title FROM Media WHERE Artist='X'"), ElementsAre("Y"));
    EXPECT_THAT(states, ElementsAre(3, 1, 4));
    EXPECT_EQ(unhooked, 1);
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(texts.front() + texts.back(), "Getting File CountReady");
    EXPECT_THAT(texts, testing::Contains("0 reconciling db"));
}

TEST_F(ScanTest, ComparesDatesAndNothingElse) {
    for (const char* name : {"same.mp3", "newer.mp3", "gone.mp3"})
        Tagged(name, "Old");
    Scan();
    app.Write(WorkingCatalogueName, "of a killed scan");
    Scan();
    EXPECT_FALSE(FileExists(app.File(WorkingCatalogueName)));
    EXPECT_EQ(unhooked, 0) << "nothing has changed";
    EXPECT_THAT(states, ElementsAre(3, 4));
    Tagged("same.mp3", "New");
    Tagged("newer.mp3", "New", 1'000'000'001);
    Tagged("added.mp3", "New");
    DeleteFileAt(media.File("gone.mp3"));
    ScanFinds(ElementsAre("/added.mp3", "/newer.mp3", "/same.mp3"));
    EXPECT_EQ(unhooked, 1);
    EXPECT_THAT(texts, testing::Contains("1 reconciling db"));
    EXPECT_THAT(Titles(), ElementsAre("New", "New", "Old"));
}

TEST_F(ScanTest, AFolderThatDoesNotAnswerKeepsItsRows) {
    Albums(1, 3);
    Scan();
    const std::string away = media.Path() + ".away";
    const auto expectKept = [&](const char* why) {
        ScanFinds(SizeIs(3), why);
        EXPECT_THAT(errors, ElementsAre(HasSubstr(why)));
        EXPECT_EQ(states.back(), 4);
        EXPECT_EQ(unhooked, 0);
        std::filesystem::remove_all(media.Path());
    };
    rename(media.Path(), away);
    expectKept("cannot be read: No such file or directory");
    std::filesystem::create_directory(media.Path());
    std::filesystem::create_symlink("nowhere", media.File("lost+found"));
    expectKept("holds no media files");
    AppendToFile(media.Path(), "no folder");
    expectKept("cannot be read: Not a directory");
    rename(away, media.Path());
    At(ScanStep::Counting, [&] { rename(media.Path(), away); });
    expectKept("No such file");
    rename(away, media.Path());
    DeleteFileAt(media.File("0/1.mp3"));
    ScanFinds(SizeIs(2));
}

TEST_F(ScanTest, AFailureWithoutRowsDisablesTheCatalogue) {
    app.MakeFolder(std::string(WorkingCatalogueName) + "/in the way");
    Albums(1, 1);
    ScanFinds(IsEmpty());
    EXPECT_THAT(errors, SizeIs(1));
    EXPECT_EQ(states.back(), -1);
    for (const std::string& path : {app.File(WorkingCatalogueName), media.Path()})
        std::filesystem::remove_all(path);
    Scan();
    EXPECT_THAT(states, ElementsAre(3, -1));
    std::filesystem::create_directory(media.Path());
    EXPECT_EQ(Scan(), 4) << "an empty folder that never had files is in order";
}

TEST_F(ScanTest, ALinkToNowhereKeepsTheRowsBehindIt) {
    const TempFolder drive;
    drive.Write("Album/a.mp3", "x");
    std::filesystem::create_symlink(drive.Path(), media.File("drive"));
    std::filesystem::create_symlink(drive.File("Album/a.mp3"), media.File("one.mp3"));
    Tagged("gone.mp3", "Gone");
    Tagged("own.mp3", "Own");
    ScanFinds(SizeIs(4));
    rename(drive.Path(), drive.Path() + ".off");
    DeleteFileAt(media.File("gone.mp3"));
    ScanFinds(ElementsAre("/drive/Album/a.mp3", "/one.mp3", "/own.mp3"));
    rename(drive.Path() + ".off", drive.Path());
}

/// A folder on another volume than the one for temporary files.
struct OtherVolume {
    OtherVolume() {
        const auto volume = [](const char* at) { return FolderReader(at).Identity().volume; };
        for (const char* place : {"/dev/shm", "/tmp", "/var/tmp"})
            if (volume(place) != volume(std::filesystem::temp_directory_path().c_str()))
                path = place;
        path += "/vk-XXXXXX";
        EXPECT_TRUE(::mkdtemp(path.data()));
    }
    ~OtherVolume() { std::filesystem::remove_all(path); }
    std::string path;
};

TEST_F(ScanTest, AnUnpluggedDriveKeepsItsRows) {
    const OtherVolume stick;
    const std::string place = media.File("st'ick");
    const auto plug = [&] { create_directory_symlink(stick.path, place); };
    const auto unplug = [&] { std::filesystem::remove(place); };
    const auto write = [&](const std::string& name) { AppendToFile(stick.path + name, "x"); };
    write("/a.mp3");
    Tagged("own.mp3", "Own");
    plug();
    const auto both = ElementsAre("/own.mp3", "/st\"ick/a.mp3");
    ScanFinds(both);
    unplug();
    ScanFinds(both, "the mount point is not there");
    plug();
    for (const std::string folder : {"/1", "/2"}) {
        std::filesystem::create_directory(stick.path + folder);
        for (int file = 0; file < 600; ++file)
            write(folder + "/" + std::to_string(file) + ".mp3");
    }
    Scan();
    At(ScanStep::Counting, [&] { At(ScanStep::Counting, unplug); });
    Scan();
    ScanFinds(SizeIs(1202), "unplugged when its first folder had been walked over");
    for (const char* folder : {"/1", "/2"})
        std::filesystem::remove_all(stick.path + folder);
    plug();
    ScanFinds(both);
    unplug();
    Tagged("new.mp3", "New"); // so that something is written
    media.Write("st'ick/cover.jpg", "x");
    ScanFinds(SizeIs(3), "the mount point is empty");
    std::filesystem::remove_all(place);
    plug();
    DeleteFileAt(stick.path + "/a.mp3");
    ScanFinds(ElementsAre("/new.mp3", "/own.mp3"), "deleted on the drive itself");
    write("/b.mp3");
    Scan();
    unplug();
    Tagged("st'ick/c.mp3", "C");
    ScanFinds(ElementsAre("/new.mp3", "/own.mp3", "/st\"ick/c.mp3"), "an ordinary folder now");
}

TEST_F(ScanTest, LinksInACircleEnd) {
    Tagged("a/b/x.mp3", "X");
    create_directory_symlink(media.Path(), media.File("a/b/up"));
    create_directory_symlink("self", media.File("self"));
    create_directory_symlink(media.File("a"), media.File("0 before a"));
    ::mkfifo(media.File("pipe.mp3").c_str(), 0600);
    ScanFinds(ElementsAre("/a/b/x.mp3"), "under its own name, not the link's");
}

TEST_F(ScanTest, FilesThatChangeMeanwhileAreReadTheNextTime) {
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"})
        Tagged(name, "Old");
    At(ScanStep::Counted, [&] {
        Tagged("a.mp3", "Meanwhile", 1'000'000'001);
        DeleteFileAt(media.File("b.mp3"));
        Tagged("d.mp3", "Late");
    });
    EXPECT_EQ(Scan(), 4);
    Tagged("a.mp3", "Last", 1'000'000'002);
    ScanFinds(ElementsAre("/a.mp3", "/c.mp3", "/d.mp3"));
    EXPECT_THAT(Titles(), ElementsAre("Last", "Old", "Late"));
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(ScanTest, AStopLeavesTheCatalogueAsItWas) {
    Albums(1, 3);
    Scan();
    Albums(3, 100);
    for (const ScanStep step : {ScanStep::Counting, ScanStep::ToRead, ScanStep::Reconciling}) {
        At(step, [&] { stop = true; });
        EXPECT_EQ(Scan(), 4);
        const bool late = step == ScanStep::Reconciling; // it is carried through
        EXPECT_EQ(unhooked, late ? 1 : 0);
        EXPECT_THAT(Paths(), SizeIs(late ? 300 : 3));
        EXPECT_FALSE(FileExists(app.File(WorkingCatalogueName)));
    }
}

TEST_F(ScanTest, ADamagedCatalogueIsBuiltAnew) {
    Albums(20, 20);
    Scan();
    const std::string whole = app.Read(CatalogueFileName);
    db.Close();
    for (const std::string& torn :
         {whole.substr(0, 8192) + std::string(whole.size() - 8192, '\x55'), std::string("torn"),
          std::string()}) {
        app.Write(CatalogueFileName, torn);
        ScanFinds(SizeIs(400));
        EXPECT_THAT(errors, testing::Not(IsEmpty()));
        EXPECT_EQ(states.back(), 4);
    }
    for (const bool letter : {false, true}) {
        db.Close();
        DamageIndex(letter);
        Tagged("0/0.mp3", "New", 1'100'000'000 + letter);
        ScanFinds(SizeIs(400));
        EXPECT_THAT(errors, SizeIs(letter ? 0 : 1)) << "found as rows were written";
        EXPECT_THAT(First("SELECT Title FROM Media WHERE Artist='Artist'"), SizeIs(400));
    }
}

TEST_F(ScanTest, RowsOfAnotherFolderOrReadingAreNotComparedOrKept) {
    const OtherVolume stick;
    const TempFolder other;
    Albums(1, 3);
    create_directory_symlink(stick.path, media.File("stick"));
    AppendToFile(stick.path + "/a.mp3", "x");
    ScanFinds(SizeIs(4));
    other.Write("b.mp3", "x");
    settings.values.MediaDir = other.Path();
    ScanFinds(ElementsAre("/b.mp3"));
    settings.values.MediaDir = other.File("gone");
    EXPECT_EQ(Scan(), -1) << "none of its rows to be shown";
    settings.values.MediaDir = other.Path();
    extended = true;
    Scan();
    EXPECT_EQ(unhooked, 1) << "read anew";
    Scan();
    EXPECT_EQ(unhooked, 0);
}

TEST_F(ScanTest, NamesOfOneKeyDoNotWaver) {
    Tagged("a'b.mp3", "Apostrophe", 1'000'000'000);
    Tagged("a\"b.mp3", "Quote", 1'100'000'000);
    Tagged("Umlaut \xE4.mp3", "Latin");
    Tagged("line\nend.mp3", "Line");
    for (const int changed : {1, 0}) {
        Scan();
        EXPECT_THAT(Titles(), testing::UnorderedElementsAre("Apostrophe", "Latin", "Line"));
        EXPECT_EQ(unhooked, changed);
    }
}

TEST_F(ScanTest, AFullScanGivesBackUnusedSpace) {
    Albums(60, 20);
    Scan();
    const auto before = FileLength(app.File(CatalogueFileName));
    for (int folder = 1; folder < 60; ++folder)
        std::filesystem::remove_all(media.File(std::to_string(folder)));
    ScanFinds(SizeIs(20));
    EXPECT_LT(FileLength(app.File(CatalogueFileName)), before / 2);
}

} // namespace
} // namespace vk::test
