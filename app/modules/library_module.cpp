#include "app/modules/library_module.h"

namespace vk {

CatalogueHooks LibraryModule::Hooks() {
    return {.reference = [this](const std::string& program) { ReferenceServer(program); },
            .open = [this] { updates.Open(); }};
}

CatalogueUpdates::Needs LibraryModule::UpdateNeeds() {
    return {.app = host_.state,
            .settings = host_.settings,
            .screens = host_.screens,
            .report = host_.report,
            .db = db,
            .scan =
                [this](const ScanRequest& request) {
                    if (server_) server_->Scan(request);
                },
            .stop =
                [this] {
                    if (server_) server_->Stop();
                },
            .progressShown =
                [this] {
                    if (onProgress) onProgress();
                }};
}

void LibraryModule::ReferenceServer(const std::string& program) {
    if (server_) return;
    server_ = std::make_unique<DB_OBJ>(
        program, DB_OBJ::Needs{host_.log, host_.ports.machine.clock, host_.ports.machine.child},
        updates.Events());
    host_.state.DBState = DBStateValue::Offline;
}

} // namespace vk
