// The browser on a real catalogue of files that exist.
#pragma once

#include "library/catalogue/file_row.h"
#include "library/catalogue/mod_db.h"
#include "library/catalogue/schema.h"
#include "library/queries/sql_text.h"
#include "library/tags/media_type.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "tests/browser/browser_fixture.h"

namespace vk::test {

/// One file as its row says; texts as they are shown. Without `exists` only the row is made.
struct Song {
    std::string path, artist, title, album = {}, genre = "Pop";
    std::uint16_t track = 0;
    int type = MediaAudio;
    std::string stamp = "2026-01-01 00:00:00";
    bool exists = true;
};

class DatabaseTest : public BrowserTest {
  protected:
    DatabaseTest() {
        core.settings.values.manualdb = true;
        core.settings.values.SearchesToSave = 5;
        core.settings.values.TopNewCount = 2;
        core.volumes.drives.clear();
        keys[Action::Search] = "70";
        MakeEmptyCatalogue(core.app.File(CatalogueFileName));
        db.InitDB(false);
        catalogue = &db;
    }
    void Add(const std::vector<Song>& songs) {
        Database database(core.app.File(CatalogueFileName), Database::Mode::ReadWrite);
        database.Execute("BEGIN");
        {
            RowWriter writer(database);
            for (const Song& song : songs)
                Put(writer, song);
        }
        database.Execute("COMMIT");
    }
    void Type(const std::string& text) {
        keyboard.SetValue(text);
        keyboard.KeyClick(KeyboardModel::OKKey);
    }
    /// Makes every later query fail.
    void BreakDatabase() { db.Close(); }

    modDB db{{core.state, extensions, core.settings, core.report, reader}};

  private:
    // Without a flush: there may be thousands.
    static void Touch(const std::string& path) {
        std::filesystem::create_directories(FolderOf(path));
        if (!FileExists(path)) AppendToFile(path, "x");
    }
    void Put(RowWriter& writer, const Song& song) {
        if (song.exists) Touch(media + song.path);
        FileRow row;
        row.Path = Escape(song.path);
        row.ParentDir = Escape(song.path.substr(0, song.path.rfind('/') + 1));
        row.TStamp = song.stamp;
        row.Title = Escape(song.title);
        row.Artist = Escape(song.artist);
        row.Album = Escape(song.album);
        row.Genre = Escape(song.genre);
        row.MediaType = song.type;
        row.Track = song.track;
        writer.Put(row);
    }
};

} // namespace vk::test
