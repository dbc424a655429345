#include "core/ini_file.h"

#include "core/text.h"
#include "platform/files.h"

#include <cmath>
#include <functional>
#include <limits>
#include <utility>

namespace vk {

namespace {

IniDocument Load(const std::string& file) {
    return IniDocument(ReadWholeFile(file).value_or(std::string()));
}

// The 16 MiB that a read stops at: beyond it a rewrite would cut the file.
constexpr std::uint64_t EditLimit = 16u << 20;

std::size_t HashOf(std::string_view bytes) {
    return std::hash<std::string_view>()(bytes);
}

std::string CutToBuffer(const std::string& value) {
    return value.size() <= IniValueLimit ? value : Left(value, IniValueLimit);
}

template<class Int> std::optional<Int> ToInteger(const std::string& text, std::string_view symbol) {
    const auto number = ParseDecimal(text, symbol);
    // Halves go to the even neighbour, as the integer conversions of these files always did.
    const double rounded = number ? std::nearbyint(*number) : 0;
    if (!number || rounded < std::numeric_limits<Int>::min() ||
        rounded > std::numeric_limits<Int>::max())
        return std::nullopt;
    return static_cast<Int>(rounded);
}

IniValue OrZero(const auto& converted) {
    if (converted) return IniValue(IniValue::Storage(*converted));
    return IniValue(std::string("0"));
}

// The words, or a number: anything but zero is true.
bool ToBoolean(const std::string& text, std::string_view symbol) {
    return EqualNoCase(Trim(text), "true") || ParseDecimal(text, symbol).value_or(0) != 0;
}

// Currency keeps four decimals.
std::optional<double> ToCurrency(const std::string& text, std::string_view symbol) {
    const auto number = ParseDecimal(text, symbol);
    return number ? std::optional(std::nearbyint(*number * 10000) / 10000) : std::nullopt;
}

std::optional<double> ToSingle(const std::string& text, std::string_view symbol) {
    const auto number = ParseDecimal(text, symbol);
    return number ? std::optional<double>(static_cast<float>(*number)) : std::nullopt;
}

} // namespace

std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view fallback, const std::string& file) {
    return CutToBuffer(Load(file).Value(section, key).value_or(std::string(fallback)));
}

bool WritePrivateProfileString(std::string_view section, std::string_view key,
                               std::string_view value, const std::string& file) {
    if (FileLength(file) > EditLimit) return false;
    IniDocument document = Load(file);
    if (document.Value(section, key) == std::string(value)) return true;
    document.SetValue(section, key, value);
    return ReplaceFile(file, document.Contents());
}

std::string IniValue::Text() const {
    if (const auto* text = std::get_if<std::string>(&value_)) return *text;
    if (const auto* flag = std::get_if<bool>(&value_)) return *flag ? "True" : "False";
    if (const auto* number = std::get_if<double>(&value_)) return std::to_string(*number);
    return std::to_string(Long());
}

double IniValue::Number() const {
    return std::visit(
        [](const auto& value) -> double {
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::string>)
                return ParseDecimal(value).value_or(0);
            else
                return static_cast<double>(value);
        },
        value_);
}

bool IniValue::Bool() const {
    const auto* flag = std::get_if<bool>(&value_);
    return flag ? *flag : Number() != 0;
}

std::int32_t IniValue::Long() const {
    const double value = std::nearbyint(Number());
    constexpr double low = std::numeric_limits<std::int32_t>::min();
    constexpr double high = std::numeric_limits<std::int32_t>::max();
    return value < low || value > high ? 0 : static_cast<std::int32_t>(value);
}

std::int16_t IniValue::Integer() const {
    const std::int32_t value = Long();
    return value < -32768 || value > 32767 ? std::int16_t{0} : static_cast<std::int16_t>(value);
}

double IniValue::Double() const {
    return Number();
}

IniValue ConvertIniText(std::string text, IniType type, std::string_view decimalSymbol) {
    if (type != IniType::String) text = ReplaceAll(std::move(text), ".", decimalSymbol);
    switch (type) {
    case IniType::Boolean:
        return IniValue(ToBoolean(text, decimalSymbol));
    case IniType::Long:
        return OrZero(ToInteger<std::int32_t>(text, decimalSymbol));
    case IniType::Integer:
        return OrZero(ToInteger<std::int16_t>(text, decimalSymbol));
    case IniType::Currency:
        return OrZero(ToCurrency(text, decimalSymbol));
    case IniType::Single:
        return OrZero(ToSingle(text, decimalSymbol));
    case IniType::Decimal:
    case IniType::Double:
        return OrZero(ParseDecimal(text, decimalSymbol));
    case IniType::String:
        break;
    }
    return IniValue(std::move(text));
}

