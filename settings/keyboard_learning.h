// The page that gives keys to the actions, without its window.
#pragma once

#include "core/error_report.h"
#include "core/settings.h"
#include "input/key_map.h"
#include "platform/clock.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vk {

/// The name of a key, by its decimal virtual-key code: "A", "F5", "Pg Up", else "Key" and the code;
/// "No Key" for what is no number.
std::string KeyName(const std::string& code);

/// Arms an action and gives it the next key.
class KeyboardLearning {
  public:
    /// An action waits so long for its key; milliseconds.
    static constexpr int WaitMs = 10'000;

    struct Needs {
        SettingsStore& settings;
        ErrorReport& report;
        Clock& clock;
        KeyMap& keys; ///< the map in use, brought up to date by `Leave`
    };

    explicit KeyboardLearning(Needs needs);

    /// Reads the keys as they are in kb.ini.
    void Enter();
    /// A press on the action's button: its key is the next one. A second press cancels that.
    void Arm(Action action);
    bool Armed() const { return armed_.has_value(); }
    std::optional<Action> ArmedAction() const { return armed_; }
    /// The next key, when an action is armed; empty for one that has no code.
    void KeyDown(const std::string& code);
    /// Disarms; what was written counts from now on.
    void Leave();

    /// What the page says; empty at first.
    const std::string& Message() const { return message_; }
    /// Its status line.
    const std::string& Status() const { return status_; }
    const KeyMap& Keys() const { return keys_; }

    std::function<void()> onTimeOut; ///< no key came in time

  private:
    void Cancel();
    void Program(Action action, const std::string& code);
    bool Taken(Action action, const std::string& code) const;

    Needs n_;
    KeyMap keys_; ///< as in the file
    std::optional<Action> armed_;
    std::unique_ptr<Timer> limit_;
    std::string message_, status_;
};

} // namespace vk
