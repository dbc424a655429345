// Feeds any bytes to both ends of the catalogue server's conversation, in pieces of any length, and
// to the texts that reach the catalogue: queries, values and patterns.
#include "library/catalogue/collation.h"
#include "library/catalogue/protocol.h"
#include "library/queries/sql_text.h"

#include <cstdlib>

namespace {

void Check(bool holds) {
    if (!holds) std::abort();
}

void TakeLine(std::string_view line) {
    Check(line.size() <= vk::LineSplitter::MaxLine && line.find('\n') == std::string_view::npos);
    if (const auto request = vk::ParseRequest(line)) {
        const auto again = vk::ParseRequest(vk::ToLine(*request));
        Check(again && again->kind == request->kind);
        if (request->kind == vk::ServerRequest::Kind::Scan)
            Check(again->scan.mediaDir == request->scan.mediaDir);
    }
    if (const auto event = vk::ParseEvent(line)) {
        const auto again = vk::ParseEvent(vk::ToLine(*event));
        Check(again && again->kind == event->kind);
    }
}

void TakeTexts(std::string_view a, std::string_view b) {
    const std::string value = vk::Escape(a);
    Check(value.find('\'') == std::string::npos && value.find('\0') == std::string::npos);
    vk::TranslateQuery(a);
    Check(vk::CompareTexts(a, a) == 0);
    const int order = vk::CompareTexts(a, b);
    const int reverse = vk::CompareTexts(b, a);
    Check((order < 0) == (reverse > 0) && (order == 0) == (reverse == 0));
    vk::LikeText(a, b);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    vk::LineSplitter lines;
    const std::size_t piece = data[0] + std::size_t{1};
    for (std::size_t at = 0; at < bytes.size(); at += piece)
        lines.Feed(bytes.substr(at, piece), TakeLine);
    TakeTexts(bytes.substr(0, bytes.size() / 2), bytes.substr(bytes.size() / 2));
    return 0;
}
