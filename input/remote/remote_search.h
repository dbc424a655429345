// Looks for a receiver of a remote on all serial ports at once, while something else goes on.
#pragma once

#include "input/remote/port_probe.h"
#include "platform/serial_list.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// Opens every port that the machine lists, also those that are plugged in meanwhile, and keeps it
/// until it stops: for a time in which nothing else wants one.
class RemoteSearch {
  public:
    /// How often the ports are asked, and after so many times listed again.
    static constexpr int LookMs = 100, ListEvery = 20;

    struct Found {
        std::string type, port; ///< as section remote names them
        std::string name;       ///< what the port's device calls itself
    };
    struct Needs {
        Clock& clock;
        std::function<SerialList()> ports;
        std::function<std::unique_ptr<SerialPort>()> serial;
    };

    explicit RemoteSearch(Needs needs);
    void Start();
    void Stop(); ///< closes the ports

    /// The search has stopped; it may be started again.
    std::function<void(const Found& found)> onFound;

  private:
    void Look();
    void List();

    Needs n_;
    SerialList list_;
    std::vector<std::unique_ptr<PortProbe>> probes_;
    int looks_ = 0;
    std::unique_ptr<Timer> look_;
};

} // namespace vk
