// A serial port without a device: opens as told, keeps what is sent, receives what a test hands it.
#pragma once

#include "platform/serial_port.h"

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vk::test {

class FakeSerialPort : public SerialPort {
  public:
    bool Open(const std::string& name, const std::string& settings,
              const SerialUse& use = {}) override {
        opened.push_back(name + " " + settings);
        open_ = present && !inUse.contains(name);
        dtr = use.dtr;
        rts = use.rts;
        return open_;
    }
    std::string Failure() const override { return open_ ? "" : "not there"; }
    void Close() override { open_ = false; }
    bool PortOpen() const override { return open_; }
    std::size_t InBufferCount() const override { return waiting_.size(); }
    std::string Input() override { return std::exchange(waiting_, {}); }
    void ClearInput() override { waiting_.clear(); }
    bool Output(std::string_view bytes) override {
        if (!open_) return false;
        sent += bytes;
        if (onOutput) onOutput(bytes);
        return true;
    }
    void SetDTREnable(bool on) override { dtr = on; }
    void SetRTSEnable(bool on) override { rts = on; }
    bool CDHolding() const override { return open_ && carrier; }
    bool CTSHolding() const override { return false; }
    bool DSRHolding() const override { return false; }
    void WatchModemLines(bool) override {}

    /// Bytes arrive from the device.
    void Receive(std::string_view bytes) {
        if (!open_) return;
        waiting_ += bytes;
        if (OnComm) OnComm(comEvReceive);
    }
    void SetCarrier(bool on) {
        carrier = on;
        if (open_ && OnComm) OnComm(comEvCD);
    }
    /// The device is pulled out.
    void Unplug() {
        present = open_ = false;
        if (OnComm) OnComm(comEventDCB);
    }

    bool present = true; ///< `Open` succeeds
    bool dtr = true, rts = true;
    std::set<std::string> inUse;     ///< names that cannot be opened
    std::vector<std::string> opened; ///< "name settings" of every try to open
    std::string sent;
    std::function<void(std::string_view)> onOutput; ///< what the device hears; it may answer
    bool carrier = true;                            ///< of the line

  private:
    bool open_ = false;
    std::string waiting_;
};

} // namespace vk::test
