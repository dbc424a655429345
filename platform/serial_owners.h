// Who has which serial port in this process.
#pragma once

#include <map>
#include <string>

namespace vk {

/// One object for all ports of the process.
class SerialOwners {
  public:
    /// Takes the port for `owner`; "" then, else who has it already.
    std::string Take(const std::string& port, const std::string& owner) {
        const auto [place, taken] = owners_.try_emplace(port, owner);
        return taken ? std::string() : place->second;
    }
    void Give(const std::string& port) { owners_.erase(port); }

  private:
    std::map<std::string, std::string> owners_;
};

} // namespace vk
