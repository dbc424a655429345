// INI files with the manners of the Windows profile calls: [section] and key=value lines, names
// matched without regard to case, blanks around "=" trimmed, one pair of quotes around a value
// dropped.
#pragma once

#include "core/error_report.h"
#include "core/file_writer.h"
#include "core/ini_document.h"
#include "platform/file_state.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vk {

/// The longest value that a read returns, in characters: the buffer of 255 less its closing NUL.
inline constexpr std::size_t IniValueLimit = 254;

/// The value of a key; `fallback` when the file, section or key is missing. Values are cut to
/// `IniValueLimit` characters.
std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view fallback, const std::string& file);

/// Sets one key, making file and section as needed; all other lines stay as they are. The file is
/// replaced in one step, and only when the value differs from what is there. False when the file
/// could not be written.
bool WritePrivateProfileString(std::string_view section, std::string_view key,
                               std::string_view value, const std::string& file);

/// What a read is converted to; the numbers are the type codes of the callers.
enum class IniType {
    String = 0,
    Boolean = 1,
    Long = 2,
    Integer = 3,
    Currency = 4,
    Single = 5,
    Decimal = 6,
    Double = 7
};

/// A converted value. What is empty or cannot be converted is false for a boolean and the text "0"
/// for every numeric type; the accessors turn that into a number at the caller.
class IniValue {
  public:
    using Storage = std::variant<std::string, bool, std::int32_t, std::int16_t, double>;
    explicit IniValue(Storage value) : value_(std::move(value)) {}
    const Storage& Value() const { return value_; }
    /// The value as text: booleans as "True" or "False".
    std::string Text() const;
    bool Bool() const;
    std::int32_t Long() const;
    std::int16_t Integer() const;
    double Double() const;

  private:
    double Number() const;
    Storage value_;
};

/// A key and its new value.
struct IniKey {
    std::string section, key, value;
};

/// Typed access to the INI files under the user's decimal symbol. What was written is read at once,
/// what others change in a file with the next read; a file that has not changed is read once. What
/// cannot be written counts all the same until others change the file, and is tried again with
/// whatever is written next.
class Ini {
  public:
    /// `decimalSymbol` is read at each call; it must outlive this object, as `writer` must. Without
    /// one the files are on the disk when a call returns.
    Ini(const std::string& decimalSymbol, ErrorReport& report)
        : decimalSymbol_(decimalSymbol), report_(report), writer_(direct_) {}
    Ini(const std::string& decimalSymbol, ErrorReport& report, FileWriter& writer)
        : decimalSymbol_(decimalSymbol), report_(report), writer_(writer) {}
    ~Ini() { Finish(); }
    Ini(const Ini&) = delete;
    Ini& operator=(const Ini&) = delete;

    IniValue ReadINI(const std::string& file, std::string_view section, std::string_view key,
                     IniType type = IniType::String);
    std::string ReadText(const std::string& file, std::string_view section, std::string_view key);
    /// The result of the write call: 1 when the key will be on the disk, in the order of writing, 0
    /// when it cannot be. A failure is logged once for each file until it can be written again.
    std::int16_t WriteINI(const std::string& file, std::string_view section, std::string_view key,
                          std::string_view value);
    /// The same for keys that belong together: the file is replaced once.
    std::int16_t WriteKeys(const std::string& file, const std::vector<IniKey>& keys);
    bool DeleteSection(const std::string& file, std::string_view section);
    bool DeleteKey(const std::string& file, std::string_view section, std::string_view key);
    /// The whole file as it counts now, whether it is on the disk already or not.
    std::string Contents(const std::string& file) { return Look(file).document.Contents(); }
    /// Takes `contents` for those of a file that cannot be written.
    void Assume(const std::string& file, std::string_view contents);
    /// Waits until everything that was written is on the disk.
    void Finish();

  private:
    struct Known {
        IniDocument document;
        std::optional<FileStamp> stamp; ///< of what the document was read from; none: read it anew
        std::size_t contents = 0;       ///< hash of the bytes that the document stands for
        std::uint64_t ticket = 0;       ///< of what is being written, 0 for nothing
        bool failed = false;            ///< the last time that it was written
    };
    static void Read(const std::string& file, Known& known);
    Known& Look(const std::string& file);
    void TakeOutcomes();
    void Failed(const std::string& file, Known& known, const std::string& reason);
    bool Replace(const std::string& file, Known& known);

    const std::string& decimalSymbol_;
    ErrorReport& report_;
    DirectFileWriter direct_;
    FileWriter& writer_;
    std::map<std::string, Known> files_;
};

/// Converts one text as `ReadINI` does.
IniValue ConvertIniText(std::string text, IniType type, std::string_view decimalSymbol);

} // namespace vk
