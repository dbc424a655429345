// The media browser's screen.
#pragma once

#include "app/modules/hosting_module.h"
#include "browser/screen/playlists.h"

#include <memory>
#include <vector>

namespace vk {

class BrowserModule : public Module {
  public:
    BrowserModule(Host& host, LibraryModule& library, PlaybackModule& playback,
                  HostingModule& hosting)
        : Module(host.modules), host_(host), library_(library), playback_(playback),
          hosting_(hosting) {}

    std::vector<LoadStep> Steps() override;
    void Unload() override;
    void SessionEnds() override { host_.LeaveScreen(BrowserName); }
    void Close(bool osShutdown) override;

  private:
    void Load();
    BrowserNeeds Needs();

    Host& host_;
    LibraryModule& library_;
    PlaybackModule& playback_;
    HostingModule& hosting_;
    std::unique_ptr<playlists> screen_;
};

} // namespace vk
