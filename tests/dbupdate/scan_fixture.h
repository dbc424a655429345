// A media folder, an application directory and the main program's side of the catalogue.
#pragma once

#include "library/catalogue/mod_db.h"
#include "library/catalogue/protocol.h"
#include "library/catalogue/schema.h"
#include "tests/library/tag_bytes.h"
#include "tests/support/core_fixture.h"

#include <gmock/gmock.h>
#include <utime.h>

#include <filesystem>

namespace vk::test {

class ScanFixture : public testing::Test, public CoreFixture {
  protected:
    ScanFixture() {
        state.AudioExtensionList = {"MP3"};
        state.VideoExtensionList = {"AVI"};
        settings.values.MediaDir = media.Path();
        MakeEmptyCatalogue(app.File(EmptyCatalogueName));
        db.InitDB(false);
    }

    std::string Tagged(const std::string& name, const std::string& title,
                       std::time_t date = 1'000'000'000) const {
        const std::string path = media.File(name);
        std::filesystem::create_directories(FolderOf(path));
        DeleteFileAt(path);
        AppendToFile(path, ID3v2(3, TextFrame(3, "TIT2", title) + TextFrame(3, "TPE1", "Artist")));
        const utimbuf times{date, date};
        ::utime(path.c_str(), &times);
        return path;
    }
    void Albums(int folders, int files) const {
        for (int folder = 0; folder < folders; ++folder)
            for (int file = 0; file < files; ++file)
                Tagged(std::to_string(folder) + "/" + std::to_string(file) + ".mp3",
                       "T" + std::to_string(file));
    }
    ScanRequest Request() const { return {true, app.Path(), media.Path(), "MP3", "AVI", "."}; }

    std::vector<std::string> First(const std::string& sql) {
        std::vector<std::string> cells;
        for (const CatalogueRecord& record : db.Records(sql))
            cells.push_back(record.front());
        return cells;
    }
    std::vector<std::string> Paths() { return First("SELECT Path FROM Media ORDER BY Path"); }
    std::vector<std::string> Titles() { return First("SELECT Title FROM Media ORDER BY Path"); }

    /// What the main program does on an event, and a record of it.
    void Take(const ServerEvent& event) {
        if (event.kind == ServerEvent::Kind::StatusChanged) {
            state.DBState = event.state;
            states.push_back(static_cast<int>(event.state));
        } else if (event.kind == ServerEvent::Kind::UnhookDB) {
            ++unhooked;
            db.UnhookDB();
        } else if (event.kind == ServerEvent::Kind::DBError) {
            errors.push_back(event.error.description);
        } else {
            texts.push_back(event.progress.text);
        }
    }
    void Forget() {
        states.clear();
        errors.clear();
        texts.clear();
        unhooked = 0;
    }

    TempFolder media;
    ID3 reader{{log, dialogs}, state.DecimalSymbol};
    modDB db{{state, settings, report, reader}};
    std::vector<int> states;
    std::vector<std::string> errors, texts;
    int unhooked = 0;
};

} // namespace vk::test
