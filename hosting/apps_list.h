// The programs that the user has listed, `apps.lst`: one a line, fields parted by "|".
#pragma once

#include "core/debug_log.h"

#include <optional>
#include <string>
#include <vector>

namespace vk {

inline constexpr const char* AppsListName = "apps.lst";

/// A line of the list.
struct ListedApp {
    std::string command; ///< path of the program, a blank and its arguments if any
    std::string name;    ///< shown to the user
    bool maximize = false;
    bool force = false; ///< of the maximise

    /// Nothing for a line that is none: without a command, with control characters, or far too
    /// long. A line of fewer fields is taken as far as it goes; a missing name is the command.
    static std::optional<ListedApp> Parse(const std::string& line);
    std::string Line() const;
};

/// The file. Every change replaces it in one step and leaves the lines that mean nothing here as
/// they stand.
class AppsList {
  public:
    /// A longer file is no such list: its beginning is read, and it is not changed; bytes.
    static constexpr std::size_t LongestFile = 1u << 20;
    static constexpr std::size_t LongestLine = 8192; ///< bytes

    /// `log`, told of what cannot be read, outlives this object.
    AppsList(std::string path, const DebugLog& log) : path_(std::move(path)), log_(log) {}

    bool Exists() const;
    /// In the order of the file.
    std::vector<ListedApp> Read() const;
    /// False when the file could not be written.
    bool Add(const ListedApp& app) const;
    /// Takes out the line at this place of `Read`, when it is still that one.
    bool Remove(std::size_t place, const ListedApp& app) const;

  private:
    std::vector<std::string> Lines() const;
    bool Write(const std::vector<std::string>& lines) const;

    std::string path_;
    const DebugLog& log_;
    mutable std::size_t strange_ = 0; ///< lines that were last told of
};

} // namespace vk
