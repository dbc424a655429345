#include "sync/source_walk.h"

#include "core/text.h"
#include "platform/folder_reader.h"
#include "platform/paths.h"

#include <algorithm>
#include <set>

namespace vk {

namespace {

constexpr std::string_view DoNotCopy = "vk_do_not_copy";

bool MarksAsNotToCopy(std::string_view name) {
    return StartsWithNoCase(name, DoNotCopy) &&
           (name.size() == DoNotCopy.size() || name[DoNotCopy.size()] == '.');
}

// The last one is what later versions of the platform call the first.
bool Ignored(std::string_view name) {
    constexpr std::string_view Names[] = {"RECYCLER", "SYSTEM VOLUME INFORMATION", "THUMBS.DB",
                                          "DESKTOP.INI", "$RECYCLE.BIN"};
    return std::ranges::any_of(Names, [&](std::string_view one) { return EqualNoCase(name, one); });
}

/// One walk; recursion is as deep as the tree.
class Walk {
  public:
    Walk(const std::string& source, const std::string& except, const WalkListener& listener)
        : source_(source), listener_(listener) {
        if (const FolderIdentity own = FolderReader(except).Identity(); own != FolderIdentity())
            seen_.insert(own);
    }

    bool Enter(const std::string& path) {
        std::vector<std::string> below;
        return List(path, below) && std::ranges::all_of(below, [&](const std::string& name) {
                   return Enter(path + PathSeparator + name);
               });
    }

    std::vector<SourceFolder> found;

  private:
    /// The folder alone; `below` gets the names of those in it. False when the walk was ended.
    bool List(const std::string& path, std::vector<std::string>& below) {
        const std::string full = source_ + path;
        FolderReader reader(full);
        if (reader.Error()) return LeaveOut(full, reader.Error().message());
        if (!seen_.insert(reader.Identity()).second)
            return LeaveOut(full, "it is the destination or was entered by another name");
        std::vector<std::string> folders;
        SourceFolder folder{path, {}};
        while (const auto entry = reader.Next()) {
            if (MarksAsNotToCopy(entry->name))
                return LeaveOut(JoinPath(full, std::string(entry->name)),
                                "marks its folder as not to be copied");
            if (Ignored(entry->name)) continue;
            if (!listener_.entry(full, entry->name)) return false;
            Take(reader, full, std::string(entry->name), folder, folders);
        }
        if (reader.Error()) LeaveOut(full, reader.Error().message() + ", what follows in it");
        std::ranges::sort(folder.files, {}, &SourceFile::name);
        found.push_back(std::move(folder));
        below = std::move(folders);
        return true;
    }
    void Take(FolderReader& reader, const std::string& in, std::string name, SourceFolder& folder,
              std::vector<std::string>& below) const {
        const auto facts = reader.Look();
        if (!facts)
            LeaveOut(JoinPath(in, name), reader.Error().message());
        else if (facts->isFolder)
            below.push_back(std::move(name));
        else if (facts->isFile)
            folder.files.push_back({{facts->length, facts->written}, std::move(name)});
        else
            LeaveOut(JoinPath(in, name), "it is no file");
    }
    bool LeaveOut(const std::string& path, const std::string& why) const {
        listener_.leftOut("left out: " + path + ": " + why);
        return true;
    }

    const std::string& source_;
    const WalkListener& listener_;
    std::set<FolderIdentity> seen_;
};

} // namespace

std::optional<std::vector<SourceFolder>>
WalkSource(const std::string& source, const std::string& except, const WalkListener& listener) {
    Walk walk(source, except, listener);
    if (!walk.Enter("")) return std::nullopt;
    return std::move(walk.found);
}

} // namespace vk
