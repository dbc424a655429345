// What the user's locale says: the decimal symbol and the forms of dates and times.
#pragma once

#include "platform/clock.h"

#include <string>

namespace vk {

/// The user's locale; read anew at each call, as it may be changed while the system runs.
class LocaleInfo {
  public:
    virtual ~LocaleInfo() = default;
    /// The decimal separator, "." or ",".
    virtual std::string DecimalSymbol() const = 0;
    /// The date in full, "Saturday, November 21, 2026".
    virtual std::string LongDate(const DateTime& when) const = 0;
    /// "dddd, mmm d, yyyy": "Saturday, Nov 21, 2026".
    virtual std::string MediumDate(const DateTime& when) const = 0;
    /// The time of day in the locale's short form, without seconds.
    virtual std::string ShortTime(const DateTime& when) const = 0;
};

} // namespace vk
