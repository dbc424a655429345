#include "sync/folder_copy.h"

#include "core/text.h"
#include "platform/copy_file.h"
#include "platform/file_date.h"
#include "platform/file_state.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vk {

namespace {

// FAT keeps times in steps of 2 s.
constexpr std::int64_t CoarsestTime = 2;

int Percent(std::uint64_t done, std::uint64_t total) {
    if (total == 0) return 100;
    return static_cast<int>(100.0 * static_cast<double>(std::min(done, total)) /
                            static_cast<double>(total));
}

// The file systems that cannot take such names say no more than "invalid".
std::string WithHint(const std::string& why, const std::string& name) {
    const bool rare = name.find_first_of("<>:\"|?*\\") != std::string::npos ||
                      name.ends_with('.') || name.ends_with(' ');
    return rare ? why + " (the destination may not take such a name)" : why;
}

} // namespace

SyncResult FolderCopy::CopyFiles() {
    sourceRoot_ = FolderReader(order_.source).Identity();
    const WalkListener walking{[&](const std::string& path) {
                                   listener_.status("Checking: " + path);
                                   return listener_.progress(0, 0);
                               },
                               listener_.log};
    listener_.log(order_.refresh ? "rule: missing and changed files are copied"
                                 : "rule: missing files are copied");
    const auto folders = WalkSource(order_.source, order_.dest, walking);
    if (!folders || FolderReader(order_.source).Identity() != sourceRoot_) {
        result_.end = folders ? SyncResult::SourceGone : SyncResult::Aborted;
        return result_;
    }
    for (const SourceFolder& folder : *folders)
        for (const SourceFile& file : folder.files)
            total_ += file.length;
    destRoot_ = FolderReader(order_.dest).Identity();
    for (const SourceFolder& folder : *folders) {
        if (Over()) break;
        CopyFolder(folder);
    }
    return result_;
}

void FolderCopy::CopyFolder(const SourceFolder& folder) {
    const std::string dest = order_.dest + folder.path;
    if (FolderReader(order_.dest).Identity() != destRoot_) {
        result_.end = SyncResult::DestGone;
        return;
    }
    if (!makePath(dest)) listener_.log("no folder could be made: " + dest);
    ReadDest(dest);
    const int before = result_.filesCopied;
    for (const SourceFile& file : folder.files) {
        const std::string to = JoinPath(dest, file.name);
        Check({JoinPath(order_.source + folder.path, file.name), to, file, LengthThere(file, to)});
        if (Over()) break;
        ++result_.filesChecked;
        done_ += file.length;
    }
    if (result_.filesCopied > before) FlushFile(dest);
}

void FolderCopy::ReadDest(const std::string& folder) {
    there_.clear();
    names_.clear();
    free_.reset();
    for (FolderEntry& entry : ListFolder(folder))
        if (!entry.isFolder) there_.emplace(std::move(entry.name), entry.length);
}

// A name in other letters may be the same file.
std::optional<std::uint64_t> FolderCopy::LengthThere(const SourceFile& file,
                                                     const std::string& dest) const {
    if (const auto known = there_.find(file.name); known != there_.end()) return known->second;
    if (!FileExists(dest)) return std::nullopt;
    return FileLength(dest);
}

// Room is asked for by the difference of the lengths, the destination's first.
void FolderCopy::Check(const Pair& pair) {
    listener_.status("Checking: " + pair.source);
    if (!Told(0, pair.file.length)) return;
    if (IsTaken(pair)) return;
    const auto length = static_cast<std::int64_t>(pair.file.length);
    const auto needed = pair.there ? static_cast<std::int64_t>(*pair.there) - length : length;
    if (!HasRoom(needed)) {
        result_.end = SyncResult::NoSpace;
        listener_.log("sync aborted due to insufficient disk space");
    } else if (pair.there) {
        backupFile(pair);
    } else {
        Copy(pair);
    }
}

// Two names that differ in case alone are one file on some file systems.
bool FolderCopy::IsTaken(const Pair& pair) {
    const bool own =
        !pair.there || there_.contains(pair.file.name) || !names_.contains(ToUpper(pair.file.name));
    if (own) return false;
    Fail(pair, "the destination has a file of this name in other letters");
    return true;
}

bool FolderCopy::Differs(const Pair& pair) const {
    if (!order_.refresh) return FileDate(pair.source) != pair.file.written;
    const std::int64_t older = pair.file.written - FileDate(pair.dest).value_or(0);
    return older > CoarsestTime || (older >= -CoarsestTime && pair.there != pair.file.length);
}

void FolderCopy::backupFile(const Pair& pair) {
    if (!Differs(pair)) return;
    if (order_.backup && !Archive(pair)) return;
    Copy(pair);
}

bool FolderCopy::Archive(const Pair& pair) {
    const std::string folder = JoinPath(FolderOf(pair.dest), order_.backupName);
    const std::string kept = JoinPath(folder, pair.file.name);
    listener_.log("archiving: " + pair.dest + "  to  " + kept);
    if (!makePath(folder) || !RenameFlushed(pair.dest, kept)) {
        Fail(pair, "what is there could not be archived");
        return false;
    }
    ++result_.filesBackedUp;
    return true;
}

void FolderCopy::Copy(const Pair& pair) {
    listener_.status("Copying: " + pair.source);
    listener_.log("copying: " + pair.source + "  to  " + pair.dest);
    const FileStamp before = StampOf(pair.source);
    const CopyOutcome outcome =
        CopyInPieces(pair.source, pair.dest,
                     [this](std::uint64_t done, std::uint64_t total) { return Told(done, total); });
    if (outcome.kind == CopyOutcome::Failed) Fail(pair, WithHint(outcome.reason, pair.file.name));
    free_.reset();
    if (outcome.kind != CopyOutcome::Done) return;
    names_.insert(ToUpper(pair.file.name));
    if (!StampOf(pair.source).SameAs(before))
        listener_.log("it has changed while it was copied: " + pair.source);
    ++result_.filesCopied;
    listener_.copied(pair.dest);
}

bool FolderCopy::makePath(const std::string& path) {
    return FolderExists(path) || (makePath(FolderOf(path)) && MakeFolder(path));
}

// A failure does not stop the run, unless what it reads or writes has gone as a whole.
void FolderCopy::Fail(const Pair& pair, const std::string& why) {
    listener_.log("not copied: " + pair.source + "  to  " + pair.dest + ": " + why);
    ++result_.filesFailed;
    if (FolderReader(order_.source).Identity() != sourceRoot_)
        result_.end = SyncResult::SourceGone;
    else if (FolderReader(order_.dest).Identity() != destRoot_)
        result_.end = SyncResult::DestGone;
}

bool FolderCopy::Told(std::uint64_t done, std::uint64_t total) {
    if (!listener_.progress(Percent(done, total), Percent(done_ + done, total_)))
        result_.end = SyncResult::Aborted;
    return !Over();
}

// Where it cannot be told the copying itself shows it.
bool FolderCopy::HasRoom(std::int64_t needed) {
    if (!free_) {
        const auto free = FreeSpace(order_.dest);
        free_ = free ? static_cast<std::int64_t>(*free) : std::numeric_limits<std::int64_t>::max();
    }
    return *free_ > needed;
}

} // namespace vk
