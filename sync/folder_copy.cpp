#include "sync/folder_copy.h"

#include "platform/copy_file.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace vk {

namespace {

// FAT keeps times in steps of 2 s, and those of the clock on the wall: summer time moves them all.
constexpr std::int64_t CoarsestTime = 2, SummerTime = 3600;

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

bool IsNewer(const FileFacts& from, const FileFacts& there) {
    const std::int64_t older = from.written - there.written;
    const bool sameLength = from.length == there.length;
    if (sameLength && std::abs(std::abs(older) - SummerTime) <= CoarsestTime) return false;
    return older > CoarsestTime || (older >= -CoarsestTime && !sameLength);
}

bool IsThere(const std::string& folder, const FolderIdentity& as) {
    return as != FolderIdentity() && FolderReader(folder).Identity() == as;
}

} // namespace

std::string FolderCopy::Pair::Source() const {
    return JoinPath(in.source, file.name);
}

std::string FolderCopy::Pair::Dest() const {
    return JoinPath(in.dest, file.name);
}

SyncResult FolderCopy::CopyFiles() {
    sourceRoot_ = FolderReader(order_.source).Identity();
    destRoot_ = FolderReader(order_.dest).Identity();
    const WalkListener walking{[&](const std::string& folder, std::string_view name) {
                                   Checking(folder, name);
                                   return listener_.progress(0, 0);
                               },
                               listener_.log};
    listener_.log(order_.refresh ? "rule: missing and changed files are copied"
                                 : "rule: missing files are copied");
    const auto folders = WalkSource(order_.source, order_.dest, walking);
    if (!folders || !IsThere(order_.source, sourceRoot_)) {
        result_.end = folders ? SyncResult::SourceGone : SyncResult::Aborted;
        return result_;
    }
    for (const SourceFolder& folder : *folders)
        for (const SourceFile& file : folder.files)
            total_ += file.length;
    for (const SourceFolder& folder : *folders) {
        if (Over()) break;
        CopyFolder(folder);
    }
    return result_;
}

void FolderCopy::CopyFolder(const SourceFolder& folder) {
    if (!DestThere()) return;
    if (!makePath(order_.dest + folder.path))
        listener_.log("no folder could be made: " + order_.dest + folder.path);
    Folders both(order_, folder);
    free_.reset();
    const int before = result_.filesCopied;
    for (const SourceFile& file : folder.files) {
        Check({both, file, both.to.Find(file.name)});
        if (Over()) break;
        ++result_.filesChecked;
        done_ += file.length;
    }
    if (result_.filesCopied > before) FlushFile(both.dest);
}

void FolderCopy::Checking(const std::string& folder, std::string_view name) {
    if (listener_.watched()) listener_.status("Checking: " + JoinPath(folder, std::string(name)));
}

// Room is asked for by the difference of the lengths, the destination's first.
void FolderCopy::Check(const Pair& pair) {
    Checking(pair.in.source, pair.file.name);
    if (!Told(0, pair.file.length)) return;
    if (pair.there && pair.in.to.IsTaken(pair.file.name))
        return Fail(pair, "the destination has a file of this name in other letters");
    const auto length = static_cast<std::int64_t>(pair.file.length);
    const auto needed =
        pair.there ? static_cast<std::int64_t>(pair.there->length) - length : length;
    if (!HasRoom(needed)) {
        result_.end = SyncResult::NoSpace;
        listener_.log("sync aborted due to insufficient disk space");
    } else if (pair.there) {
        backupFile(pair);
    } else {
        Copy(pair);
    }
}

bool FolderCopy::Differs(const Pair& pair) {
    if (order_.refresh) return IsNewer(pair.file, *pair.there);
    if (result_.filesCopied == 0) return false; // nothing took long: the listing is of this moment
    const auto now = pair.in.from.Look(pair.file.name);
    if (!now) Fail(pair, "it has gone");
    return now && now->written != pair.file.written;
}

// What was archived comes back when nothing takes its place.
void FolderCopy::backupFile(const Pair& pair) {
    if (!Differs(pair)) return;
    std::optional<std::string> kept;
    if (order_.backup && !(kept = Archive(pair))) return;
    const bool copied = Copy(pair);
    if (!kept) return;
    if (!copied && RenameFlushed(*kept, pair.Dest()))
        listener_.log("put back: " + pair.Dest());
    else
        ++result_.filesBackedUp;
}

std::optional<std::string> FolderCopy::Archive(const Pair& pair) {
    const std::string folder = JoinPath(pair.in.dest, order_.backupName);
    const std::string kept = JoinPath(folder, pair.file.name);
    listener_.log("archiving: " + pair.Dest() + "  to  " + kept);
    if (makePath(folder) && RenameFlushed(pair.Dest(), kept)) return kept;
    Fail(pair, "what is there could not be archived");
    return std::nullopt;
}

bool FolderCopy::Copy(const Pair& pair) {
    if (!DestThere()) return false;
    const std::string source = pair.Source(), dest = pair.Dest();
    listener_.status("Copying: " + source);
    listener_.log("copying: " + source + "  to  " + dest);
    const CopyOutcome outcome = CopyInPieces(
        source, dest, [this](std::uint64_t done, std::uint64_t total) { return Told(done, total); },
        WhenChanged::Fail);
    if (outcome.kind == CopyOutcome::Failed) Fail(pair, WithHint(outcome.reason, pair.file.name));
    free_.reset();
    if (outcome.kind != CopyOutcome::Done) return false;
    pair.in.to.Add(pair.file.name);
    ++result_.filesCopied;
    listener_.copied(dest);
    return true;
}

bool FolderCopy::makePath(const std::string& path) {
    return FolderExists(path) || (makePath(FolderOf(path)) && MakeFolder(path));
}

// A failure does not stop the run, unless what it reads or writes has gone as a whole.
void FolderCopy::Fail(const Pair& pair, const std::string& why) {
    listener_.log("not copied: " + pair.Source() + "  to  " + pair.Dest() + ": " + why);
    if (result_.filesFailed++ == 0) result_.failure = why;
    if (!IsThere(order_.source, sourceRoot_))
        result_.end = SyncResult::SourceGone;
    else
        DestThere();
}

// Where a drive was unplugged its mount point is a folder still, of another disk.
bool FolderCopy::DestThere() {
    if (IsThere(order_.dest, destRoot_)) return true;
    result_.end = SyncResult::DestGone;
    return false;
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
