// Serial ports: the infra-red receivers, the satellite receiver and the ignition line hang on them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vk {

/// What `SerialPort::OnComm` tells. Below 1000 events, from there on errors; the numbers are those
/// of the serial control whose events and errors the log quotes.
enum CommEvent : int {
    comEvReceive = 2,     ///< bytes are in the input buffer
    comEvCTS = 3,         ///< clear-to-send changed
    comEvDSR = 4,         ///< data-set-ready changed
    comEvCD = 5,          ///< carrier-detect changed
    comEventBreak = 1001, ///< a break signal
    comEventFrame = 1004, ///< a framing error
    comEventOverrun = 1006,
    comEventRxParity = 1009,
    comEventTxFull = 1010, ///< the device does not take what is sent
    comEventDCB = 1011     ///< the device is gone; the port has been closed
};

/// A line's parameters, as in "9600,N,8,1".
struct SerialSettings {
    int baud = 9600;
    char parity = 'N'; ///< N none, E even, O odd, M mark, S space
    int dataBits = 8;  ///< 5 to 8
    double stopBits = 1;
};

/// Reads "baud,parity,data bits,stop bits", letters in any case; nothing for anything else.
std::optional<SerialSettings> ParseSerialSettings(std::string_view text);

/// The device of COM port `number` (from 1): "COM1", or "/dev/ttyS0" where ports have paths. A port
/// without a number, such as a USB adapter, is named by its path wherever a number may stand.
std::string SerialPortName(int number);
/// The same for the text of a setting: a number, or a path that begins with "/". "" for others.
std::string SerialPortName(std::string_view setting);

/// Asks the driver of an open port to hand over bytes at once: USB adapters else gather them for up
/// to 16 ms. `handle` is the system's own; a device that cannot is left as it is.
void ShortenSerialLatency(std::intptr_t handle);

/// Why a port that is named so could not be opened: it is not there, or the user has no right to
/// it.
/// "" when that is not the reason.
std::string WhyNotOpened(const std::string& name);

/// Who opens a port, and in which state the lines are that feed some receivers and switch others.
struct SerialUse {
    std::string owner; ///< as others are told of it: "the remote"
    bool dtr = true;
    bool rts = true;
};

/// One port. All on the user-interface thread. Destroying it closes it.
class SerialPort {
  public:
    virtual ~SerialPort() = default;
    /// Opens `name` with `settings` ("9600,N,8,1") for this process alone. The lines are set at
    /// once; the driver itself may raise them for a moment. False when there is no such device, it
    /// is in use, or the settings are none.
    virtual bool Open(const std::string& name, const std::string& settings,
                      const SerialUse& use = {}) = 0;
    /// Why the last `Open` gave false, for the log and the user.
    virtual std::string Failure() const = 0;
    virtual void Close() = 0;
    virtual bool PortOpen() const = 0;
    /// Bytes that wait to be read.
    virtual std::size_t InBufferCount() const = 0;
    /// Takes all bytes that wait.
    virtual std::string Input() = 0;
    /// Drops all bytes that wait, those in the driver included.
    virtual void ClearInput() = 0;
    /// Hands bytes to the driver; they go out while events run. False when the port is closed.
    virtual bool Output(std::string_view bytes) = 0;
    virtual void SetDTREnable(bool on) = 0;
    virtual void SetRTSEnable(bool on) = 0;
    /// Modem lines; false on a port that has none.
    virtual bool CDHolding() const = 0;
    virtual bool CTSHolding() const = 0;
    virtual bool DSRHolding() const = 0;
    /// Turns the events of the modem lines on; they are off after opening. Changes are told at
    /// once where the driver tells of them, else within 50 ms.
    virtual void WatchModemLines(bool on) = 0;

    /// Gets a `CommEvent`. May close or reopen the port, but must not destroy it.
    std::function<void(int commEvent)> OnComm;
};

} // namespace vk
