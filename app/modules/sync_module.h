// The synchronisation and its page.
#pragma once

#include "app/modules/library_module.h"
#include "settings/sync_page.h"

#include <vector>

namespace vk {

/// A run goes on when its page is left.
class SyncModule : public Module {
  public:
    SyncModule(Host& host, LibraryModule& library)
        : Module(host.modules), host_(host), sync_(host.base, library.db) {}

    std::vector<Page> Pages() override { return {SyncPage(host_.base, sync_)}; }
    void Suspend() override { sync_.Abort(); }
    void Close(bool /*osShutdown*/) override { sync_.Abort(); }

  private:
    Host& host_;
    Synchronizer sync_;
};

} // namespace vk
