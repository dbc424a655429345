// The tuners: the FM radio and the satellite receiver, as sources of the player, and their page.
#pragma once

#include "app/modules/library_module.h"
#include "app/modules/playback_module.h"
#include "tuners/fm/fm_tuner.h"
#include "tuners/xm/frm_xm_ctl.h"

#include <functional>
#include <string>
#include <vector>

namespace vk {

class TunersModule : public Module {
  public:
    TunersModule(Host& host, LibraryModule& library, PlaybackModule& playback);
    ~TunersModule() override;

    std::vector<LoadStep> Steps() override;
    std::vector<Page> Pages() override;
    void Suspend() override;
    void Resume() override;
    void Close(bool osShutdown) override;
    /// Turns the receiver off before the system ends, and says so.
    void TurnOff(const std::function<void(const std::string&)>& say);

  private:
    frmXMCtl::Needs XMNeeds();
    bool SharesLine() const;
    std::vector<Option> CaptureOptions() const;
    bool Enabled() const { return host_.settings.values.xmpcr_enabled; }

    Host& host_;
    PlaybackModule& playback_;
    ChannelTable& channels_;
    FMTuner fm_;
    frmXMCtl xm_;
};

} // namespace vk
