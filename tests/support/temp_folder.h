// A folder that lives as long as one test.
#pragma once

#include "platform/files.h"
#include "platform/paths.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace vk::test {

class TempFolder {
  public:
    TempFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "velkorandum-test-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& Path() const { return path_; }
    std::string File(const std::string& name) const { return JoinPath(path_, name); }
    /// Writes a file, making the folders above it; returns its full path.
    std::string Write(const std::string& name, std::string_view contents) const {
        std::string full = File(name);
        std::filesystem::create_directories(FolderOf(full));
        ReplaceFile(full, contents);
        return full;
    }
    std::string Read(const std::string& name) const {
        return ReadWholeFile(File(name)).value_or("");
    }
    std::string MakeFolder(const std::string& name) const {
        std::filesystem::create_directories(File(name));
        return File(name);
    }

  private:
    std::string path_;
};

} // namespace vk::test
