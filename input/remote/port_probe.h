// What kind of receiver a remote has at a serial port, if any.
#pragma once

#include "platform/clock.h"
#include "platform/serial_port.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vk {

/// Takes the port, when nobody else has it, and by turns wakes an IRMan, which answers "OK", and
/// listens for the codes of a receiver that says nothing by itself.
class PortProbe {
  public:
    /// The answer comes within this time; far longer than it takes. Milliseconds.
    static constexpr int AnswerMs = 1000;
    /// So long codes are listened for before the next turn, from the last code on; milliseconds.
    static constexpr int ListenMs = 8000;
    /// A held button sends its code again sooner than this. What repeats itself more slowly is
    /// another device that reports something; milliseconds.
    static constexpr int AgainMs = 400;

    PortProbe(std::unique_ptr<SerialPort> port, std::string path, Clock& clock);

    const std::string& Path() const { return path_; }
    /// The receiver's type as section remote names it; "" as long as nothing was heard of one.
    const std::string& Type() const { return type_; }

  private:
    enum class Stage { PoweringUp, WakingUp, Answering, Listening };

    void Open(const char* type);
    void Enter(Stage stage, int milliseconds);
    void Step();
    void Hear();
    void EndOfBurst();

    std::unique_ptr<SerialPort> port_;
    std::string path_, type_;
    Clock& clock_;
    Stage stage_ = Stage::PoweringUp;
    std::string bytes_, last_; ///< of the burst under way; the one before
    std::int64_t lastMs_ = 0;
    std::unique_ptr<Timer> step_, quiet_;
};

} // namespace vk
