// What is known of the satellite receiver, and where its link stands.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

/// What others read of `frmXMCtl`. Times are milliseconds of the clock's ticks.
struct XMState {
    std::int16_t lastChannel = 0;    ///< the last one that the receiver confirmed
    std::int16_t currentChannel = 0; ///< the one that is tuned, 0: none
    std::int16_t previousChannel = 0;
    std::string currentArtist, currentTitle, currentChannelName;
    std::int32_t trackElapsed = 0, trackDuration = 0; ///< seconds of what plays
    std::int64_t trackTick = 0;                       ///< of the last step of `trackElapsed`
    bool receiverOn = false;                          ///< it has answered the power-on frame
    std::int16_t signalStatus = 0;                    ///< below 1: no signal
    std::int16_t antennaStatus = 0;                   ///< 0: the antenna is disconnected
    int signalPercent = 0;
    std::string receiverId;
    bool standbyPending = false; ///< it was told to be idle and has not answered yet
    std::int16_t comPort = 0;
    std::int16_t responseTimeout = 4000; ///< milliseconds
    std::int16_t commandInterval = 140;  ///< milliseconds
};

/// What the link keeps for itself.
struct XMLinkState {
    std::int16_t monitorActive = 0; ///< not 0: the receiver tells of the tuned channel by itself
    bool retrying = false;          ///< a timeout was answered with a retry
    bool scanning = false;
    bool directInfoPending = false;    ///< one channel was asked about, outside of the scan
    bool channelChangePending = false; ///< a selection is unanswered
    std::int64_t lastInfoPoll = 0, lastSignalPoll = 0, lastScanTick = 0;
    std::int64_t selectedAt = 0; ///< when the pending selection was asked for
};

} // namespace vk
