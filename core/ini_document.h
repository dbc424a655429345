// The lines of one INI file, found and edited without touching the lines around.
#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vk {

/// What several sections of one name are.
enum class SameSections { FirstCounts, AreOne };

/// Names are compared without regard to case; the first of equal keys counts.
class IniDocument {
  public:
    IniDocument() = default;
    IniDocument(const IniDocument& other) : lines_(other.lines_), same_(other.same_) {}
    IniDocument(IniDocument&&) = default;
    IniDocument& operator=(IniDocument other) noexcept {
        lines_.swap(other.lines_);
        index_.swap(other.index_);
        same_ = other.same_;
        return *this;
    }
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
    using Lines = std::list<std::string>; ///< what the index points at stays where it is
    struct Range {
        Lines::iterator head, last; ///< the section's own line; its last one, or the same
    };
    /// Where things are, by names in lower case; keys bear their section in front.
    struct Index {
        std::unordered_map<std::string, Range> sections;
        std::unordered_map<std::string, Lines::iterator> keys;
    };
    Index& Find() const;
    Index MakeIndex() const;
    void TakeLines(std::string_view contents);
    void Append(Range& range, std::string_view section, std::string_view key, std::string line);
    Range* FindSection(std::string_view section) const;
    std::optional<Lines::iterator> FindKey(std::string_view section, std::string_view key) const;

    mutable Lines lines_;
    mutable std::optional<Index> index_; ///< made when it is needed
    SameSections same_ = SameSections::FirstCounts;
};

} // namespace vk
