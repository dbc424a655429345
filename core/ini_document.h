// The lines of one INI file, found and edited without touching the lines around.
#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace vk {

/// What several sections of one name are.
enum class SameSections { FirstCounts, AreOne };

/// Names are compared without regard to case; the first of equal keys counts.
class IniDocument {
  public:
    IniDocument() = default;
    IniDocument(const IniDocument& other)
        : read_(other.read_), lines_(other.lines_), same_(other.same_) {}
    IniDocument(IniDocument&&) = default;
    IniDocument& operator=(IniDocument other) noexcept {
        read_.swap(other.read_);
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
    /// What was read stays in one piece; a line that was written holds its text itself.
    struct Line {
        explicit Line(std::string_view part) : text(part) {}
        Line(const Line& other) : own(other.own), text(own.empty() ? other.text : own) {}
        Line& operator=(const Line&) = delete;
        ~Line() = default;
        void Write(std::string line) {
            own = std::move(line);
            text = own;
        }
        std::string own;
        std::string_view text;
    };
    using Lines = std::list<Line>; ///< what the index points at stays where it is
    struct Range {
        Lines::iterator head, last; ///< the section's own line; its last one, or the same
    };
    /// A key by the texts of its lines; "" in the place of a key for the section itself.
    struct Name {
        std::string_view section, key;
        bool operator==(const Name& other) const; ///< without regard to case
    };
    struct NameHash {
        std::size_t operator()(const Name& name) const;
    };
    /// Where things are. A name without a key is in `sections` alone.
    struct Index {
        std::unordered_map<Name, Range, NameHash> sections;
        std::unordered_map<Name, Lines::iterator, NameHash> keys;
    };
    Index& Find() const;
    Index MakeIndex() const;
    void TakeLines(std::string_view contents);
    Lines::iterator Insert(Lines::iterator before, std::string line);
    void Append(Range& range, std::string_view key, std::string line);
    Range* FindSection(std::string_view section) const;
    std::optional<Lines::iterator> FindKey(std::string_view section, std::string_view key) const;

    std::shared_ptr<const std::string> read_; ///< what lines that were not written are parts of
    mutable Lines lines_;
    mutable std::optional<Index> index_; ///< made when it is needed
    SameSections same_ = SameSections::FirstCounts;
};

} // namespace vk
