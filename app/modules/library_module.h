// The media library: tags, the catalogue and its server.
#pragma once

#include "app/host/host.h"
#include "library/browser_state.h"
#include "library/catalogue/updates.h"
#include "library/channels/channel_table.h"
#include "library/media_tags.h"
#include "library/tags/tag_reader.h"
#include "startup/astart.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

class LibraryModule : public Module {
  public:
    explicit LibraryModule(Host& host) : Module(host.modules), host_(host) {}

    void Supervise() override { updates.Supervise(); }
    void Release() override { server_.reset(); }
    CatalogueHooks Hooks();

  private:
    CatalogueUpdates::Needs UpdateNeeds();
    void ReferenceServer(const std::string& program);

    Host& host_;

  public:
    BrowserState browser;
    ChannelTable channels;
    MediaExtensions extensions;
    ID3 reader{TagPorts{host_.log, host_.dialogs}, host_.state.DecimalSymbol,
               host_.settings.values.ExtendedTags};
    modDB db{{host_.state, extensions, host_.settings, host_.report, reader}};
    CatalogueUpdates updates{UpdateNeeds()};
    MediaTags tags{extensions, reader, &db};
    std::function<void()> onProgress; ///< of the server; set by who shows it

  private:
    std::unique_ptr<DB_OBJ> server_;
};

} // namespace vk
