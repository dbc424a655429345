// The USB-UIRT: an infra-red receiver with a driver library of its vendor.
#pragma once

#include "core/debug_log.h"
#include "input/remote/driver_call.h"
#include "input/remote/reconnector.h"
#include "input/remote/remote_receiver.h"
#include "input/remote/uuirt_calls.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/ui_thread.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vk {

class UuirtReceiver : public RemoteReceiver {
  public:
    /// The interface of driver 2.6.1, the oldest that works: 1.0, major number in the high byte.
    static constexpr std::uint32_t LeastDriver = 0x0100;
    /// The longest code text that is taken, in bytes; the rest is cut off.
    static constexpr std::size_t MaxCode = 16;
    /// The driver does not tell when its device goes, so it is asked, in milliseconds.
    static constexpr int ProbeMs = 5000;
    /// How often it is looked whether a message may be shown, in milliseconds.
    static constexpr int TellMs = 1000;

    /// Loads the driver library, or tells why it cannot.
    using Load = std::function<std::unique_ptr<LoadedLibrary>(std::string& reason)>;

    struct Needs {
        Load load; ///< called on a thread of its own: a disk may have to wake up for it
        Clock& clock;
        const DebugLog& log;
        Dialogs& dialogs;
        /// How long a call of the driver may hold the interface; a longer one goes on without it.
        int patienceMs = 100;
        /// A message would hold nothing back now: a screen is in front, and nothing runs.
        std::function<bool()> mayTell;
        UiThread& ui;
    };

    explicit UuirtReceiver(Needs needs);
    ~UuirtReceiver() override;
    /// What fails here is shown later, in boxes titled "ERROR", unless the device has come by then;
    /// later tries are silent.
    bool Start() override;
    void Stop() override;
    bool Ready() const override { return link_.Connected(); }
    void ClearBuff() override;

  private:
    struct Inbox;
    /// What the driver gave and said while it was loaded and a device opened.
    struct Opened {
        bool LoadDriver(const Load& load);
        void Open(Inbox& inbox);
        void AskInfo();
        void AskConfig();
        void Close();

        std::shared_ptr<const UUIRTCalls> driver; ///< null when there is none
        UUIRTCalls::Handle device = UUIRTCalls::InvalidHandle();
        bool answered = false; ///< it told about itself
        std::vector<std::string> failures, lines;
    };

    bool Connect();
    bool TakeDevice();
    void Probe();
    void CloseDevice();
    void Fail(const std::string& text);
    void Tell();
    void Log(const std::string& text);

    Needs n_;
    std::optional<DriverCall<Opened>> opening_;
    std::optional<DriverCall<bool>> probing_;
    Opened opened_;                ///< by the last try; the driver is kept
    std::shared_ptr<Inbox> inbox_; ///< of the driver, too, which may tell a code late
    bool starting_ = false;        ///< failures are shown, and what the device says is logged
    bool missed_ = false;          ///< the device was not there at the start
    std::string failure_;          ///< the last
    std::vector<std::string> untold_;
    std::unique_ptr<Timer> probe_, tell_;
    Reconnector link_;
};

} // namespace vk
