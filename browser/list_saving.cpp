// Saving the list that was built.
#include "browser/list_editor.h"
#include "core/text.h"
#include "library/lists/list_file.h"
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
           name.find_first_not_of('.') != std::string::npos &&
           std::ranges::none_of(name, [](unsigned char c) { return c < ' ' || c == 0x7F; });
}

} // namespace

std::string ListEditor::DefaultName() const {
    return ShownListName(EditListPath);
}

std::string ListEditor::TargetPath(const std::string& name) const {
    if (!EditListPath.empty() && EqualNoCase(name, DefaultName())) return EditListPath;
    if (channels_) return desk_.needs.settings.File(name + ".xcl");
    return JoinPath(desk_.needs.settings.values.PlaylistDir, name + ".m3u");
}

bool ListEditor::HasPlaylistFolder() const {
    const std::string& folder = desk_.needs.settings.values.PlaylistDir;
    return !folder.empty() && FolderExists(folder);
}

std::string ListEditor::NameProblem(const std::string& name, const std::string& path) const {
    if (name.empty()) return "Please type a name.";
    if (!IsFileName(name)) return "A list cannot have this name.";
    if (FileNameOf(path).size() > LongestFileName) return "The name is too long.";
    if (!channels_ && !HasPlaylistFolder()) return NoPlaylistFolder;
    if (NameTaken(path)) return "There is a list of this name.";
    return {};
}

std::vector<std::string> ListEditor::Entries() const {
    std::vector<std::string> entries;
    for (int row = 0; row < right_.ItemCount(); ++row) {
        const std::string descriptor = right_.GetFileNameListusercontrol(row);
        const auto end = descriptor.find(channels_ ? '|' : ':');
        if (!descriptor.empty()) entries.push_back(descriptor.substr(end + 1));
    }
    return entries;
}

SaveResult ListEditor::Refuse(const std::string& why) {
    message_ = why;
    return SaveResult::Refused;
}

SaveResult ListEditor::Save(const std::string& text) {
    message_ = "Not Saved ";
    if (!editing_ || text.empty()) return SaveResult::NotSaved;
    const std::string name = Trim(text);
    const std::string path = TargetPath(name);
    const std::string problem = path == EditListPath ? "" : NameProblem(name, path);
    return problem.empty() ? Write(name, path) : Refuse(problem);
}

SaveResult ListEditor::Write(const std::string& name, const std::string& path) {
    const bool updated = path == EditListPath;
    std::string reason;
    if (!WriteListFile(path, "", Entries(), &reason)) {
        desk_.needs.report.Log("could not write " + ToUtf8(path) + ": " + reason);
        return Refuse("Not saved: " + reason);
    }
    // Only now: whatever happens there is a whole list, the old or the new one.
    if (!updated && FileExists(EditListPath) && !DeleteFileAt(EditListPath))
        desk_.needs.report.Log("could not remove " + ToUtf8(EditListPath));
    if (desk_.needs.catalogue && path != desk_.needs.settings.File("favorites.m3u"))
        desk_.needs.catalogue->UpdateFileRow(path);
    EditListPath = path;
    message_ = updated ? name + " Has Been Updated " : "Saved: " + name;
    return SaveResult::Saved;
}

} // namespace vk
