#include "sync/dest_folder.h"

#include "library/text/comparison_key.h"

#include <algorithm>

namespace vk {

namespace {

const SourceFile* Named(const std::vector<SourceFile>& files, const std::string& name) {
    const auto found = std::ranges::lower_bound(files, name, {}, &SourceFile::name);
    return found != files.end() && found->name == name ? &*found : nullptr;
}

} // namespace

DestFolder::DestFolder(const std::string& path, const SourceFolder& from)
    : reader_(path), from_(from) {
    if (reader_.Error()) return;
    files_.reserve(from.files.size());
    while (const auto entry = reader_.Next()) {
        if (entry->kind == FolderReader::Kind::Folder) continue;
        std::string name(entry->name);
        const auto facts = reader_.Look();
        if (facts && !facts->isFolder)
            files_.push_back({{facts->length, facts->written}, std::move(name)});
    }
    std::ranges::sort(files_, {}, &SourceFile::name);
}

const SourceFile* DestFolder::Known(const std::string& name) const {
    const SourceFile* const there = Named(files_, name);
    return there ? there : Named(copies_, name);
}

std::optional<FileFacts> DestFolder::Find(const std::string& name) const {
    if (const SourceFile* known = Known(name)) return *known;
    const auto facts = reader_.Look(name);
    if (!facts || facts->isFolder) return std::nullopt;
    return FileFacts{facts->length, facts->written};
}

// Asked of the few names that are found and not known.
bool DestFolder::IsTaken(const std::string& name) const {
    if (Known(name) || !reader_.Look(name)) return false;
    const std::string key = ComparisonKey(name);
    return std::ranges::any_of(from_.files, [&](const SourceFile& other) {
        return other.name != name && ComparisonKey(other.name) == key && Known(other.name);
    });
}

// Copies come in the order of their names.
void DestFolder::Add(const std::string& name) {
    if (!Known(name)) copies_.push_back({{}, name});
}

} // namespace vk
