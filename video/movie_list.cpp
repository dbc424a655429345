#include "video/movie_list.h"

#include "core/error_report.h"
#include "library/lists/list_file.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

bool MovieList::LoadPlaylist(const std::string& file, std::int32_t select) {
    Clear();
    if (!FileExists(file)) return false;
    EntryResolver resolver(FolderOf(file));
    std::int32_t entry = 0;
    ForEachListLine(ReadListText(file), [&](const std::string& line) {
        if (line.starts_with('#')) return true;
        const std::string path = resolver.Resolve(line);
        if (++entry <= select) MovieIndex = Count(); // where what is wanted has gone: what follows
        if (!path.empty()) MovieList_.push_back(path);
        return true;
    });
    MovieIndex = std::clamp(MovieIndex, 0, std::max(0, Count() - 1));
    return true;
}

void MovieList::Find(const std::string& path) {
    const auto found = std::ranges::find(MovieList_, path);
    if (found != MovieList_.end())
        MovieIndex = static_cast<std::int32_t>(found - MovieList_.begin());
}

void MovieList::Clear() {
    MovieList_.clear();
    MovieIndex = 0;
}

std::string MovieList::Selected() const {
    return MovieIndex < Count() ? MovieList_[static_cast<std::size_t>(MovieIndex)] : std::string();
}

void MovieList::Next() {
    MovieIndex = AtEnd() ? 0 : MovieIndex + 1;
}

void MovieList::Previous() {
    MovieIndex = MovieIndex == 0 ? std::max(0, Count() - 1) : MovieIndex - 1;
}

} // namespace vk
