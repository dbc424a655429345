#include "platform/folder_reader.h"

#include "platform/paths.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace vk {

namespace {

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::error_code LastError() {
    return {static_cast<int>(::GetLastError()), std::system_category()};
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

/// Units of 100 ns since 1601 to seconds since 1970.
std::int64_t Seconds(const FILETIME& time) {
    constexpr std::int64_t Units = 10'000'000, Between = 11'644'473'600;
    return static_cast<std::int64_t>(Joined(time.dwHighDateTime, time.dwLowDateTime)) / Units -
           Between;
}

FolderReader::Facts FactsOf(DWORD attributes, const FILETIME& written, std::uint64_t length) {
    const bool isFolder = attributes & FILE_ATTRIBUTE_DIRECTORY;
    return {isFolder, !isFolder && !(attributes & FILE_ATTRIBUTE_DEVICE), Seconds(written), length};
}

/// What is at a path, links followed; false when it cannot be opened.
bool LookAt(const std::string& path, BY_HANDLE_FILE_INFORMATION& info) {
    const HANDLE handle =
        ::CreateFileW(ToWide(path).c_str(), FILE_READ_ATTRIBUTES, ShareAll, nullptr, OPEN_EXISTING,
                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return false;
    const bool known = ::GetFileInformationByHandle(handle, &info);
    ::CloseHandle(handle);
    return known;
}

} // namespace

struct FolderReader::Open {
    ~Open() { ::FindClose(search); }

    std::string path;
    HANDLE search = INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAW item{};
    bool ahead = true; ///< `item` has not been handed out yet
    std::string name{};
};

FolderReader::FolderReader(const std::string& path, const FolderReader* base) {
    const std::string full = base && base->open_ ? JoinPath(base->open_->path, path) : path;
    WIN32_FIND_DATAW item{};
    const HANDLE search =
        ::FindFirstFileExW(ToWide(JoinPath(full, "*")).c_str(), FindExInfoBasic, &item,
                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE)
        error_ = LastError();
    else
        open_ = std::unique_ptr<Open>(new Open{full, search, item});
}

FolderReader::~FolderReader() = default;

FolderIdentity FolderReader::Identity() const {
    BY_HANDLE_FILE_INFORMATION info{};
    if (!open_ || !LookAt(open_->path, info)) return {};
    return {info.dwVolumeSerialNumber, Joined(info.nFileIndexHigh, info.nFileIndexLow)};
}

std::optional<FolderReader::Entry> FolderReader::Next() {
    error_ = {};
    for (;;) {
        if (!open_->ahead && !::FindNextFileW(open_->search, &open_->item)) {
            if (::GetLastError() != ERROR_NO_MORE_FILES) error_ = LastError();
            return std::nullopt;
        }
        open_->ahead = false;
        open_->name = FromWide(open_->item.cFileName);
        if (open_->name == "." || open_->name == "..") continue;
        const DWORD attributes = open_->item.dwFileAttributes;
        const Kind plain = attributes & FILE_ATTRIBUTE_DIRECTORY ? Kind::Folder : Kind::File;
        return Entry{open_->name, attributes & FILE_ATTRIBUTE_REPARSE_POINT ? Kind::Link : plain};
    }
}

std::optional<FolderReader::Facts> FolderReader::Look() {
    const WIN32_FIND_DATAW& item = open_->item;
    if (!(item.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return FactsOf(item.dwFileAttributes, item.ftLastWriteTime,
                       Joined(item.nFileSizeHigh, item.nFileSizeLow));
    const auto facts = Look(open_->name);
    if (!facts) error_ = LastError();
    return facts;
}

std::optional<FolderReader::Facts> FolderReader::Look(const std::string& name) const {
    BY_HANDLE_FILE_INFORMATION info{};
    if (!open_ || !LookAt(JoinPath(open_->path, name), info)) return std::nullopt;
    return FactsOf(info.dwFileAttributes, info.ftLastWriteTime,
                   Joined(info.nFileSizeHigh, info.nFileSizeLow));
}

} // namespace vk
