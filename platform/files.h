// Whole-file reading and replacing, and the file tests that every subsystem needs. Paths are UTF-8
// on Windows and bytes as the file system has them elsewhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The contents of a regular file, at most `limit` bytes of it; nothing when it cannot be opened,
/// or is no regular file (a folder, pipe or device is never waited for).
std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit = 16u << 20);

/// Replaces a file in one step: written to a temporary name beside it, flushed to the disk and
/// renamed, so that a power cut leaves the old file or the new one. False when any step failed; the
/// old file is then as it was. `reason` (optional) receives the system's words.
bool ReplaceFile(const std::string& path, std::string_view contents, std::string* reason = nullptr);

/// Appends to a file, making it when it is missing. False when that failed.
bool AppendToFile(const std::string& path, std::string_view contents);

/// Puts a complete file in place of another in one step and flushes both to the disk: a power cut
/// leaves the old file or the new one. False, and both stay, when that failed.
bool RenameFlushed(const std::string& from, const std::string& to);

/// Waits until a file is on the disk, whoever wrote it.
bool FlushFile(const std::string& path);

bool CopyFileTo(const std::string& from, const std::string& to);
bool DeleteFileAt(const std::string& path);

/// Makes one folder in a folder that exists; false when it could not be made.
bool MakeFolder(const std::string& path);

/// True when `path` is an existing file (of any kind but a folder).
bool FileExists(const std::string& path);
/// True when `path` is an existing folder, with or without a trailing separator. An empty path is
/// the root, which is always there.
bool FolderExists(const std::string& path);
/// True when `path` is a file that can be started as a program.
bool IsProgramFile(const std::string& path);
/// Length in bytes; 0 for what is missing or no regular file.
std::uint64_t FileLength(const std::string& path);

/// One entry of a folder.
struct FolderEntry {
    std::string name;
    bool isFolder = false;
    std::uint64_t length = 0; ///< bytes; 0 for folders
};

/// The entries of a folder but "." and "..", links followed, in the file system's order; a broken
/// link is left out. An unreadable folder gives an empty list. `pulse` (optional) is called now and
/// then on long folders and may return false to stop the walk early.
std::vector<FolderEntry> ListFolder(const std::string& path,
                                    const std::function<bool()>& pulse = {});

} // namespace vk
