#include "power/ignition.h"

#include "core/text.h"
#include "platform/serial_port.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr int FirstRetryMs = 1000, LongestRetryMs = 60000;
constexpr int LatecomerMs = 50;
constexpr std::int64_t AgainMs = 60000; // after a shutdown that was refused

} // namespace

Ignition::Ignition(Needs needs)
    : n_(std::move(needs)), base_(n_.base), filter_(base_.clock, [this](bool on) { Changed(on); }),
      retry_(base_.clock.MakeTimer([this] { Try(); })),
      latecomers_(base_.clock.MakeTimer([this] { PauseLatecomers(); })) {}

void Ignition::initAccSense() {
    AccOn();
    Close();
    TrapAndLog(base_.report, "An error occured in astart.initAccSense ", [&] { OpenLine(); });
}

void Ignition::Close() {
    retry_->Stop();
    filter_.Stop();
    line_.reset();
}

void Ignition::OpenLine() {
    SettingsStore& settings = base_.settings;
    const std::string gpio = settings.Get(setting::accSenseLine);
    AccPort = gpio.empty() ? settings.Text(setting::accSensePort) : gpio;
    inverted_ = gpio.starts_with('!');
    device_ = gpio.empty() ? SerialPortName(AccPort) : gpio.substr(inverted_ ? 1 : 0);
    filter_.SetCrankMs(settings.Get(setting::accCrankFilter));
    if (!gpio.empty() && n_.gpio) line_ = n_.gpio();
    if (gpio.empty() && !device_.empty() && !Taken(device_)) line_ = n_.carrier();
    if (!line_) return;
    line_->onChange = [this] { LineChanged(); };
    retryMs_ = 0;
    Try();
}

// The satellite receiver and a serial remote keep their ports.
bool Ignition::Taken(const std::string& port) {
    const auto is = [&](const SettingRow& other) {
        return SerialPortName(base_.settings.Text(other)) == port;
    };
    const Settings& values = base_.settings.values;
    if (values.xmpcr_enabled && is(setting::port)) {
        base_.log.WriteDebugLog("Acc Sense port cannot be shared with XM tuner");
        return true;
    }
    const std::string type = ToUpper(base_.settings.Get(setting::remoteType));
    const bool serial = type == "IRMAN" || type == "CREATIVE";
    return values.remoteStatus && serial && is(setting::comport);
}

void Ignition::Try() {
    retry_->Stop();
    const bool first = retryMs_ == 0;
    if (line_->Open(device_)) {
        retryMs_ = 0;
        filter_.Begin(!Off());
        return LineChanged();
    }
    if (first)
        base_.log.WriteDebugLog("An error occured in astart.initAccSense " + line_->Failure());
    retryMs_ = std::clamp(2 * retryMs_, FirstRetryMs, LongestRetryMs);
    retry_->Start(retryMs_);
}

void Ignition::LineChanged() {
    if (line_->IsOpen()) return filter_.Changed(line_->High() != inverted_);
    filter_.Stop();
    base_.log.WriteDebugLog("The ignition's line " + AccPort + " has gone");
    retryMs_ = FirstRetryMs;
    retry_->Start(retryMs_);
}

void Ignition::Changed(bool on) {
    if (on) return AccOn();
    base_.log.WriteDebugLog("paused playback due to ACC low - COM" + AccPort);
    AccOff();
}

void Ignition::AccOff() {
    n_.pause();
    AccOffTime = base_.clock.TickMs();
    dueMs_ = std::int64_t{base_.settings.values.accOffDelay} * 1000;
    if (base_.commands.ListBusy()) latecomers_->Start(LatecomerMs);
}

// A list that was on its way when the ignition went off starts to play later.
void Ignition::PauseLatecomers() {
    if (!base_.commands.ListBusy()) latecomers_->Stop();
    n_.pause();
}

void Ignition::AccOn() {
    latecomers_->Stop();
    AccOffTime.reset();
    n_.goOn();
}

// A refusal may be a passing one, such as an update of the system, and the battery is the
// vehicle's.
void Ignition::Supervise() {
    if (!AccOffTime || base_.settings.values.accOffDelay <= 0) return;
    if (base_.clock.TickMs() - *AccOffTime < dueMs_) return;
    dueMs_ = base_.clock.TickMs() - *AccOffTime + AgainMs;
    base_.log.WriteDebugLog("acc timeout shutdown initiated");
    n_.shutDown();
}

} // namespace vk
