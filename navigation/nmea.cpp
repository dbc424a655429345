#include "navigation/nmea.h"

#include "core/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace vk {

namespace {

constexpr std::size_t FieldCount = 11; // that before the first comma, which is empty, and 1 to 10
constexpr double MilesPerKnot = 1.151;
constexpr std::size_t NameLength = 6; // "$GPRMC"

using Fields = std::array<std::string, FieldCount>;

Fields FieldsOf(std::string_view text) {
    Fields fields;
    for (std::string& field : fields) {
        const auto comma = std::min(text.find(','), text.size());
        field = text.substr(0, comma);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return fields;
}

/// A field of pairs: "123519" with ":" is "12:35:19". What stands between the first four characters
/// and the last two is left out.
std::string Pairs(const std::string& field, const char* between) {
    const std::string middle = field.size() > 2 ? field.substr(2, 2) : "";
    return field.substr(0, 2) + between + middle + between + std::string(LastBytes(field, 2));
}

// Whole knots, halves to the even one, before they become miles: that is how the speed has always
// been shown.
std::string MilesPerHour(const std::string& knots) {
    const double whole = std::nearbyint(ParseDecimal(knots).value_or(0));
    if (!(std::abs(whole) <= std::numeric_limits<std::int16_t>::max())) return "0.00";
    char text[16];
    std::snprintf(text, sizeof text, "%.2f", whole * MilesPerKnot);
    return text;
}

bool IsRMC(std::string_view sentence) {
    const auto letter = [&](std::size_t at) { return sentence[at] >= 'A' && sentence[at] <= 'Z'; };
    return sentence.size() >= NameLength && sentence[0] == '$' && letter(1) && letter(2) &&
           sentence.substr(3, 3) == "RMC";
}

} // namespace

void RaiseRMC(std::string_view text, const DestEvents& raise) {
    const Fields fields = FieldsOf(text);
    raise(DestEvent::GPSTimeUpdate, Pairs(fields[1], ":") + " GMT");
    if (fields[2] == "V") raise(DestEvent::GPSStatusChange, "0");
    if (fields[2] == "A") raise(DestEvent::GPSStatusChange, "1");
    raise(DestEvent::GPSLatUpdate, fields[4]);
    raise(DestEvent::GPSLongUpdate, fields[6]);
    raise(DestEvent::GPSSpeedUpdate, MilesPerHour(fields[7]));
    raise(DestEvent::GPSTrackUpdate, fields[8]);
    raise(DestEvent::GPSDateUpdate, Pairs(fields[9], "-"));
}

void SentenceAssembler::Feed(std::string_view bytes) {
    for (const char byte : bytes) {
        if (byte == '\n')
            EndSentence();
        else if (nmeaBuffer_.size() < LongestSentence)
            nmeaBuffer_ += byte;
    }
}

// The carriage return goes with sentences whose first character has a code that ends in 6, as that
// of "$" does; none of the others is looked at any further.
void SentenceAssembler::EndSentence() {
    std::string sentence;
    sentence.swap(nmeaBuffer_);
    if (sentence.empty()) return;
    const int first = static_cast<unsigned char>(sentence.front());
    if (first % 10 == 6 && sentence.back() == '\r') sentence.pop_back();
    if (IsRMC(sentence)) RaiseRMC(std::string_view(sentence).substr(NameLength), raise_);
}

} // namespace vk
