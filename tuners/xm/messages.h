// What the satellite receiver's answers mean.
#pragma once

#include "core/base.h"
#include "library/channels/channel_table.h"
#include "tuners/xm/frame_sender.h"
#include "tuners/xm/xm_state.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vk {

/// Who is told of what has changed. Each may be empty.
struct XMListener {
    /// A channel's entry is new; `shown` when what is told of it is to be shown at once.
    std::function<void(int channel, bool shown)> UpdateChanInfo = {};
    std::function<void(int channel)> RemoveChannel = {};
    std::function<void()> SignalReport = {};
};

class XMMessages {
  public:
    /// All of it outlives this object.
    struct Needs {
        Base& base;
        ChannelTable& channels;
        XMState& state;
        XMLinkState& link;
        FrameSender& sender;
        XMListener& listener;
        std::function<void(int)> setChannel;
        std::function<void()> restoreLine; ///< the sound card's line is as it was found
        std::function<void()> showId;      ///< the receiver's ID is known
    };
    explicit XMMessages(Needs needs) : n_(std::move(needs)) {}

    /// Acts on one answer; its first byte is its type. Throws what one that is too short does.
    void ProcessMessage(std::string_view payload);

  private:
    class Fields;
    struct Kind;
    static const Kind Kinds[];

    void PowerOn(const Fields& f);
    void PowerOff(const Fields& f);
    void Selected(const Fields& f);
    void TextReport(const Fields& f);
    void ChannelInfo(const Fields& f);
    void ReceiverId(const Fields& f);
    void Signal(const Fields& f);
    void Monitored(const Fields& f);
    void NameTold(const Fields& f);
    void CategoryTold(const Fields& f);
    void PlayingTold(const Fields& f);
    void LongArtistTold(const Fields& f);
    void LongTitleTold(const Fields& f);
    void TimeTold(const Fields& f);

    void StoreChannel(int channel, const Fields& f);
    void DropChannel(int channel);
    void NextOfScan(int channel);
    void EndScan();
    void MonitorTells(const Fields& f);
    void Told(std::string XMChannel::*field, const std::string& text);
    void Send(const std::string& frame, bool prepend) { n_.sender.SendBytes(frame, prepend); }
    void ShowChannel(int channel, bool shown);
    void LogTimes(const std::string& text);
    XMChannel& Channel(int number) {
        return n_.channels.channelTable.at(static_cast<std::size_t>(number));
    }
    const Settings& Options() const { return n_.base.settings.values; }

    Needs n_;
};

} // namespace vk
