#include "visuals/window/track_tag.h"

#include "core/debug_log.h"
#include "core/text.h"
#include "library/tags/media_type.h"
#include "library/tags/shown_tag.h"
#include "platform/no_dialogs.h"
#include "platform/qt/qt_clock.h"

namespace vk {

std::pair<QString, QString> ReadTrackTag(const std::string& logDir, const std::string& file) {
    static const std::string decimalSymbol = ".";
    static constexpr bool Extended = true;
    const QtClock clock;
    const DebugLog log(logDir, clock);
    NoDialogs dialogs;
    ID3 reader({log, dialogs}, decimalSymbol, Extended);
    const TagRecord tag = ShownTag(reader, file, MediaAudio);
    return {QString::fromStdString(ToUtf8(tag.Title)), QString::fromStdString(ToUtf8(tag.Artist))};
}

} // namespace vk
