#include "browser/saved_list.h"

#include "core/text.h"
#include "library/tags/media_type.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

// What names of files cannot hold, here or on the sticks and discs of other systems.
constexpr std::string_view Reserved = "\\/:*?\"<>|";
// File systems allow 255 bytes; the temporary file beside the list needs some more than its name.
constexpr std::size_t LongestFileName = 240;

// The file's name without extension, as it is shown.
std::string ShownListName(const std::string& path) {
    const std::string name = FileNameOf(path);
    return Trim(ToUtf8(name.substr(0, name.rfind('.'))));
}

// Names that differ in case only are taken for one, as they are on the media of other systems.
bool NameTaken(const std::string& path) {
    const std::string name = FileNameOf(path);
    return std::ranges::any_of(ListFolder(FolderOf(path)), [&](const FolderEntry& entry) {
        return EqualNoCase(entry.name, name);
    });
}

bool IsFileName(const std::string& name) {
    return name.find_first_of(Reserved) == std::string::npos &&
           !IsSystemName(name) && // it would be in no list
           std::ranges::none_of(name, [](unsigned char c) { return c < ' ' || c == 0x7F; });
}

} // namespace

void SavedList::Open(const std::string& path, bool ofChannels) {
    path_ = opened_ = path;
    channels_ = ofChannels;
}

std::string SavedList::DefaultName() const {
    return ShownListName(path_);
}

std::string SavedList::TargetPath(const std::string& name) const {
    if (!path_.empty() && EqualNoCase(name, DefaultName())) return path_;
    if (channels_) return desk_.needs.base.settings.File(name + ".xcl");
    return JoinPath(desk_.needs.Options().PlaylistDir, name + ".m3u");
}

bool SavedList::HasFolder() const {
    const std::string& folder = desk_.needs.Options().PlaylistDir;
    return !folder.empty() && FolderExists(folder);
}

std::string SavedList::NameProblem(const std::string& name, const std::string& path) const {
    if (name.empty()) return "Please type a name.";
    if (!IsFileName(name)) return "A list cannot have this name.";
    if (FileNameOf(path).size() > LongestFileName) return "The name is too long.";
    if (!channels_ && !HasFolder()) return NoPlaylistFolder;
    if (NameTaken(path)) return "There is a list of this name.";
    return {};
}

SaveResult SavedList::Refuse(const std::string& why) {
    message_ = why;
    return SaveResult::Refused;
}

SaveResult SavedList::Save(const std::string& text, bool changed, const Contents& contents) {
    message_ = "Not Saved ";
    if (text.empty()) return SaveResult::NotSaved;
    const std::string name = Trim(text);
    const std::string path = TargetPath(name);
    const std::string problem = path == path_ ? "" : NameProblem(name, path);
    if (!problem.empty()) return Refuse(problem);
    return path == path_ && !changed ? Saved(name, path) : Write(name, path, contents(path));
}

SaveResult SavedList::Write(const std::string& name, const std::string& path,
                            const std::string& contents) {
    std::string reason;
    if (!ReplaceFile(path, contents, &reason)) {
        desk_.needs.base.report.Log("could not write " + ToUtf8(path) + ": " + reason);
        return Refuse("Not saved: " + reason);
    }
    // Only now: whatever happens there is a whole list, the old or the new one.
    if (path != path_ && FileExists(path_) && !DeleteFileAt(path_))
        desk_.needs.base.report.Log("could not remove " + ToUtf8(path_));
    if (desk_.needs.library.catalogue && path != desk_.needs.base.settings.File("favorites.m3u"))
        desk_.needs.library.catalogue->UpdateFileRow(path);
    return Saved(name, path);
}

SaveResult SavedList::Saved(const std::string& name, const std::string& path) {
    const bool updated = path == path_;
    path_ = path;
    message_ = updated ? name + " Has Been Updated " : "Saved: " + name;
    return SaveResult::Saved;
}

} // namespace vk
