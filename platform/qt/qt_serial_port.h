// Serial ports on QSerialPort.
#pragma once

#include "platform/linux/line_watch.h"
#include "platform/qt/qt_ui_thread.h"
#include "platform/serial_owners.h"
#include "platform/serial_port.h"

#include <QSerialPort>
#include <QTimer>

#include <memory>

namespace vk {

class QtSerialPort : public SerialPort {
  public:
    /// `owners` is one for all ports of the process.
    explicit QtSerialPort(SerialOwners& owners);
    ~QtSerialPort() override;
    bool Open(const std::string& name, const std::string& settings,
              const SerialUse& use = {}) override;
    std::string Failure() const override { return failure_; }
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
    void PollAlone();
    void Tell(int commEvent);
    QSerialPort::PinoutSignals Lines() const;

    bool Fail(const std::string& why);
    std::string Reason(const std::string& name) const;

    SerialOwners& owners_;
    std::string owned_; ///< the device that is ours
    std::string failure_;
    mutable QSerialPort port_; ///< asking for the lines is no const call there
    QTimer linesTimer_; ///< for drivers that cannot be waited for, and what fell between two waits
    QtUiThread uiThread_;
    std::unique_ptr<LineWatch> lineWatch_;
    QSerialPort::PinoutSignals lines_ = QSerialPort::NoSignal;
};

} // namespace vk
