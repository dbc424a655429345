// Serial ports on QSerialPort.
#pragma once

#include "platform/serial_port.h"

#include <QSerialPort>
#include <QTimer>

namespace vk {

class QtSerialPort : public SerialPort {
  public:
    QtSerialPort();
    ~QtSerialPort() override;
    bool Open(const std::string& name, const std::string& settings) override;
    void Close() override;
    bool PortOpen() const override;
    std::size_t InBufferCount() const override;
    std::string Input() override;
    void ClearInput() override;
    bool Output(std::string_view bytes) override;
    void SetDTREnable(bool on) override;
    void SetRTSEnable(bool on) override;
    bool CDHolding() const override;
    bool CTSHolding() const override;
    bool DSRHolding() const override;
    void WatchModemLines(bool on) override;

  private:
    void Failed(QSerialPort::SerialPortError error);
    void PollLines();
    void Tell(int commEvent);
    QSerialPort::PinoutSignals Lines() const;

    mutable QSerialPort port_; ///< asking for the lines is no const call there
    QTimer linesTimer_;
    QSerialPort::PinoutSignals lines_ = QSerialPort::NoSignal;
};

} // namespace vk
