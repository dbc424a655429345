// What a .skn file holds, in memory.
#pragma once

#include "core/ini_document.h"
#include "core/ini_file.h"

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// Read as other INI files are, but that sections of one name are one, and whatever program wrote
/// it: UTF-8, UTF-16 or Windows-1252. All texts are UTF-8. What is read and missing, or out of
/// bounds, is remembered to be told.
class SkinFile {
  public:
    SkinFile() = default;
    SkinFile(std::string_view bytes, std::string decimalSymbol);

    /// Any one section of a skin makes it one: what is missing has its defaults.
    bool IsSkin() const;
    bool HasSection(const std::string& section) const { return document_.HasSection(section); }
    bool Has(const std::string& section, const std::string& key) const {
        return document_.Value(section, key).has_value();
    }
    /// "" when it is missing.
    std::string Text(const std::string& section, const std::string& key);
    bool Flag(const std::string& section, const std::string& key);
    /// 0 when it is missing or no number, else the nearest number from `low` to `high`.
    double Number(const std::string& section, const std::string& key, IniType type, double low,
                  double high);
    /// What was not as it should be, in the order of reading, as one line; "" when all was.
    std::string Faults() const;
    void AddFault(const std::string& fault) { faults_.push_back(fault); }

  private:
    IniDocument document_;
    std::string decimalSymbol_ = ".";
    std::vector<std::string> faults_;
};

} // namespace vk
