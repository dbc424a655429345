#include "input/remote/uuirt_receiver.h"

#include <atomic>
#include <cstring>
#include <utility>

namespace vk {

namespace {

const char* OpenErrorText(unsigned error) {
    switch (error) {
    case UUIRTDRV_ERR_NO_DLL:
        return "Unable to find USB-UIRT Driver. Please make sure driver is Installed!";
    case UUIRTDRV_ERR_NO_DEVICE:
        return "Unable to connect to USB-UIRT device!  Please ensure device is connected to the "
               "computer!";
    case UUIRTDRV_ERR_NO_RESP:
        return "Unable to communicate with USB-UIRT device!  Please check connections and try "
               "again.  If you still have problems, try unplugging and reconnecting your USB-UIRT. "
               " If problem persists, contact Technical Support!";
    case UUIRTDRV_ERR_VERSION:
        return "The firmware of the USB-UIRT device does not match its driver!  Please update "
               "both.  If problem persists, contact Technical Support!";
    default:
        return "Unable to initialize USB-UIRT (unknown error)!";
    }
}

std::string Version(std::uint32_t version) {
    return std::to_string(version >> 8 & 0xFF) + "." + std::to_string(version & 0xFF);
}

std::string Bit(std::uint32_t config, std::uint32_t bit) {
    return config & bit ? "1" : "0";
}

} // namespace

/// Where the driver's thread leaves codes. Constant once made but for `cleared`; `owner`, null when
/// it is gone, is used on the user-interface thread alone.
struct UuirtReceiver::Inbox {
    UiThread& ui;
    UuirtReceiver* owner;
    std::weak_ptr<Inbox> self = {};
    std::atomic<int> cleared = 0; ///< how often: codes from before do not count

    void Tell(const std::string& text) const {
        if (!owner) return;
        owner->link_.Works();
        if (owner->onCode) owner->onCode(text);
    }

