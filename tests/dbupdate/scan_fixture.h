// A media folder, an application directory and the main program's side of the catalogue.
#pragma once

#include "library/catalogue/protocol.h"
#include "tests/library/catalogue_fixture.h"

namespace vk::test {

struct ScanFixture : CatalogueFixture {
    ScanFixture() { db.InitDB(false); }

    void Albums(int folders, int files) const {
        for (int folder = 0; folder < folders; ++folder)
            for (int file = 0; file < files; ++file)
                Tagged(std::to_string(folder) + "/" + std::to_string(file) + ".mp3",
                       "T" + std::to_string(file));
    }
    ScanRequest Request() const {
        return {true, app.Path(), settings.values.MediaDir, "MP3", "AVI", ".", extended};
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
            if (act && event.progress.step == actAt) std::exchange(act, {})();
        }
    }
    void At(ScanStep step, std::function<void()> action) {
        actAt = step;
        act = std::move(action);
    }

    std::vector<int> states;
    std::vector<std::string> errors, texts;
    int unhooked = 0;
    bool extended = false;
    ScanStep actAt = ScanStep::Ready;
    std::function<void()> act; ///< run once, at that step
};

} // namespace vk::test
