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

bool UuirtReceiver::Opened::LoadDriver(const Load& load) {
    std::string reason;
    auto library = driver ? nullptr : load(reason);
    if (library) driver = std::make_shared<const UUIRTCalls>(std::move(library));
    std::uint32_t version = 0;
    if (!driver || !driver->UUIRTGetDrvInfo || !driver->UUIRTGetDrvInfo(&version)) {
        if (!reason.empty()) lines.push_back("USB-UIRT driver: " + reason);
        failures.emplace_back("Unable to retrieve uuirtdrv version!");
        return false;
    }
    if (version >= LeastDriver && driver->Complete()) return true;
    failures.emplace_back(
        "Invalid uuirtdrv version!\nThis application requires USB-UIRT API driver DLL "
        "(UUIRTDRV.DLL) version 2.6.1 or later.");
    return false;
}

void UuirtReceiver::Opened::Open(Inbox& inbox) {
    device = driver->UUIRTOpen();
    if (device == UUIRTCalls::InvalidHandle()) {
        failures.emplace_back(OpenErrorText(driver->library->LastError()));
        return;
    }
    AskInfo();
    AskConfig();
    if (driver->UUIRTSetReceiveCallback(device, &Inbox::Receive, &inbox)) return;
    Close();
    failures.emplace_back(OpenErrorText(0));
}

void UuirtReceiver::Opened::Close() {
    if (device == UUIRTCalls::InvalidHandle()) return;
    driver->UUIRTSetReceiveCallback(device, nullptr, nullptr);
    driver->UUIRTClose(std::exchange(device, UUIRTCalls::InvalidHandle()));
}

void UuirtReceiver::Opened::AskInfo() {
    UUINFO info{};
    answered = driver->UUIRTGetUUIRTInfo(device, &info) != 0;
    if (!answered) return failures.push_back("*** ERROR Retrieving USB-UIRT Information! ***");
    lines.push_back("FirmwareVer=" + Version(info.fwVersion) +
                    " ProtVer=" + Version(info.protVersion) +
                    " FirmwareDate=" + std::to_string(info.fwDateMonth) + "/" +
                    std::to_string(info.fwDateDay) + "/" + std::to_string(info.fwDateYear + 2000));
}

void UuirtReceiver::Opened::AskConfig() {
    std::uint32_t config = 0;
    if (!driver->UUIRTGetUUIRTConfig(device, &config))
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

bool UuirtReceiver::Connect() {
    if (!opening_)
        opening_.emplace([load = n_.load, driver = opened_.driver, inbox = inbox_] {
            Opened opened;
            opened.driver = driver;
            if (opened.LoadDriver(load)) opened.Open(*inbox);
            return opened;
        });
    if (!opening_->Done(n_.patienceMs)) {
        Fail("The USB-UIRT driver does not answer!");
        return false;
    }
    opened_ = opening_->Take();
    opening_.reset();
    return TakeDevice();
}

bool UuirtReceiver::TakeDevice() {
    for (const std::string& line : opened_.lines)
        Log(line);
    for (const std::string& failure : opened_.failures)
        Fail(failure);
    if (opened_.device == UUIRTCalls::InvalidHandle()) return false;
    probe_->Start(ProbeMs);
    return true;
}

// A device whose information could be had once, and cannot any more, was pulled out. A call that
// hangs tells nothing yet.
void UuirtReceiver::Probe() {
    if (!probing_)
        probing_.emplace([driver = opened_.driver, device = opened_.device] {
            UUINFO info{};
            return driver->UUIRTGetUUIRTInfo(device, &info) != 0;
        });
    if (!probing_->Done(n_.patienceMs)) return;
    const bool answers = probing_->Take();
    probing_.reset();
    if (answers || !opened_.answered) {
        opened_.answered = answers;
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
        std::thread([inbox = inbox_, late = std::move(*opening_)]() mutable {
            late.Take().Close();
        }).detach();
    opening_.reset();
    if (opened_.device != UUIRTCalls::InvalidHandle())
        DriverCall<void>([inbox = inbox_, open = opened_]() mutable {
            open.Close();
        }).Done(n_.patienceMs);
    opened_.device = UUIRTCalls::InvalidHandle();
    UuirtReceiver::ClearBuff();
}

void UuirtReceiver::ClearBuff() {
    ++inbox_->cleared;
}

} // namespace vk
