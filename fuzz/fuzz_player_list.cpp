// List files as the player reads them, and its list fed with what comes of them.
#include "player/engine/list_file.h"
#include "player/engine/play_order.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view contents(reinterpret_cast<const char*>(data), size);
    vk::PlayOrder list(static_cast<std::uint32_t>(size));
    list.SetRepeat(true);
    list.SetShuffle(size % 2 == 0);
    for (const auto& entries : {vk::M3uEntries(contents, "/l"), vk::PlsEntries(contents, "/l")}) {
        std::string paths;
        for (const std::string& entry : entries)
            paths.append(entry).push_back('\0');
        list.Append(paths);
        if (list.Size() < entries.size()) std::abort();
        list.SetIndex(static_cast<std::int32_t>(size % 7));
        if (list.Next() != (list.Size() > 0) || (list.Size() > 0 && !list.InRange())) std::abort();
        list.Begin();
    }
    list.Append(contents);
    return 0;
}
