#include "platform/file_state.h"

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace vk {

namespace {

constexpr std::int64_t TickUnits = 500'000; // of 100 ns

std::int64_t Units(const FILETIME& time) {
    return (std::int64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime;
}

} // namespace

// FAT keeps the time of writing in steps of two seconds; the time of making tells a replaced file.
FileStamp StampOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExW(ToWide(path).c_str(), GetFileExInfoStandard, &data))
        return {.settled = true};
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    FileStamp stamp{.length = (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow,
                    .written = Units(data.ftLastWriteTime),
                    .changed = Units(data.ftCreationTime)};
    const std::int64_t age = Units(now) - stamp.written;
    stamp.settled = age > TickUnits || age < -TickUnits;
    return stamp;
}

bool CanReplace(const std::string& path) {
    return FolderExists(FolderOf(path));
}

} // namespace vk
