// The user's locale through Qt.
#pragma once

#include "platform/locale_info.h"

namespace vk {

class QtLocaleInfo : public LocaleInfo {
  public:
    std::string DecimalSymbol() const override;
    std::string LongDate(const DateTime& when) const override;
    std::string MediumDate(const DateTime& when) const override;
    std::string ShortTime(const DateTime& when) const override;
};

} // namespace vk
