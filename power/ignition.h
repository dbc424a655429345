// The ignition: a line that pauses what plays, and after a delay turns the machine off.
#pragma once

#include "core/base.h"
#include "platform/input_line.h"
#include "power/line_filter.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vk {

/// A device that is missing or pulled out is looked for again, with growing pauses; meanwhile the
/// ignition is what it was.
class Ignition {
  public:
    struct Needs {
        Base& base;
        std::function<std::unique_ptr<InputLine>()> carrier; ///< by the name of a serial port
        std::function<std::unique_ptr<InputLine>()> gpio;    ///< empty where there are none
        std::function<void()> pause;                         ///< what plays, unless it is paused
        std::function<void()> goOn;                          ///< what is paused
        std::function<void()> shutDown;
    };
    explicit Ignition(Needs needs);

    /// Opens the line of the settings, which may have changed. The ignition counts as on from here,
    /// unless the line is low.
    void initAccSense();
    void Close();
    /// The two transitions.
    void AccOff();
    void AccOn();
    /// Asks for the machine's end when its delay is over, again while the ignition stays off and
    /// the machine stays on; called every 400 ms.
    void Supervise();

    bool Off() const { return AccOffTime.has_value(); }

  private:
    void OpenLine();
    bool Taken(const std::string& port);
    void Try();
    void LineChanged();
    void Changed(bool on);
    void PauseLatecomers();

    Needs n_;
    Base& base_;
    std::string AccPort; ///< as the settings name it
    std::string device_;
    std::unique_ptr<InputLine> line_; ///< null without one
    bool inverted_ = false;           ///< high is off
    LineFilter filter_;
    std::unique_ptr<Timer> retry_, latecomers_;
    int retryMs_ = 0;
    /// When it went off, by the steady clock: the time of day may jump.
    std::optional<std::int64_t> AccOffTime;
    std::int64_t dueMs_ = 0; ///< since then until the machine is asked to end; milliseconds
};

} // namespace vk
