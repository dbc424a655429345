#include "platform/linux/serial_list.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <system_error>

namespace vk {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view OwnPrefix = "ttyS";

// The kernel makes names for ports that the machine does not have: type 0.
bool IsThere(const std::string& tty) {
    std::error_code ignored;
    if (!fs::exists(JoinPath(tty, "device"), ignored)) return false;
    const auto type = ReadWholeFile(JoinPath(tty, "type"), 16);
    return !type || !type->starts_with("0");
}

std::optional<std::size_t> OwnNumber(std::string_view device) {
    std::size_t number = 0;
    if (!device.starts_with(OwnPrefix)) return std::nullopt;
    device.remove_prefix(OwnPrefix.size());
    const auto [end, error] = std::from_chars(device.data(), device.data() + device.size(), number);
    return error == std::errc() && end == device.data() + device.size() ? std::optional(number)
                                                                        : std::nullopt;
}

/// Device names to the links that name them for good.
std::map<std::string, std::string> LastingNames(const std::string& deviceFolder) {
    std::map<std::string, std::string> names;
    std::error_code ignored;
    for (const auto& link : fs::directory_iterator(JoinPath(deviceFolder, "serial/by-id"), ignored))
        names[fs::read_symlink(link.path(), ignored).filename().string()] = link.path().string();
    return names;
}

void AddToFreePlace(const ListedSerialPort& port, SerialList& list) {
    const auto place = std::ranges::find(list, std::string(), &ListedSerialPort::name);
    if (place != list.end()) *place = port;
}

/// Ports that the kernel does not list, such as the pseudo-terminal of a simulated device:
/// "name=path", separated by ";".
void AddNamedPorts(std::string_view named, SerialList& list) {
    while (!named.empty()) {
        const auto end = std::min(named.find(';'), named.size());
        const std::string_view port = named.substr(0, end);
        const auto equals = port.find('=');
        if (equals != std::string_view::npos && equals > 0)
            AddToFreePlace(
                {std::string(port.substr(0, equals)), std::string(port.substr(equals + 1))}, list);
        named.remove_prefix(std::min(end + 1, named.size()));
    }
}

/// "usb-FTDI_FT232R_USB_UART_A9014ID2-if00-port0" is "FTDI FT232R USB UART A9014ID2".
std::string Friendly(const std::string& link) {
    std::string name = FileNameOf(link);
    if (name.starts_with("usb-")) name.erase(0, 4);
    name.resize(std::min(name.size(), name.rfind("-if")));
    std::ranges::replace(name, '_', ' ');
    return name;
}

} // namespace

SerialList ListSerialPorts(const std::string& classFolder, const std::string& deviceFolder) {
    SerialList list;
    const auto lasting = LastingNames(deviceFolder);
    std::map<std::string, ListedSerialPort> plugged; // by what orders them
    for (const FolderEntry& entry : ListFolder(classFolder)) {
        if (!IsThere(JoinPath(classFolder, entry.name))) continue;
        const std::string path = JoinPath(deviceFolder, entry.name);
        const auto own = OwnNumber(entry.name);
        const auto named = lasting.find(entry.name);
        if (named != lasting.end())
            plugged[named->second] = {Friendly(named->second), named->second};
        else if (own && *own < list.size())
            list[*own] = {"Serial port " + entry.name, path};
        else
            plugged[entry.name] = {"Serial port " + entry.name, path};
    }
    for (const auto& [order, port] : plugged)
        AddToFreePlace(port, list);
    return list;
}

SerialList ListSerialPorts() {
    SerialList list = ListSerialPorts("/sys/class/tty", "/dev");
    if (const char* named = std::getenv("VK_SERIAL_PORTS")) AddNamedPorts(named, list);
    return list;
}

} // namespace vk
