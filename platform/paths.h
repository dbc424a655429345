// Where things lie.
#pragma once

#include <string>

namespace vk {

#ifdef _WIN32
inline constexpr char PathSeparator = '\\';
#else
inline constexpr char PathSeparator = '/';
#endif

/// The folder of the running executable, without a trailing separator.
std::string ExecutableFolder();

/// `folder` and `name` joined by exactly one separator.
std::string JoinPath(const std::string& folder, const std::string& name);

/// What follows the last separator; the whole text when there is none.
std::string FileNameOf(const std::string& path);

/// What precedes the last separator, "" when there is none; the folder of a top-level entry is the
/// root itself.
std::string FolderOf(const std::string& path);

/// What follows the last "." of the file name, without it and as it is written; "" when none.
std::string ExtensionOf(const std::string& path);

/// The path without trailing separators; a root stays.
std::string WithoutTrailingSeparator(const std::string& path);

/// True for a path that does not count from some folder.
bool IsAbsolutePath(const std::string& path);

/// True for the root of a drive ("C:\", or "/" where there are no letters).
bool IsRoot(const std::string& path);

} // namespace vk
