// The remote: one receiver by the settings, the filter for held buttons, and the one way on.
#pragma once

#include "core/base.h"
#include "input/remote/remote_receiver.h"
#include "input/remote/repeat_filter.h"
#include "platform/loaded_library.h"
#include "platform/local_stream.h"
#include "platform/serial_port.h"
#include "platform/ui_thread.h"
#include "platform/x10_remote.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// What makes the devices. `x10` may be empty: there is no driver then.
struct RemoteDevices {
    std::function<std::unique_ptr<SerialPort>()> serial;
    std::function<std::unique_ptr<LocalStream>()> stream;
    std::function<std::unique_ptr<X10Remote>()> x10;
    std::function<std::unique_ptr<LoadedLibrary>(std::string& reason)> uuirt;
    int uuirtPatienceMs = 100;   ///< how long its driver may hold the interface
    std::string lircSocket = {}; ///< for settings that name none; empty: the usual ones
};

/// Lives as long as the system; all on the user-interface thread.
class Remote {
  public:
    struct Needs {
        Base& base;
        UiThread& ui;
        RemoteDevices devices;
    };

    explicit Remote(Needs needs);
    ~Remote();

    /// Closes what is open and, when the remote is enabled, opens the receiver of the settings:
    /// keys status, type, comport (a number or a path) and lircsocket of section remote. False when
    /// there is none; one that is only unplugged is waited for.
    bool InitRemote();
    void CloseRemote();
    /// Drops codes that were received and not yet carried out.
    void ClearBuff();
    /// True while the receiver is there; false also when the remote is disabled.
    bool Ready() const { return receiver_ && receiver_->Ready(); }

    /// The text that goes into key learn when the system ends: the interval in milliseconds, four
    /// characters at most, or "0".
    std::string LearnText() const;

    /// Has the first look at each code, and whether its button is just held on; true when it used
    /// it. Empty: nobody has.
    std::function<bool(const std::string& code, bool repeat)> firstLook;

    /// Gets each code that is to be carried out, and whether its button is just held on. Its
    /// exceptions are logged.
    std::function<void(const std::string& code, bool repeat)> IRCommand;

    /// Gets each code that is dropped because its button is only held on.
    std::function<void(const std::string& code)> IRHeld;

    /// Not empty while the settings page collects codes: none is dropped then.
    std::string learn;
    float learnInterval = 0; ///< between codes of a held button, as measured there; seconds

  private:
    std::unique_ptr<RemoteReceiver> MakeReceiver(const std::string& type);
    std::unique_ptr<RemoteReceiver> MakeSerial(const std::string& type);
    std::unique_ptr<RemoteReceiver> MakeLirc();
    std::unique_ptr<RemoteReceiver> MakeUuirt();
    bool Idle() const;
    void Received(const std::string& code);
    Heard Filtered(const std::string& code);
    void RunCommand(const std::string& code, bool repeat);

    Needs n_;
    Base& base_;
    RepeatFilter filter_;
    float speedFactor_ = 1; ///< of the bound between repeats, by type
    int telling_ = 0;       ///< calls of `IRCommand` under way: a receiver is on the stack
    std::unique_ptr<RemoteReceiver> receiver_;
    std::vector<std::unique_ptr<RemoteReceiver>> retired_; ///< closed while they told a code
};

} // namespace vk
