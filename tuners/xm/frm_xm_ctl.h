// The satellite receiver's control: its link over a serial port, and its power.
#pragma once

#include "tuners/xm/input_queue.h"
#include "tuners/xm/messages.h"
#include "tuners/xm/receiver_search.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vk {

/// The receiver's line of the sound card.
struct XMLine {
    std::function<void()> MuteLine, RestoreMuteState;
};

/// One a process. The link is closed, being searched for, on, or dead: a receiver that answers no
/// more leaves it dead until `PowerDown` and `Form_Load`; a port that is pulled out closes it.
class frmXMCtl {
  public:
    /// All of it outlives this object.
    struct Needs {
        Base& base;
        ChannelTable& channels;
        std::unique_ptr<SerialPort> port;
        std::function<SerialList()> ports;
        XMLine line;
        std::function<bool()> plays; ///< the receiver is what the player plays
    };
    explicit frmXMCtl(Needs needs);

    /// Reads what is known of the channels, and begins to look for the receiver. Comes back at
    /// once; nothing happens while the link is not closed.
    void Form_Load();
    void Form_Unload() { search_.Abort(); }
    /// Turns the receiver off, saves and closes the port. Waits for an answer under way, and then
    /// 2 seconds, by the pump.
    void PowerDown();
    /// Has the receiver be idle.
    void SetStandbyXM();
    /// Selects a channel. False, and nothing happens, without a signal and while a selection is
    /// unanswered.
    bool SetChannel(int channel);

    const XMState& State() const { return state_; }
    bool Searching() const { return search_.Running(); }
    bool On() const { return state_.receiverOn && !dead_; }
    bool Dead() const { return dead_; }
    /// It was told to be idle, and no channel has been selected since.
    bool Idle() const { return standby_; }

    XMListener listener;
    XMPageTexts page;
    std::function<void(bool found)> searchEnded; ///< may be empty

  private:
    Trace TraceOf() const;
    XMMessages::Needs MessageNeeds();
    ReceiverSearch::Needs SearchNeeds();
    void ReadSettings();
    void SearchEnded(bool found);
    void comCTL_OnComm(int event);
    void DecodeInputQueue();
    void LogOnce(const std::string& error);
    void tmrMain_Timer();
    bool Aborts();
    bool Stands() const;
    void Retry(bool first);
    void Poll();
    void StepTrackTime();
    void ResetLink(bool keepRunning);
    void QuitPlayer();
    void ForgetChannel();
    void Close();
    void Lost(const char* text);
    void SaveAtPowerDown();
    std::int64_t Now() const { return base_.clock.TickMs(); }
    bool Before(std::int64_t tick) const { return tick < Now(); }

    Needs n_;
    Base& base_;
    XMState state_;
    XMLinkState link_;
    SerialPort& comCTL_;
    InputQueue inputQueue_;
    FrameSender sender_;
    XMMessages messages_;
    ReceiverSearch search_;
    std::unique_ptr<Timer> tmrMain_;
    bool dead_ = false;     ///< the receiver has answered no more
    bool standby_ = false;  ///< it is idle, and to stay so
    bool ending_ = false;   ///< `PowerDown` is under way
    std::string lastError_; ///< noise makes the same one again and again
};

} // namespace vk
