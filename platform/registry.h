// The registry, or the per-user file that stands for it.
#pragma once

#include <optional>
#include <string>

namespace vk {

/// The hives that the system touches.
enum class Hive { ClassesRoot, CurrentUser };

class Registry {
  public:
    virtual ~Registry() = default;
    virtual bool KeyExists(const std::string& key, Hive hive) const = 0;
    /// The value under `key`; the default value for an empty name; nothing when there is none.
    virtual std::optional<std::string> GetStringValue(Hive hive, const std::string& key,
                                                      const std::string& value) const = 0;
    /// False when nothing can be kept in it.
    virtual bool Writable() const { return true; }
    /// Writes a value and makes the key; false when the store cannot be written.
    virtual bool SetStringValue(Hive hive, const std::string& key, const std::string& value,
                                const std::string& data) = 0;
};

} // namespace vk
