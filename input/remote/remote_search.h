// Looks for a receiver of a remote, by its driver and on all serial ports at once, while something
// else goes on.
#pragma once

#include "input/remote/port_probe.h"
#include "input/remote/uuirt_probe.h"
#include "platform/serial_list.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// Opens every port that the machine lists, also those that are plugged in meanwhile, and keeps it
/// until it stops: for a time in which nothing else wants one. A USB-UIRT is one of these ports to
/// the machine, so that its driver is asked before they are opened.
class RemoteSearch {
  public:
    /// How often the ports are asked, and after so many times listed again.
    static constexpr int LookMs = 100, ListEvery = 20;
    /// After so many looks without an answer of the driver the ports are opened without it.
    static constexpr int DriverLooks = 30;

    struct Found {
        std::string type;
        std::string port; ///< as section remote names it; "" of a receiver that has none
        std::string name; ///< what the device calls itself
    };
    struct Needs {
        Clock& clock;
        std::function<SerialList()> ports;
        std::function<std::unique_ptr<SerialPort>()> serial;
        UuirtProbe::Load uuirt = {};
        int uuirtPatienceMs = 0; ///< how long its driver may hold the interface
    };

    explicit RemoteSearch(Needs needs);
    void Start();
    void Stop(); ///< closes the ports

    /// The search has stopped; it may be started again.
    std::function<void(const Found& found)> onFound;

  private:
    void Look();
    void List();
    void OpenListed();
    void Tell(const Found& found);

    Needs n_;
    UuirtProbe uuirt_;
    SerialList list_;
    std::vector<std::unique_ptr<PortProbe>> probes_;
    int looks_ = 0;
    int asked_ = 0; ///< at which look the driver was
    bool uuirtTold_ = false;
    std::unique_ptr<Timer> look_;
};

} // namespace vk
