// A media folder of tagged files, an application directory with the empty template, and the
// catalogue, not opened yet.
#pragma once

#include "library/catalogue/mod_db.h"
#include "library/catalogue/schema.h"
#include "tests/library/tag_bytes.h"
#include "tests/support/core_test.h"

#include <utime.h>

namespace vk::test {

struct CatalogueFixture : CoreTest {
    CatalogueFixture() {
        extensions.AudioExtensionList = {"MP3"};
        extensions.VideoExtensionList = {"AVI"};
        settings.values.MediaDir = media.Path();
        MakeEmptyCatalogue(app.File(EmptyCatalogueName));
    }
    std::string Tagged(const std::string& name, const std::string& title,
                       std::time_t date = 1'000'000'000, const std::string& artist = "Artist",
                       const std::string& genre = "Pop") const {
        std::string path = media.File(name);
        std::filesystem::create_directories(FolderOf(path));
        DeleteFileAt(path);
        AppendToFile(path, ID3v2(3, TextFrame(3, "TIT2", title) + TextFrame(3, "TPE1", artist) +
                                        TextFrame(3, "TCON", genre)));
        const utimbuf times{date, date};
        EXPECT_EQ(::utime(path.c_str(), &times), 0);
        return path;
    }
    /// Spoils an index of the catalogue, or a letter in it alone; the table stays whole.
    void DamageIndex(bool letter = false) const {
        constexpr std::size_t Page = 4096;
        const std::string file = app.File(CatalogueFileName);
        Database database(file, Database::Mode::ReadOnly);
        Statement root(database, "SELECT rootpage FROM sqlite_master WHERE name='MediaArtist'");
        ASSERT_TRUE(root.Step());
        std::string bytes = app.Read(CatalogueFileName);
        const auto begin = static_cast<std::size_t>(root.Integer(0) - 1) * Page;
        if (letter)
            bytes.at(bytes.rfind("Artist", begin + Page - 1)) = 'B';
        else
            bytes.replace(begin, Page, Page, '\x55');
        app.Write(CatalogueFileName, bytes);
    }
    std::vector<std::string> First(const std::string& sql) {
        std::vector<std::string> cells;
        for (const CatalogueRecord& record : db.Records(sql))
            cells.push_back(record.front());
        return cells;
    }

    TempFolder media;
    MediaExtensions extensions;
    ID3 reader{{log, dialogs}, state.DecimalSymbol};
    modDB db{{state, extensions, settings, report, reader}};
};

} // namespace vk::test
