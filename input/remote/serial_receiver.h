// Infra-red receivers on a serial port: a button is a burst of bytes.
#pragma once

#include "core/debug_log.h"
#include "input/remote/reconnector.h"
#include "input/remote/remote_receiver.h"
#include "platform/clock.h"
#include "platform/serial_port.h"

#include <memory>
#include <string>
#include <string_view>

namespace vk {

/// How one make of receiver is spoken to.
struct SerialReceiverModel {
    const char* settings = "9600,n,8,1";
    bool wakeUp = true; ///< asks for codes only after "I", "R"
    int quietMs = 4;    ///< silence that ends a burst, milliseconds
};

/// The model of a type of section remote: "CREATIVE", else that of an IRMan.
SerialReceiverModel ModelOfType(std::string_view type);

/// The bytes of a burst as decimal numbers without anything between: 12 34 is "1234".
std::string CodeText(std::string_view bytes);

/// Receivers do not frame their codes, and one code may arrive in several reads. So a code is what
/// comes until the line is silent for the time of one byte and 2 ms: longer than any pause within a
/// burst, far shorter than that between two bursts of a held button (about 100 ms).
class SerialReceiver : public RemoteReceiver {
  public:
    /// A longer burst is noise and gives no code. Real ones have about 6 bytes.
    static constexpr std::size_t MaxBurst = 64;
    /// The wake-up: the receiver feeds on the port's lines and needs time to come up; then "I",
    /// "R" in this pace, and its answer is left unread.
    static constexpr int PowerUpMs = 100;
    static constexpr int WakeUpPauseMs = 200;
    static constexpr int AnswerMs = 100;

    struct Needs {
        std::unique_ptr<SerialPort> port; ///< MSComm1
        std::string device;               ///< name of the port
        SerialReceiverModel model;
        Clock& clock;
        const DebugLog& log;
    };

    explicit SerialReceiver(Needs needs);
    bool Start() override;
    void Stop() override;
    bool Ready() const override { return link_.Connected(); }
    /// Also drops the rest of a burst that is under way.
    void ClearBuff() override;

  private:
    enum class Stage { Closed, PoweringUp, WakingUp, Answering, Listening };

    bool Open();
    void WakeUpStep();
    void MSComm1_OnComm(int commEvent);
    void Receive();
    void EndOfBurst();

    Needs n_;
    Stage stage_ = Stage::Closed;
    std::string irBuffer;
    bool skipBurst_ = false; ///< what comes until the next silence is no code
    std::unique_ptr<Timer> step_;
    std::unique_ptr<Timer> quiet_;
    Reconnector link_;
};

} // namespace vk
