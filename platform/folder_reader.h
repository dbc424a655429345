// A folder read entry by entry, asking no more of the file system than is needed: for walks over
// large trees.
#pragma once

#include <compare>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace vk {

/// Which folder it is, whatever name led to it. A mounted drive is a volume of its own.
struct FolderIdentity {
    std::uint64_t volume = 0;
    std::uint64_t number = 0; ///< on its volume
    // NOLINTNEXTLINE(modernize-use-nullptr): mistaken for a null pointer
    auto operator<=>(const FolderIdentity&) const = default;
};

class FolderReader {
  public:
    /// What the folder itself says of an entry; of the last kind it says nothing.
    enum class Kind { File, Folder, Link, Other, Unknown };

    struct Entry {
        std::string_view name; ///< until the next one is read
        Kind kind = Kind::Unknown;
    };

    /// What an entry is when it is looked at, links followed.
    struct Facts {
        bool isFolder = false;
        bool isFile = false;      ///< a regular one
        std::int64_t written = 0; ///< seconds since 1970
        std::uint64_t length = 0; ///< bytes
    };

    /// Opens the folder at `path`; with `base` a path below that folder, which is found also when
    /// something above `base` has got another name; an empty one is `base` itself. Never waits for
    /// a pipe.
    explicit FolderReader(const std::string& path, const FolderReader* base = nullptr);
    ~FolderReader();
    FolderReader(const FolderReader&) = delete;
    FolderReader& operator=(const FolderReader&) = delete;

    /// Why the last operation failed; nothing when it did not.
    std::error_code Error() const { return error_; }
    /// All 0 when the folder is not open.
    FolderIdentity Identity() const;
    /// The next entry but "." and ".."; nothing at the end or on a failure.
    std::optional<Entry> Next();
    /// Looks at the entry that was read last.
    std::optional<Facts> Look();
    /// Whether that entry is a folder or a file, links followed; nothing for what is neither. Looks
    /// at it only where the folder itself does not tell.
    std::optional<bool> IsFolder(const Entry& entry) {
        if (entry.kind == Kind::Folder || entry.kind == Kind::File)
            return entry.kind == Kind::Folder;
        const auto facts = Look();
        if (!facts || (!facts->isFolder && !facts->isFile)) return std::nullopt;
        return facts->isFolder;
    }
    /// Looks at the entry of that name; nothing when it is not there or the folder is not open.
    std::optional<Facts> Look(const std::string& name) const;

  private:
    struct Open;
    std::unique_ptr<Open> open_; ///< null: not open
    std::error_code error_;
};

} // namespace vk
