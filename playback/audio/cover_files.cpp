#include "playback/audio/cover_files.h"

#include "core/text.h"
#include "library/tags/embedded_picture.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <mutex>

namespace vk {

namespace {

constexpr std::size_t MaxPictures = 1000;
constexpr const char* FolderMasks[] = {"jpeg", "jpg", "gif", "bmp"};
constexpr const char* StationMasks[] = {"jpg", "gif", "png", "bmp"};

CoverOutcome Decode(const std::string& picture, const DecodePicture& decode) {
    CoverOutcome outcome{true, {picture}, {}};
    if (!FileExists(picture))
        outcome.error = "File not found: " + picture;
    else if (!decode(picture))
        outcome.error = "Not a picture that can be shown: " + picture;
    return outcome;
}

// One at a time: a thread that a slow disk has held up may come back to find another at work.
CoverOutcome DecodeEmbedded(const std::string& bytes, const CoverRequest& request,
                            const DecodePicture& decode) {
    static std::mutex temporaryInUse;
    const std::lock_guard lock(temporaryInUse);
    // Written plainly: it is gone in a moment, and need not reach the disk for that.
    DeleteFileAt(request.temporary);
    if (!AppendToFile(request.temporary, bytes))
        return {true, {}, "Cannot be written: " + request.temporary};
    CoverOutcome outcome = Decode(request.temporary, decode);
    DeleteFileAt(request.temporary);
    outcome.pictures.clear();
    if (!outcome.error.empty()) outcome.error += " (in the tag of " + request.track + ")";
    return outcome;
}

} // namespace

CoverOutcome LoadCover(const CoverRequest& request, const DecodePicture& decode) {
    if (!request.picture.empty()) return Decode(request.picture, decode);
    const std::string bytes = ReadEmbeddedPicture(request.track, request.extended);
    CoverOutcome embedded;
    if (!bytes.empty()) embedded = DecodeEmbedded(bytes, request, decode);
    if (embedded.found && (embedded.error.empty() || !request.extended)) return embedded;
    std::vector<std::string> pictures = FolderPictures(FolderOf(request.track));
    if (pictures.empty()) return embedded;
    CoverOutcome outcome = Decode(pictures.front(), decode);
    outcome.pictures = std::move(pictures);
    return outcome;
}

// Files that begin with a point are hidden: some systems leave one without a picture in it beside
// each picture that they copy.
std::vector<std::string> FolderPictures(const std::string& folder) {
    const std::vector<FolderEntry> entries = ListFolder(folder);
    std::vector<std::string> found;
    for (const char* mask : FolderMasks)
        for (const FolderEntry& entry : entries) {
            if (entry.isFolder || entry.name.starts_with('.')) continue;
            if (found.size() < MaxPictures && EqualNoCase(ExtensionOf(entry.name), mask))
                found.push_back(JoinPath(folder, entry.name));
        }
    return found;
}

std::string StationPicture(const std::string& appDir, const std::string& name) {
    if (name.empty() || name.find(PathSeparator) != std::string::npos) return {};
    const std::string folder = JoinPath(JoinPath(appDir, "COMMON"), "FMPICS");
    for (const char* extension : StationMasks) {
        std::string file = JoinPath(folder, name + "." + extension);
        if (FileExists(file)) return file;
    }
    return {};
}

} // namespace vk
