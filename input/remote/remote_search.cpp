#include "input/remote/remote_search.h"

#include <algorithm>
#include <utility>

namespace vk {

RemoteSearch::RemoteSearch(Needs needs)
    : n_(std::move(needs)), uuirt_(n_.uuirt, n_.uuirtPatienceMs),
      look_(n_.clock.MakeTimer([this] { Look(); })) {}

void RemoteSearch::Start() {
    looks_ = 0;
    List();
    OpenListed();
    look_->Start(LookMs);
}

void RemoteSearch::Stop() {
    look_->Stop();
    probes_.clear();
    uuirt_.Stop();
}

// A USB-UIRT that came to nothing is not offered twice: it is there all the time.
void RemoteSearch::List() {
    list_ = n_.ports();
    std::erase_if(probes_, [this](const auto& probe) {
        return std::ranges::find(list_, probe->Path(), &ListedSerialPort::path) == list_.end();
    });
    if (!uuirtTold_ && uuirt_.Ask()) asked_ = looks_;
}

// What was not listed when the driver was asked waits until it is asked again.
void RemoteSearch::OpenListed() {
    if (uuirt_.Asking() && looks_ - asked_ < DriverLooks) return;
    for (const ListedSerialPort& port : list_)
        if (!port.name.empty() &&
            std::ranges::find(probes_, port.path, &PortProbe::Path) == probes_.end())
            probes_.push_back(std::make_unique<PortProbe>(n_.serial(), port.path, n_.clock));
}

void RemoteSearch::Look() {
    if (uuirt_.There()) {
        uuirtTold_ = true;
        return Tell({"USBUIRT", "", "USB-UIRT"});
    }
    if (++looks_ % ListEvery == 0) List();
    OpenListed();
    const auto heard =
        std::ranges::find_if(probes_, [](const auto& probe) { return !probe->Type().empty(); });
    if (heard == probes_.end()) return;
    const auto place = std::ranges::find(list_, (*heard)->Path(), &ListedSerialPort::path);
    Tell({(*heard)->Type(), SerialSetting(list_, static_cast<std::size_t>(place - list_.begin())),
          place->name});
}

void RemoteSearch::Tell(const Found& found) {
    Stop();
    if (onFound) onFound(found);
}

} // namespace vk
