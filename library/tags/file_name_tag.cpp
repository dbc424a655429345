#include "library/tags/file_name_tag.h"

#include "core/text.h"
#include "library/tags/media_type.h"
#include "library/tags/tag_text.h"
#include "platform/paths.h"

namespace vk {

namespace {

std::string NameWithoutExtension(const std::string& path) {
    const std::string name = FileNameOf(path);
    const auto dot = name.rfind('.');
    return ReplaceAll(TagText(name.substr(0, dot == 0 ? std::string::npos : dot)), "_", " ");
}

/// Drops a two-digit track number and the hyphen after it; a text that is nothing else stays.
std::string WithoutTrackNumber(std::string_view text) {
    std::string rest = Trim(text);
    const bool numbered = rest.size() > 2 && IsNumeric(rest.substr(0, 2)) && rest[1] != ' ';
    if (numbered) rest = Trim(rest.substr(2));
    if (rest.size() > 1 && rest[0] == '-') rest = Trim(rest.substr(1));
    return rest;
}

} // namespace

TagRecord GetFileNameTag(const std::string& path, int mediaType) {
    TagRecord tag;
    tag.Title = NameWithoutExtension(path);
    if (mediaType == MediaAudio) {
        const std::string name = WithoutTrackNumber(tag.Title);
        const auto hyphen = name.find('-');
        const bool split = hyphen != std::string::npos && name.size() >= 3;
        tag.Artist = split ? Trim(name.substr(0, hyphen)) : "(Unknown Artist)";
        tag.Title = split ? WithoutTrackNumber(name.substr(hyphen + 1)) : name;
    }
    CutTexts(tag);
    return tag;
}

} // namespace vk
