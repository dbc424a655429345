#include "platform/copy_file.h"

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace vk {

namespace {

CopyOutcome Failure(DWORD number) {
    return {CopyOutcome::Failed, "error " + std::to_string(number)};
}

struct Told {
    const CopyProgress& progress;
    bool stopped = false;
};

DWORD CALLBACK Tell(LARGE_INTEGER total, LARGE_INTEGER done, LARGE_INTEGER, LARGE_INTEGER, DWORD,
                    DWORD, HANDLE, HANDLE, void* told) {
    auto& to = *static_cast<Told*>(told);
    to.stopped = !to.progress(static_cast<std::uint64_t>(done.QuadPart),
                              static_cast<std::uint64_t>(total.QuadPart));
    return to.stopped ? PROGRESS_CANCEL : PROGRESS_CONTINUE;
}

bool Look(const std::string& path, WIN32_FILE_ATTRIBUTE_DATA& data) {
    return ::GetFileAttributesExW(ToWide(path).c_str(), GetFileExInfoStandard, &data);
}

bool HasChanged(const std::string& path, const WIN32_FILE_ATTRIBUTE_DATA& before) {
    WIN32_FILE_ATTRIBUTE_DATA now{};
    return !Look(path, now) || now.nFileSizeLow != before.nFileSizeLow ||
           now.nFileSizeHigh != before.nFileSizeHigh ||
           ::CompareFileTime(&now.ftLastWriteTime, &before.ftLastWriteTime) != 0;
}

} // namespace

// The call keeps the times, and deletes what it was stopped at.
CopyOutcome CopyInPieces(const std::string& from, const std::string& to,
                         const CopyProgress& progress, WhenChanged whenChanged) {
    WIN32_FILE_ATTRIBUTE_DATA before{};
    if (!Look(from, before)) return Failure(::GetLastError());
    const std::wstring partial = ToWide(to + ".part");
    Told told{progress};
    if (!::CopyFileExW(ToWide(from).c_str(), partial.c_str(), Tell, &told, nullptr, 0)) {
        const DWORD error = ::GetLastError();
        ::DeleteFileW(partial.c_str());
        return told.stopped ? CopyOutcome{CopyOutcome::Stopped, {}} : Failure(error);
    }
    ::SetFileAttributesW(partial.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (whenChanged == WhenChanged::Fail && HasChanged(from, before)) {
        ::DeleteFileW(partial.c_str());
        return {CopyOutcome::Failed, CopyOutcome::Changed};
    }
    if (FlushFile(to + ".part") &&
        ::MoveFileExW(partial.c_str(), ToWide(to).c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return {CopyOutcome::Done, {}};
    const DWORD error = ::GetLastError();
    ::DeleteFileW(partial.c_str());
    return Failure(error);
}

std::optional<std::uint64_t> FreeSpace(const std::string& path) {
    std::string folder = WithoutTrailingSeparator(path);
    while (!FolderExists(folder) && FolderOf(folder) != folder)
        folder = FolderOf(folder);
    ULARGE_INTEGER free{};
    if (!::GetDiskFreeSpaceExW(ToWide(folder).c_str(), &free, nullptr, nullptr))
        return std::nullopt;
    return free.QuadPart;
}

} // namespace vk
