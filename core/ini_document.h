// The lines of one INI file, found and edited without touching the lines around.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vk {

/// What several sections of one name are.
enum class SameSections { FirstCounts, AreOne };

/// Names are compared without regard to case; the first of equal keys counts.
class IniDocument {
  public:
    IniDocument() = default;
    /// Takes any bytes: what is no section or key line is kept and ignored. Line ends may be CR LF,
    /// LF or CR; a byte order mark is skipped, UTF-16 becomes UTF-8.
    explicit IniDocument(std::string_view contents, SameSections same = SameSections::FirstCounts);

    bool HasSection(std::string_view section) const;
    /// The trimmed value, nothing when section or key is missing.
    std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    void SetValue(std::string_view section, std::string_view key, std::string_view value);
    /// True when something was removed.
    bool RemoveKey(std::string_view section, std::string_view key);
    bool RemoveSection(std::string_view section);
    /// The whole file, every line ended by CR LF.
    std::string Contents() const;

  private:
    struct Range {
        std::size_t begin; ///< first line after the section's own
        std::size_t end;   ///< one past the section's last line
    };
    /// Where things are, by names in lower case; keys bear their section in front.
    struct Index {
        std::unordered_map<std::string, Range> sections;
        std::unordered_map<std::string, std::size_t> keys;
    };
    const Index& Find() const;
    Index MakeIndex() const;
    void TakeLines(std::string_view contents);
    void Insert(std::size_t at, std::string_view section, std::string_view key, std::string line);
    std::optional<Range> FindSection(std::string_view section) const;
    std::optional<std::size_t> FindKey(std::string_view section, std::string_view key) const;

    std::vector<std::string> lines_;
    SameSections same_ = SameSections::FirstCounts;
    mutable std::optional<Index> index_; ///< made when it is needed
};

} // namespace vk
