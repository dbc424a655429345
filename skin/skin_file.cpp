#include "skin/skin_file.h"

#include "core/text.h"
#include "core/utf16.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace vk {

namespace {

constexpr std::size_t ToldFaults = 60;
constexpr std::size_t ToldLength = 40; // characters of a value

std::string Decoded(std::string_view bytes) {
    const auto order = Utf16OrderOf(bytes);
    return order ? Utf16ToUtf8(bytes, *order) : ToUtf8(bytes);
}

std::string NameOf(const std::string& section, const std::string& key) {
    return "[" + section + "] " + key;
}

} // namespace

SkinFile::SkinFile(std::string_view bytes, std::string decimalSymbol)
    : document_(Decoded(bytes), SameSections::AreOne), decimalSymbol_(std::move(decimalSymbol)) {}

bool SkinFile::IsSkin() const {
    const char* const sections[] = {"NativeRes", "BGimages", "Colors", "FONTS", "IconNames"};
    return std::any_of(std::begin(sections), std::end(sections),
                       [&](const char* section) { return document_.HasSection(section); });
}

std::string SkinFile::Text(const std::string& section, const std::string& key) {
    const auto value = document_.Value(section, key);
    if (!value || value->empty()) AddFault("no " + NameOf(section, key));
    return value.value_or("");
}

bool SkinFile::Flag(const std::string& section, const std::string& key) {
    return ConvertIniText(Text(section, key), IniType::Boolean, decimalSymbol_).Bool();
}

double SkinFile::Number(const std::string& section, const std::string& key, IniType type,
                        double low, double high) {
    const std::string text = Text(section, key);
    const double number = ConvertIniText(text, type, decimalSymbol_).Double();
    if (number < low || number > high)
        AddFault(NameOf(section, key) + "=" + Left(text, ToldLength) + " is out of bounds");
    return std::clamp(number, low, high);
}

std::string SkinFile::Faults() const {
    std::vector<std::string> told(
        faults_.begin(),
        faults_.begin() + static_cast<std::ptrdiff_t>(std::min(faults_.size(), ToldFaults)));
    if (faults_.size() > ToldFaults) told.emplace_back("and more");
    return Join(told, "; ");
}

} // namespace vk
