// The search for the satellite receiver, port by port. It goes on by itself while events run.
#pragma once

#include "core/base.h"
#include "platform/serial_list.h"
#include "platform/serial_port.h"
#include "tuners/xm/frame_sender.h"
#include "tuners/xm/xm_page_texts.h"
#include "tuners/xm/xm_state.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vk {

/// `InitReceiver`: tries the saved port, else COM1 to COM15. A saved port that does not answer is
/// followed by all of them; one that cannot be opened by those from COM2 on.
class ReceiverSearch {
  public:
    /// All of it outlives this object.
    struct Needs {
        Base& base;
        SerialPort& port;
        FrameSender& sender;
        XMState& state;
        XMLinkState& link;
        XMPageTexts& page;
        std::function<SerialList()> ports;
        std::function<void()> clearQueues;
        std::function<void(bool found)> ended; ///< nothing of the search is on the stack
    };
    explicit ReceiverSearch(Needs needs);

    void InitReceiver();
    /// `abortSearch`: it ends at its next step, and tells so.
    void Abort() { abort_ = true; }
    bool Running() const { return step_ != Step::None; }
    /// The port that is tried has gone.
    void PortLost() { lost_ = true; }

  private:
    enum class Step { None, TryPort, Wait, Pause };

    void Run();
    void ChoosePort();
    void TryPort();
    bool Open();
    void NotOpened();
    void WaitForAnswer();
    void SendOpening();
    void TimedOut();
    void NextPort();
    void Found();
    void End(bool found);
    const ListedSerialPort& Listed() const;
    std::string Number() const { return std::to_string(n_.state.comPort); }
    std::string Named(const char* between) const;
    std::int64_t Now() const { return n_.base.clock.TickMs(); }

    Needs n_;
    std::unique_ptr<Timer> timer_;
    SerialList list_;
    Step step_ = Step::None;
    bool searching_ = false; ///< the ports are walked, rather than the saved one tried
    bool abort_ = false, lost_ = false;
    std::int64_t startMs_ = 0; ///< of the port's try, or of the pause
};

} // namespace vk
