#include "platform/files.h"

#include "platform/paths.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <algorithm>

// Ours bears the name that windows.h makes a macro of.
#undef ReplaceFile

namespace vk {

namespace {

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A file handle that closes itself.
class FileHandle {
  public:
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    ~FileHandle() {
        if (*this) ::CloseHandle(handle_);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

HANDLE Open(const std::string& path, DWORD access, DWORD disposition) {
    return ::CreateFileW(ToWide(path).c_str(), access, ShareAll, nullptr, disposition,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool WriteAll(HANDLE file, std::string_view data) {
    while (!data.empty()) {
        const auto part = static_cast<DWORD>(std::min<std::size_t>(data.size(), 1u << 20));
        DWORD written = 0;
        if (!::WriteFile(file, data.data(), part, &written, nullptr) || written == 0) return false;
        data.remove_prefix(written);
    }
    return true;
}

bool WriteFlushed(const std::string& path, std::string_view contents) {
    const FileHandle file(Open(path, GENERIC_WRITE, CREATE_ALWAYS));
    return file && WriteAll(file.get(), contents) && ::FlushFileBuffers(file.get());
}

std::string LastErrorText() {
    wchar_t text[512] = L"";
    const DWORD length =
        ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                         ::GetLastError(), 0, text, 512, nullptr);
    std::wstring_view words(text, length);
    while (!words.empty() && words.back() <= L' ')
        words.remove_suffix(1);
    return FromWide(words);
}

DWORD Attributes(const std::string& path) {
    return ::GetFileAttributesW(ToWide(path).c_str());
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

} // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit) {
    const FileHandle file(Open(path, GENERIC_READ, OPEN_EXISTING));
    LARGE_INTEGER length{};
    if (!file || ::GetFileType(file.get()) != FILE_TYPE_DISK ||
        !::GetFileSizeEx(file.get(), &length))
        return std::nullopt;
    std::string contents;
    contents.resize(std::min(limit, static_cast<std::size_t>(length.QuadPart)));
    std::size_t filled = 0;
    while (filled < contents.size()) {
        const auto part =
            static_cast<DWORD>(std::min<std::size_t>(contents.size() - filled, 1u << 20));
        DWORD got = 0;
        if (!::ReadFile(file.get(), contents.data() + filled, part, &got, nullptr))
            return std::nullopt;
        if (got == 0) break;
        filled += got;
    }
    contents.resize(filled);
    return contents;
}

bool ReplaceFile(const std::string& path, std::string_view contents, std::string* reason) {
    const std::string temporary = path + ".new";
    if (WriteFlushed(temporary, contents) &&
        ::MoveFileExW(ToWide(temporary).c_str(), ToWide(path).c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return true;
    if (reason) *reason = LastErrorText();
    DeleteFileAt(temporary);
    return false;
}

bool AppendToFile(const std::string& path, std::string_view contents) {
    const FileHandle file(Open(path, FILE_APPEND_DATA, OPEN_ALWAYS));
    return file && WriteAll(file.get(), contents);
}

bool RenameFlushed(const std::string& from, const std::string& to) {
    return FlushFile(from) && ::MoveFileExW(ToWide(from).c_str(), ToWide(to).c_str(),
                                            MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

bool FlushFile(const std::string& path) {
    const FileHandle file(Open(path, GENERIC_WRITE, OPEN_EXISTING));
    return file && ::FlushFileBuffers(file.get());
}

bool CopyFileTo(const std::string& from, const std::string& to) {
    const auto contents = ReadWholeFile(from, static_cast<std::size_t>(-1) / 2);
    return contents && ReplaceFile(to, *contents);
}

bool DeleteFileAt(const std::string& path) {
    return ::DeleteFileW(ToWide(path).c_str()) != 0;
}

bool MakeFolder(const std::string& path) {
    return ::CreateDirectoryW(ToWide(path).c_str(), nullptr);
}

bool IsProgramFile(const std::string& path) {
    const auto dot = path.rfind('.');
    return FileExists(path) && dot != std::string::npos && path.size() - dot == 4 &&
           ::_stricmp(path.c_str() + dot, ".exe") == 0;
}

bool FileExists(const std::string& path) {
    const DWORD attributes = Attributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool FolderExists(const std::string& path) {
    const DWORD attributes = Attributes(WithoutTrailingSeparator(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::uint64_t FileLength(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExW(ToWide(path).c_str(), GetFileExInfoStandard, &data) ||
        (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
        return 0;
    return Joined(data.nFileSizeHigh, data.nFileSizeLow);
}

std::vector<FolderEntry> ListFolder(const std::string& path, const std::function<bool()>& pulse) {
    std::vector<FolderEntry> entries;
    WIN32_FIND_DATAW item{};
    const HANDLE search = ::FindFirstFileW(ToWide(JoinPath(path, "*")).c_str(), &item);
    if (search == INVALID_HANDLE_VALUE) return entries;
    do {
        const std::string name = FromWide(item.cFileName);
        if (name == "." || name == "..") continue;
        const bool isFolder = item.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
        entries.push_back(
            {name, isFolder, isFolder ? 0 : Joined(item.nFileSizeHigh, item.nFileSizeLow)});
        if (pulse && entries.size() % 256 == 0 && !pulse()) break;
    } while (::FindNextFileW(search, &item));
    ::FindClose(search);
    return entries;
}

std::string ExecutableFolder() {
    std::wstring path(32768, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return FolderOf(FromWide(path));
}

} // namespace vk