    static void VK_UUIRT_CALL Receive(const char* code, void* userData) {
        if (!code || !userData) return;
        const auto& inbox = *static_cast<const Inbox*>(userData);
        const void* end = std::memchr(code, 0, MaxCode);
        const auto size =
            end ? static_cast<std::size_t>(static_cast<const char*>(end) - code) : MaxCode;
        inbox.ui.Post(
            [weak = inbox.self, text = std::string(code, size), cleared = inbox.cleared.load()] {
                const auto alive = weak.lock();
                if (alive && !text.empty() && cleared == alive->cleared) alive->Tell(text);
            });
    }
};

void UuirtReceiver::Opened::AskInfo(const UUIRTCalls& driver) {
    UUINFO info{};
    answered = driver.UUIRTGetUUIRTInfo(device, &info) != 0;
    if (!answered) return failures.push_back("*** ERROR Retrieving USB-UIRT Information! ***");
    lines.push_back("FirmwareVer=" + Version(info.fwVersion) +
                    " ProtVer=" + Version(info.protVersion) +
                    " FirmwareDate=" + std::to_string(info.fwDateMonth) + "/" +
                    std::to_string(info.fwDateDay) + "/" + std::to_string(info.fwDateYear + 2000));
}

void UuirtReceiver::Opened::AskConfig(const UUIRTCalls& driver) {
    std::uint32_t config = 0;
    if (!driver.UUIRTGetUUIRTConfig(device, &config))
        return failures.push_back("*** ERROR Retrieving USB-UIRT Configuration Info! ***");
    lines.push_back("Config = " + std::to_string(config) + " LED_RX=" +
                    Bit(config, UUIRTDRV_CFG_LEDRX) + " LED_TX=" + Bit(config, UUIRTDRV_CFG_LEDTX) +
                    " LEGACY_RX=" + Bit(config, UUIRTDRV_CFG_LEGACYRX));
}

UuirtReceiver::UuirtReceiver(Needs needs)
    : n_(std::move(needs)), inbox_(new Inbox{n_.ui, this}),
      probe_(n_.clock.MakeTimer([this] { Probe(); })),
      tell_(n_.clock.MakeTimer([this] { Tell(); })),
      link_(
          n_.clock, n_.log, "USB-UIRT", [this] { return Connect(); },
          [this] { return "USB-UIRT: " + failure_; }) {
    inbox_->self = inbox_;
}

UuirtReceiver::~UuirtReceiver() {
    CloseDevice();
    inbox_->owner = nullptr;
}

bool UuirtReceiver::Start() {
    starting_ = true;
    const bool started = link_.Start();
    starting_ = false;
    missed_ = !started;
    if (!untold_.empty()) tell_->Start(TellMs);
    return started;
}

void UuirtReceiver::Stop() {
    tell_->Stop();
    link_.Stop();
    CloseDevice();
}

void UuirtReceiver::Fail(const std::string& text) {
    failure_ = text;
    if (starting_) untold_.push_back(text);
}

// It waits until the start is over: the menu does not need this device.
void UuirtReceiver::Tell() {
    if (!n_.mayTell()) return;
    tell_->Stop();
    const auto texts = std::exchange(untold_, {});
    if (missed_ && link_.Connected()) return;
    for (const std::string& text : texts)
        n_.dialogs.ShowMessage(text, "ERROR", MessageKind::Critical);
}

void UuirtReceiver::Log(const std::string& text) {
    if (starting_) n_.log.WriteDebugLog(text);
}

bool UuirtReceiver::LoadDriver() {
    std::string reason;
    auto library = driver_ ? nullptr : n_.load(reason);
    if (library) driver_ = std::make_shared<const UUIRTCalls>(std::move(library));
    std::uint32_t version = 0;
    if (!driver_ || !driver_->UUIRTGetDrvInfo || !driver_->UUIRTGetDrvInfo(&version)) {
        if (!reason.empty()) Log("USB-UIRT driver: " + reason);
        Fail("Unable to retrieve uuirtdrv version!");
        return false;
    }
    if (version >= LeastDriver && driver_->Complete()) return true;
    Fail("Invalid uuirtdrv version!\nThis application requires USB-UIRT API driver DLL "
         "(UUIRTDRV.DLL) version 2.6.1 or later.");
    return false;
}

bool UuirtReceiver::Connect() {
    if (!opening_) {
        if (!LoadDriver()) return false;
        opening_.emplace([driver = driver_, inbox = inbox_] { return Open(*driver, *inbox); });
    }
    if (!opening_->Done(n_.patienceMs)) {
        Fail("The USB-UIRT driver does not answer!");
        return false;
    }
    const Opened opened = opening_->Take();
    opening_.reset();
    return TakeDevice(opened);
}

UuirtReceiver::Opened UuirtReceiver::Open(const UUIRTCalls& driver, Inbox& inbox) {
    Opened opened;
    opened.device = driver.UUIRTOpen();
    if (opened.device == UUIRTCalls::InvalidHandle()) {
        opened.failures.push_back(OpenErrorText(driver.library->LastError()));
        return opened;
    }
    opened.AskInfo(driver);
    opened.AskConfig(driver);
    if (driver.UUIRTSetReceiveCallback(opened.device, &Inbox::Receive, &inbox)) return opened;
    Close(driver, std::exchange(opened.device, UUIRTCalls::InvalidHandle()));
    opened.failures.push_back(OpenErrorText(0));
    return opened;
}

void UuirtReceiver::Close(const UUIRTCalls& driver, UUIRTCalls::Handle device) {
    if (device == UUIRTCalls::InvalidHandle()) return;
    driver.UUIRTSetReceiveCallback(device, nullptr, nullptr);
    driver.UUIRTClose(device);
}

bool UuirtReceiver::TakeDevice(const Opened& opened) {
    device_ = opened.device;
    answered_ = opened.answered;
    for (const std::string& line : opened.lines)
        Log(line);
    for (const std::string& failure : opened.failures)
        Fail(failure);
    if (device_ == UUIRTCalls::InvalidHandle()) return false;
    probe_->Start(ProbeMs);
    return true;
}

// A device whose information could be had once, and cannot any more, was pulled out. A call that
// hangs tells nothing yet.
void UuirtReceiver::Probe() {
    if (!probing_)
        probing_.emplace([driver = driver_, device = device_] {
            UUINFO info{};
            return driver->UUIRTGetUUIRTInfo(device, &info) != 0;
        });
    if (!probing_->Done(n_.patienceMs)) return;
    const bool answers = probing_->Take();
    probing_.reset();
    if (answers || !answered_) {
        answered_ = answers;
        return;
    }
    CloseDevice();
    link_.Lost();
}

// What is still being opened is closed as soon as it is open.
void UuirtReceiver::CloseDevice() {
    probe_->Stop();
    probing_.reset();
    if (opening_)
        std::thread([driver = driver_, inbox = inbox_, late = std::move(*opening_)]() mutable {
            Close(*driver, late.Take().device);
        }).detach();
    opening_.reset();
    if (device_ != UUIRTCalls::InvalidHandle())
        DriverCall<void>([driver = driver_, inbox = inbox_, device = device_] {
            Close(*driver, device);
        }).Done(n_.patienceMs);
    device_ = UUIRTCalls::InvalidHandle();
    ClearBuff();
}

void UuirtReceiver::ClearBuff() {
    ++inbox_->cleared;
}

} // namespace vk
