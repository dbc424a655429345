#include "platform/qt/qt_fonts.h"
#include "platform/qt/qt_locale.h"

#include <gmock/gmock.h>

namespace vk {
namespace {

TEST(QtFontsTest, KnowsInstalledFamiliesInAnyCase) {
    const QtFonts fonts;
    EXPECT_TRUE(fonts.FontExists("DejaVu Sans"));
    EXPECT_TRUE(fonts.FontExists("dejavu sans"));
    for (const char* missing : {"DejaVu", "No Such Font", ""})
        EXPECT_FALSE(fonts.FontExists(missing)) << missing;
}

TEST(QtLocaleTest, FormatsDatesAndTimes) {
    const QtLocaleInfo locale;
    const DateTime when{2026, 11, 21, 15, 4, 9, 0, 6};
    EXPECT_THAT(locale.DecimalSymbol(), testing::AnyOf(".", ","));
    EXPECT_THAT(locale.MediumDate(when), testing::EndsWith(" 21, 2026"));
    EXPECT_THAT(locale.LongDate(when), testing::HasSubstr("2026"));
    EXPECT_THAT(locale.ShortTime(when), testing::HasSubstr("04"));
    EXPECT_THAT(locale.ShortTime(when), testing::Not(testing::HasSubstr("09")));
}

} // namespace
} // namespace vk
