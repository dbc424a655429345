// The page that sets the receiver and learns the remote's codes, without its window.
#pragma once

#include "core/base.h"
#include "input/remote_map.h"
#include "platform/beeper.h"
#include "platform/serial_list.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vk {

/// The name of the button that learns the code of an action.
const char* RemoteButton(Action action);

/// Collects every code while the page is in front and gives the next one to the armed action.
class RemoteLearning {
  public:
    struct Needs {
        Base& base;
        Beeper& beeper;
        RemoteMap& codes;                 ///< the map in use, brought up to date by `Leave`
        std::function<bool()> initRemote; ///< opens the receiver of the settings; false: none
        std::function<bool()> ready;      ///< the receiver is there
        /// All codes are handed over unfiltered from now on, or not.
        std::function<void(bool)> collect;
        std::function<void(float)> setInterval; ///< seconds between the codes of a held button
        std::function<SerialList()> ports;
    };

    /// So many pauses are measured by `bFixRepeat`.
    static constexpr int MeasuredGaps = 4;

    /// An action waits so long for its code, and `bFixRepeat` for a held button; milliseconds.
    static constexpr int WaitMs = 10'000;
    static constexpr int MeasureMs = 5000;

    explicit RemoteLearning(Needs needs);

    void Enter();
    void Leave();
    /// A code of the remote, `held` when its button was not let go since the last: goes into the
    /// list, and to the armed action. True when it is neither learnt nor measured nor a repeat, so
    /// that it may work the page.
    bool Received(const std::string& code, bool held);

    /// A press on the action's button: its code is the next one. A second press cancels that.
    void Arm(Action action);
    std::optional<Action> ArmedAction() const { return armed_; }
    /// Asks, then forgets the codes of all actions.
    void ResetCodes();
    void ClearList();
    /// Measures the pause between the codes of the button that is held next, and makes the speed
    /// fit it.
    void FixRepeat();
    bool Measuring() const { return measured_ >= 0; }
    void Enable(bool on);
    /// Repeats begin at once, or after the delay.
    void UseRepeatDelay(bool on);
    /// Show the next or the previous one, round and round; nothing is opened yet.
    void StepType(int step);
    void StepPort(int step);
    /// Is the receiver that is shown the one in use?
    bool Chosen() const;
    /// Takes the one that is shown into use.
    void Choose();

    /// Why no code can be learnt now, "" when one can.
    std::string Obstacle() const;
    const std::string& Type() const { return shown_.type; } ///< in capitals
    std::string Port() const;                               ///< what the device calls itself
    const Settings& Values() const { return n_.base.settings.values; }
    const RemoteMap& Codes() const { return codes_; }
    const std::vector<std::string>& List() const { return list_; }
    int Selected() const { return static_cast<int>(list_.size()) - 1; }

    std::function<void()> onTimeOut; ///< what was waited for did not come in time

  private:
    void TimeOut();
    void Disarm();
    void Program(Action action, const std::string& code);
    void Measure(std::int64_t gapMs);
    void Add(const std::string& line);
    void Reopen();
    /// Type and port as they are in the settings, a number or a path.
    struct Receiver {
        std::string type, port;
        bool operator==(const Receiver&) const = default;
    };
    Receiver Stored() const;

    Needs n_;
    RemoteMap codes_; ///< as in the file
    std::optional<Action> armed_;
    std::vector<std::string> list_;
    Receiver shown_;
    std::vector<std::pair<std::string, std::string>> ports_; ///< as stored and as shown
    std::int64_t lastMs_ = 0;
    int measured_ = -1; ///< pauses measured so far; -1: none is to be
    std::int64_t measuredMs_ = 0;
    std::unique_ptr<Timer> limit_;
};

} // namespace vk