// While something is being written that is what counts; else the file, as long as it looks as it
// did when it was read.
Ini::Known& Ini::Look(const std::string& file) {
    TakeOutcomes();
    Known& known = files_[file];
    if (known.ticket != 0) return known;
    const FileStamp stamp = StampOf(file);
    if (!known.stamp || !known.stamp->settled || !known.stamp->SameAs(stamp)) Read(file, known);
    known.stamp = stamp;
    return known;
}

// Reading costs little beside taking the lines apart, which is only done for other contents. What
// could not be written is kept as long as the file is what it was then.
void Ini::Read(const std::string& file, Known& known) {
    const std::string bytes = ReadWholeFile(file).value_or(std::string());
    const std::size_t contents = HashOf(bytes);
    if (std::exchange(known.contents, contents) == contents) return;
    known.document = IniDocument(bytes);
    known.failed = false;
}

void Ini::Assume(const std::string& file, std::string_view contents) {
    Known& known = Look(file);
    known.document = IniDocument(contents);
    known.failed = true;
}

void Ini::TakeOutcomes() {
    for (const FileWriter::Outcome& outcome : writer_.TakeOutcomes()) {
        const auto at = files_.find(outcome.path);
        if (at == files_.end()) continue;
        Known& known = at->second;
        if (known.ticket == outcome.ticket) known.ticket = 0;
        if (outcome.done)
            known.failed = false;
        else
            Failed(outcome.path, known, outcome.reason);
    }
}

void Ini::Failed(const std::string& file, Known& known, const std::string& reason) {
    known.contents = HashOf(ReadWholeFile(file).value_or(std::string()));
    if (!std::exchange(known.failed, true)) report_.Log("Could not write " + file + ": " + reason);
}

// A file that could not be written is waited for, so that the result can be relied on.
bool Ini::Replace(const std::string& file, Known& known) {
    const char* obstacle = FileLength(file) > EditLimit ? "it is too long"
                           : CanReplace(file)           ? nullptr
                                                        : "its folder takes no files";
    if (obstacle) {
        Failed(file, known, obstacle);
        return false;
    }
    std::string contents = known.document.Contents();
    known.contents = HashOf(contents);
    known.stamp.reset();
    known.ticket = writer_.Replace(file, std::move(contents));
    if (known.failed) writer_.Finish();
    TakeOutcomes();
    return !known.failed;
}

IniValue Ini::ReadINI(const std::string& file, std::string_view section, std::string_view key,
                      IniType type) {
    return Trap<IniValue>(
        report_, "An error occured in modIni.ReadINI ", IniValue(std::string()), [&] {
            return ConvertIniText(
                CutToBuffer(Look(file).document.Value(section, key).value_or(std::string())), type,
                decimalSymbol_);
        });
}

std::string Ini::ReadText(const std::string& file, std::string_view section, std::string_view key) {
    return ReadINI(file, section, key).Text();
}

std::int16_t Ini::WriteINI(const std::string& file, std::string_view section, std::string_view key,
                           std::string_view value) {
    return WriteKeys(file, {{std::string(section), std::string(key), std::string(value)}});
}

std::int16_t Ini::WriteKeys(const std::string& file, const std::vector<IniKey>& keys) {
    return Trap<std::int16_t>(report_, "An error occured in modIni.WriteINI ", 0, [&] {
        Known& known = Look(file);
        bool changed = false;
        for (const IniKey& item : keys) {
            if (known.document.Value(item.section, item.key) == item.value) continue;
            known.document.SetValue(item.section, item.key, item.value);
            changed = true;
        }
        const bool kept = !changed && !known.failed;
        return static_cast<std::int16_t>(kept || Replace(file, known) ? 1 : 0);
    });
}

bool Ini::DeleteSection(const std::string& file, std::string_view section) {
    return Trap<bool>(report_, "An error occured in modIni.DeleteSection ", false, [&] {
        Known& known = Look(file);
        return known.document.RemoveSection(section) && Replace(file, known);
    });
}

bool Ini::DeleteKey(const std::string& file, std::string_view section, std::string_view key) {
    return Trap<bool>(report_, "An error occured in modIni.DeleteKey ", false, [&] {
        Known& known = Look(file);
        return known.document.RemoveKey(section, key) && Replace(file, known);
    });
}

void Ini::Finish() {
    writer_.Finish();
    TakeOutcomes();
}

} // namespace vk
