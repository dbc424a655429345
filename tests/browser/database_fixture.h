// The browser on a real catalogue of files that exist.
#pragma once

#include "library/catalogue/file_row.h"
#include "library/catalogue/mod_db.h"
#include "library/catalogue/schema.h"
#include "library/queries/sql_text.h"
#include "library/tags/media_type.h"
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
        RowWriter writer(database);
        for (const Song& song : songs) {
            if (song.exists) Media(song.path);
            writer.Put({Escape(song.path), song.stamp, Escape(song.title), Escape(song.artist),
                        Escape(song.album), Escape(song.genre), song.type,
                        Escape(song.path.substr(0, song.path.rfind('/') + 1)), song.track});
        }
    }
    /// Makes every later query fail.
    void BreakDatabase() { db.Close(); }

    modDB db{{core.state, extensions, core.settings, core.report, reader}};
};

} // namespace vk::test
