// What the browser takes from files and settings: list lines, descriptors and the stored history.
#include "browser/browse_history.h"
#include "core/text.h"
#include "core/utf16.h"
#include "library/descriptor.h"
#include "library/lists/list_file.h"
#include "library/lists/playlist.h"

#include <cstdint>
#include <cstdlib>

namespace {

// What is written reads back as it was, whatever it was.
void CheckPlaylist(const std::string& text) {
    vk::Playlist list = vk::ParsePlaylist(text);
    const std::vector<std::string> none(list.lines.size());
    const std::string path = list.pls ? "/l/a.pls" : "/l/a.m3u";
    const std::string written = vk::PlaylistText(vk::WithEntries(list, none, {}, {path, path}));
    if (written.find('\0') != std::string::npos) return; // may look like UTF-16
    if (vk::PlaylistText(vk::ParsePlaylist(written)) != written) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const std::string& line : vk::ListLines(text)) {
        if (line.empty() || line.find_first_of("\r\n") != std::string::npos) std::abort();
        if (vk::ResolveListEntry(line, "/nowhere").starts_with("/nowhere")) std::abort();
    }
    CheckPlaylist(text);
    for (const auto order : {vk::Utf16Order::Little, vk::Utf16Order::Big}) {
        const std::string decoded = vk::Utf16ToUtf8(text, order);
        if (vk::ToUtf8(decoded) != decoded) std::abort();
    }
    const auto row = vk::Descriptor::Parse(text);
    if (row.kind != vk::RowKind::None && row.Text() != text) std::abort();
    std::string rest = text;
    auto elements = vk::SplitHistory(text);
    while (!elements.empty()) {
        if (vk::PopHistory(rest) != elements.back()) std::abort();
        elements.pop_back();
    }
    if (!rest.empty()) std::abort();
    return 0;
}
