// The carrier detect of a serial port as a line.
#pragma once

#include "platform/input_line.h"
#include "platform/serial_port.h"

#include <memory>

namespace vk {

class CarrierLine : public InputLine {
  public:
    explicit CarrierLine(std::unique_ptr<SerialPort> port) : comAccSense(std::move(port)) {
        comAccSense->OnComm = [this](int event) { OnComm(event); };
    }

    bool Open(const std::string& name) override {
        if (!comAccSense->Open(name, "9600,N,8,1", {.owner = "the ignition"})) return false;
        comAccSense->WatchModemLines(true);
        return true;
    }
    std::string Failure() const override { return comAccSense->Failure(); }
    void Close() override { comAccSense->Close(); }
    bool IsOpen() const override { return comAccSense->PortOpen(); }
    bool High() const override { return comAccSense->CDHolding(); }

  private:
    // No data is expected; what noise brings must not pile up.
    void OnComm(int event) {
        if (event == comEvReceive) comAccSense->ClearInput();
        if ((event == comEvCD || event == comEventDCB) && onChange) onChange();
    }

    std::unique_ptr<SerialPort> comAccSense;
};

} // namespace vk
