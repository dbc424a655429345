#include "platform/qt/qt_serial_port.h"

#include <QSignalBlocker>

#include <filesystem>
#include <map>
#include <system_error>

namespace vk {

namespace {

// A call of the driver is some microseconds: even the shorter one takes less than 0.001 of a core.
constexpr int LinePollMs = 1000, LinePollAloneMs = 50;

void Apply(const SerialSettings& settings, QSerialPort& port) {
    static const std::map<char, QSerialPort::Parity> parities = {{'N', QSerialPort::NoParity},
                                                                 {'E', QSerialPort::EvenParity},
                                                                 {'O', QSerialPort::OddParity},
                                                                 {'M', QSerialPort::MarkParity},
                                                                 {'S', QSerialPort::SpaceParity}};
    port.setBaudRate(settings.baud);
    port.setParity(parities.at(settings.parity));
    port.setDataBits(static_cast<QSerialPort::DataBits>(settings.dataBits));
    port.setStopBits(settings.stopBits == 1     ? QSerialPort::OneStop
                     : settings.stopBits == 1.5 ? QSerialPort::OneAndHalfStop
                                                : QSerialPort::TwoStop);
}

} // namespace

QtSerialPort::QtSerialPort(SerialOwners& owners) : owners_(owners) {
    QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { Tell(comEvReceive); });
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                     [this](QSerialPort::SerialPortError error) { Failed(error); });
    QObject::connect(&linesTimer_, &QTimer::timeout, &linesTimer_, [this] { PollLines(); });
}

QtSerialPort::~QtSerialPort() {
    port_.disconnect();
    QtSerialPort::Close();
}

bool QtSerialPort::Open(const std::string& name, const std::string& settings,
                        const SerialUse& use) {
    Close();
    failure_.clear();
    const auto parsed = ParseSerialSettings(settings);
    if (!parsed || name.empty())
        return Fail("\"" + settings + "\" is no setting of \"" + name + "\"");
    std::error_code none;
    const auto device = std::filesystem::canonical(name, none); // links lead to one device
    const std::string id = none ? name : device.string();
    const std::string other = owners_.Take(id, use.owner);
    if (!other.empty()) return Fail(name + " is in use by " + other);
    owned_ = id;
    port_.setPortName(QString::fromStdString(name));
    Apply(*parsed, port_);
    if (!port_.open(QIODevice::ReadWrite)) return Fail(name + ": " + Reason(name));
    SetDTREnable(use.dtr);
    SetRTSEnable(use.rts);
    ShortenSerialLatency(std::intptr_t(port_.handle()));
    return true;
}

std::string QtSerialPort::Reason(const std::string& name) const {
    std::string known = WhyNotOpened(name);
    if (!known.empty()) return known;
    const bool locked = port_.error() == QSerialPort::PermissionError;
    return locked ? "another program has it" : port_.errorString().toStdString();
}

bool QtSerialPort::Fail(const std::string& why) {
    Close();
    failure_ = why;
    return false;
}

void QtSerialPort::Close() {
    linesTimer_.stop();
    lineWatch_.reset(); // before the number of the open file may be given to another
    if (port_.isOpen()) {
        const QSignalBlocker quiet(port_); // what fails now is no event
        port_.flush();                     // what was sent last may still wait for the event loop
        port_.close();
    }
    if (!owned_.empty()) owners_.Give(std::exchange(owned_, {}));
}

bool QtSerialPort::PortOpen() const {
    return port_.isOpen();
}

std::size_t QtSerialPort::InBufferCount() const {
    return port_.isOpen() ? static_cast<std::size_t>(port_.bytesAvailable()) : 0;
}

std::string QtSerialPort::Input() {
    return port_.isOpen() ? port_.readAll().toStdString() : std::string();
}

void QtSerialPort::ClearInput() {
    if (port_.isOpen()) port_.clear(QSerialPort::Input);
}

bool QtSerialPort::Output(std::string_view bytes) {
    const auto size = static_cast<qint64>(bytes.size());
    return port_.isOpen() && port_.write(bytes.data(), size) == size;
}

void QtSerialPort::SetDTREnable(bool on) {
    if (port_.isOpen()) port_.setDataTerminalReady(on);
}

void QtSerialPort::SetRTSEnable(bool on) {
    if (port_.isOpen()) port_.setRequestToSend(on);
}

QSerialPort::PinoutSignals QtSerialPort::Lines() const {
    return port_.isOpen() ? port_.pinoutSignals() : QSerialPort::NoSignal;
}

bool QtSerialPort::CDHolding() const {
    return Lines().testFlag(QSerialPort::DataCarrierDetectSignal);
}

bool QtSerialPort::CTSHolding() const {
    return Lines().testFlag(QSerialPort::ClearToSendSignal);
}

bool QtSerialPort::DSRHolding() const {
    return Lines().testFlag(QSerialPort::DataSetReadySignal);
}

void QtSerialPort::WatchModemLines(bool on) {
    lines_ = Lines();
    lineWatch_.reset();
    if (!on || !port_.isOpen()) return linesTimer_.stop();
    linesTimer_.start(LinePollMs);
    lineWatch_ = std::make_unique<LineWatch>([port = port_.handle()] { return WaitForLines(port); },
                                             [this] { uiThread_.Post([this] { PollLines(); }); },
                                             [this] { uiThread_.Post([this] { PollAlone(); }); });
}

void QtSerialPort::PollAlone() {
    if (linesTimer_.isActive()) linesTimer_.setInterval(LinePollAloneMs);
}

void QtSerialPort::PollLines() {
    if (!linesTimer_.isActive()) return; // asked for by a thread that has ended meanwhile
    const auto now = Lines();
    const auto changed = now ^ lines_;
    lines_ = now;
    if (changed.testFlag(QSerialPort::ClearToSendSignal)) Tell(comEvCTS);
    if (changed.testFlag(QSerialPort::DataSetReadySignal)) Tell(comEvDSR);
    if (changed.testFlag(QSerialPort::DataCarrierDetectSignal)) Tell(comEvCD);
}

// A device that was pulled out signals errors without end, so the port is closed at the first one.
// Lines that a port lacks, and failures to open, are no events.
void QtSerialPort::Failed(QSerialPort::SerialPortError error) {
    switch (error) {
    case QSerialPort::ReadError:
    case QSerialPort::ResourceError:
        if (!port_.isOpen()) return;
        Close();
        return Tell(comEventDCB);
    case QSerialPort::WriteError:
        return Tell(comEventTxFull);
    default:
        return;
    }
}

void QtSerialPort::Tell(int commEvent) {
    const auto tell = OnComm;
    if (tell) tell(commEvent);
}

} // namespace vk
