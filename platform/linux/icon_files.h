// Pictures of programs by the names that desktop entries give them.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vk {

class IconFiles {
  public:
    /// Looks below `icons/hicolor` and `pixmaps` of each of these folders.
    explicit IconFiles(std::vector<std::string> dataFolders) : folders_(std::move(dataFolders)) {}
    /// The full path of a PNG picture, near to the size of a list's row; "" for none.
    std::string Find(const std::string& name) const;

  private:
    std::vector<std::string> folders_;
};

} // namespace vk
