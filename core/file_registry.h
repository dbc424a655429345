// The registry where there is none: a per-user INI file.
#pragma once

#include "platform/registry.h"

#include <string>

namespace vk {

/// Sections are hive and key, an empty value name is stored as "@".
class FileRegistry : public Registry {
  public:
    explicit FileRegistry(std::string file) : file_(std::move(file)) {}
    bool KeyExists(const std::string& key, Hive hive) const override;
    std::optional<std::string> GetStringValue(Hive hive, const std::string& key,
                                              const std::string& value) const override;
    bool Writable() const override;
    bool SetStringValue(Hive hive, const std::string& key, const std::string& value,
                        const std::string& data) override;

  private:
    std::string file_;
};

/// Where this user's file lies: velkorandum/registry.ini under $XDG_CONFIG_HOME or ~/.config. The
/// folder is made.
std::string UserRegistryFile();

} // namespace vk
