// From a line of a list that another program or system wrote to the file that it means.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace vk {

/// True for the address of a stream ("http://..."), which names no file.
bool IsStreamAddress(std::string_view line);

/// The existing file that a line of the list in `folder` names, "" when there is none. It is tried
/// as it stands, in UTF-8 when it was written in Windows-1252, with "\" for the separator, and with
/// "%20" and its like for the bytes they stand for; "file://" before it is dropped
/// (https://www.rfc-editor.org/rfc/rfc8089). A name that is not found as it stands counts from
/// `folder`.
std::string ResolveListEntry(const std::string& line, const std::string& folder);

/// The same for the lines of one list, and then by names in another case or with accents written
/// as letter and mark. What folders hold is read once.
class EntryResolver {
  public:
    explicit EntryResolver(std::string folder) : folder_(std::move(folder)) {}
    std::string Resolve(const std::string& line);

  private:
    using Names = std::unordered_map<std::string, std::string>; ///< by their comparison keys

    std::string Search(const std::string& path);
    const Names& NamesIn(const std::string& folder);

    const std::string folder_;
    std::unordered_map<std::string, Names> folders_;
};

} // namespace vk
