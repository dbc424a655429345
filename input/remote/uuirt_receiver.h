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

    struct Needs {
        /// Loads the driver library, or tells why it cannot.
        std::function<std::unique_ptr<LoadedLibrary>(std::string& reason)> load;
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
    /// What the driver gave and said while a device was opened.
    struct Opened {
        void AskInfo(const UUIRTCalls& driver);
        void AskConfig(const UUIRTCalls& driver);

        UUIRTCalls::Handle device = UUIRTCalls::InvalidHandle();
        bool answered = false; ///< it told about itself
        std::vector<std::string> failures, lines;
    };

    static Opened Open(const UUIRTCalls& driver, Inbox& inbox);
    static void Close(const UUIRTCalls& driver, UUIRTCalls::Handle device);
    bool LoadDriver();
    bool Connect();
    bool TakeDevice(const Opened& opened);
    void Probe();
    void CloseDevice();
    void Fail(const std::string& text);
    void Tell();
    void Log(const std::string& text);

    Needs n_;
    std::shared_ptr<const UUIRTCalls> driver_;
    std::optional<DriverCall<Opened>> opening_;
    std::optional<DriverCall<bool>> probing_;
    UUIRTCalls::Handle device_ = UUIRTCalls::InvalidHandle();
    std::shared_ptr<Inbox> inbox_; ///< of the driver, too, which may tell a code late
    bool answered_ = false;        ///< the device has told about itself
    bool starting_ = false;        ///< failures are shown, and what the device says is logged
    bool missed_ = false;          ///< the device was not there at the start
    std::string failure_;          ///< the last
    std::vector<std::string> untold_;
    std::unique_ptr<Timer> probe_, tell_;
    Reconnector link_;
};

} // namespace vk
