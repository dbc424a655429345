#include "browser/disc_video.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

namespace {

// The first file of the folder that is named *.MPG, by name.
std::string FirstMpg(const std::string& folder) {
    std::string first;
    for (const FolderEntry& entry : ListFolder(folder)) {
        const bool film = !entry.isFolder && EqualNoCase(ExtensionOf(entry.name), "mpg");
        if (film && (first.empty() || entry.name < first)) first = entry.name;
    }
    return first.empty() ? first : JoinPath(folder, first);
}

DiscVideo FilmDisc(const char* kind, const std::string& folder) {
    const std::string film = FirstMpg(folder);
    return {kind, film.empty() ? Descriptor{} : Descriptor::File(film)};
}

} // namespace

std::optional<DiscVideo> RecogniseDiscVideo(const std::string& discFolder,
                                            const std::string& name) {
    const std::string upper = ToUpper(name);
    if (upper == "VIDEO_TS") return DiscVideo{"DVD Video: ", Descriptor::FilmDisc()};
    if (upper == "MPEG2") return FilmDisc("SVCD Video: ", JoinPath(discFolder, name));
    if (upper == "MPEG") return FilmDisc("VCD Video: ", JoinPath(discFolder, name));
    return std::nullopt;
}

} // namespace vk
