// One run of the synchronisation: a tree of folders copied into another one.
#pragma once

#include "platform/folder_reader.h"
#include "sync/dest_folder.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace vk {

struct SyncOrder {
    std::string source, dest; ///< full paths
    bool backup = false;      ///< what is replaced is kept
    /// Compares a file with the one at the destination, by length and time. Without it a file is
    /// compared with itself, so that only what is missing is copied.
    bool refresh = false;
    std::string backupName; ///< of the folders that keep what this run replaces
};

struct SyncResult {
    enum End { Whole, Aborted, NoSpace, SourceGone, DestGone };
    End end = Whole;
    int filesChecked = 0, filesCopied = 0, filesBackedUp = 0, filesFailed = 0;
    std::string failure; ///< why the first one failed
};

/// What a run tells of itself, on its own thread.
struct SyncListener {
    /// Whether the last status was looked at: one that nobody sees need not be made.
    std::function<bool()> watched;
    std::function<void(const std::string&)> status; ///< what it does, for the screen
    std::function<void(const std::string&)> log;
    std::function<void(const std::string& path)> copied; ///< a file that is whole at its place
    /// How far the file and the run are, of 100; false stops in the middle of the file.
    std::function<bool(int file, int run)> progress;
};

class FolderCopy {
  public:
    /// All of it outlives this object.
    FolderCopy(const SyncOrder& order, const SyncListener& listener)
        : order_(order), listener_(listener) {}

    /// Blocks until the run is over: for a thread of its own.
    SyncResult CopyFiles();

  private:
    /// A folder that is copied, on either side.
    struct Folders {
        std::string source, dest;
        FolderReader from; ///< of the source
        DestFolder to;
        Folders(const SyncOrder& order, const SourceFolder& folder)
            : source(order.source + folder.path), dest(order.dest + folder.path), from(source),
              to(dest, folder) {}
    };
    /// A file of it.
    struct Pair {
        Folders& in;
        const SourceFile& file;
        std::optional<FileFacts> there; ///< what the destination has
        std::string Source() const;
        std::string Dest() const;
    };
    void CopyFolder(const SourceFolder& folder);
    void Check(const Pair& pair);
    void backupFile(const Pair& pair);
    bool Differs(const Pair& pair);
    std::optional<std::string> Archive(const Pair& pair);
    bool Copy(const Pair& pair);
    bool makePath(const std::string& path);
    void Fail(const Pair& pair, const std::string& why);
    void Checking(const std::string& folder, std::string_view name);
    bool Told(std::uint64_t done, std::uint64_t total);
    bool HasRoom(std::int64_t needed);
    bool DestThere();
    bool Over() const { return result_.end != SyncResult::Whole; }

    const SyncOrder& order_;
    const SyncListener& listener_;
    SyncResult result_;
    FolderIdentity sourceRoot_, destRoot_;
    std::uint64_t total_ = 0, done_ = 0; ///< bytes of the files to look at, and of those looked at
    std::optional<std::int64_t> free_;   ///< bytes at the destination, since the last copy
};

} // namespace vk
