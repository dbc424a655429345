// Films: the movie player's screen.
#pragma once

#include "app/modules/navigation_module.h"
#include "app/modules/playback_module.h"
#include "video/screen/playmovie.h"

#include <memory>
#include <vector>

namespace vk {

class VideoModule : public Module {
  public:
    VideoModule(Host& host, LibraryModule& library, NavigationModule& navigation,
                PlaybackModule& playback)
        : Module(host.modules), host_(host), library_(library), navigation_(navigation),
          playback_(playback) {}

    std::vector<LoadStep> Steps() override;
    void Unload() override;
    void Supervise() override;
    void IgnitionOff() override;
    void IgnitionOn() override;
    void Suspend() override;
    void Resume() override;
    void SessionEnds() override { host_.LeaveScreen("playmovie"); }
    void Close(bool osShutdown) override;

  private:
    void Load();
    MoviePlayer::Needs Needs();

    Host& host_;
    LibraryModule& library_;
    NavigationModule& navigation_;
    PlaybackModule& playback_;
    std::unique_ptr<playmovie> screen_;
    bool closed_ = false;
    bool pausedByIgnition_ = false;
};

} // namespace vk
