// settings.ini of one application directory, in memory and on the disk.
#pragma once

#include "core/ini_file.h"
#include "core/settings_values.h"
#include "platform/user_folders.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace vk {

/// A setting and the value it is to have.
class SettingChange {
  public:
    template<class T>
    SettingChange(const Setting<T>& setting, const std::type_identity_t<T>& value)
        : key{setting.section, setting.Key(), SettingText(value)} {
        if (setting.kept) keep = [member = setting.kept, value](Settings& s) { s.*member = value; };
    }

    IniKey key;
    std::function<void(Settings&)> keep; ///< brings what is in memory up to date
};

class SettingsStore {
  public:
    SettingsStore(Folders folders, Ini& ini) : folders_(std::move(folders)), ini_(ini) {}

    /// Reads every setting that is held in memory, with its correction; a bad value never stops the
    /// load.
    void LoadSettings();
    /// Writes the default of every setting that is empty in the file and has one for that.
    void FillEmptySettings();

    /// A setting as it is in the file now, corrected by its row.
    template<class T> T Get(const Setting<T>& setting) {
        return ValueOf<T>(
            setting, Read(setting.section, setting.Key(), setting.readAs.value_or(IniTypeOf<T>())));
    }
    /// Its text as it stands in the file, "" when there is none.
    std::string Text(const SettingRow& row) { return Read(row.section, row.Key()); }
    /// Writes one setting, in memory too; 1 for done.
    template<class T>
    std::int16_t Set(const Setting<T>& setting, const std::type_identity_t<T>& value) {
        return Write({{setting, value}});
    }
    /// Writes settings that belong together in one replacement of the file, in memory too; 1 for
    /// done.
    std::int16_t Write(const std::vector<SettingChange>& changes);

    /// settings.ini by names of keys.
    std::string Read(std::string_view section, std::string_view key);
    IniValue Read(std::string_view section, std::string_view key, IniType type);
    /// The result of the write call, 1 for done.
    std::int16_t Write(std::string_view section, std::string_view key, std::string_view value);
    /// Waits until everything that was written is on the disk: before others read or delete it.
    void Finish() { ini_.Finish(); }

    /// The application directory: programs, skins and pictures.
    const std::string& AppDir() const { return folders_.app; }
    /// Where the system writes: the application directory, or another where that takes no files.
    const std::string& StateDir() const { return folders_.state; }
    /// Whether what is written there is there after the machine's next start.
    bool Lasting() const { return folders_.lasting; }
    /// A file that the system writes.
    std::string File(std::string_view name) const;
    /// A file or folder that is shipped.
    std::string Shipped(std::string_view name) const;
    std::string SettingsFile() const { return File("settings.ini"); }

    Ini& ini() { return ini_; }

    Settings values;

  private:
    Folders folders_;
    Ini& ini_;
};

} // namespace vk
