// The satellite receiver as a source of the audio player.
#pragma once

#include "library/channels/xm_logo.h"
#include "playback/audio/tuner_source.h"
#include "tuners/xm/frm_xm_ctl.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// Its list are channels: those that the browser handed over, else all.
class XMSource : public TunerSource {
  public:
    /// Both outlive this object.
    XMSource(const SourceContext& context, frmXMCtl& xm, const ChannelTable& channels);
    ~XMSource() override;

    bool CanPlay() override;
    void Save() override;
    void runok() override;
    void MoveAhead() override { Skip(1); }
    void MoveBack() override { Skip(-1); }
    void DoFF() override {}
    void DoRW() override {}
    void DoPlay() override { runok(); }
    void DoPause() override {}
    void EverySecond() override { ShowTrackTime(); }
    void UpdateScreen() override;
    void ShowTrackTime() override;
    Favorite SelectedFavorite() override;
    NowPlaying Now() override;

  private:
    Waited Start() override;
    bool PowerDown() override;
    void LoadRows() override;
    bool Plays() const { return c_.audio.PlayMode == PlayXM; }
    bool Knows() const;
    void ShowSearch(std::string& shown);
    void ReadChannels();
    Track Row(int channel) const;
    int Wanted();
    void Want(int channel);
    void TryWanted();
    void Skip(int by);
    std::int32_t IndexOf(int channel) const;
    void UpdateChanInfo(int channel);
    void RemoveChannel(int channel);
    void SignalReport();
    void ShowCaption(const std::string& text);
    const XMChannel& Entry(int channel) const;

    frmXMCtl& xm_;
    const ChannelTable& table_;
    XMLogos logos_;
    std::vector<int> channels_; ///< of the list
    int wanted_ = 0;            ///< to be selected as soon as the receiver takes it
    int pictured_ = 0;          ///< the channel whose logo is shown
    bool noSignal_ = false;     ///< the caption says so
};

} // namespace vk
