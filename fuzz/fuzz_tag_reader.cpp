// Feeds any bytes to every reader of tags: as a tag of each version, as an Ogg or FLAC file, as
// every form that TagLib reads and as a file name.
#include "library/tags/file_form.h"
#include "library/tags/file_name_tag.h"
#include "library/tags/foreign_tag.h"
#include "library/tags/id3v1.h"
#include "library/tags/id3v2.h"
#include "library/tags/media_type.h"
#include "library/tags/mp4_tag.h"
#include "library/tags/tag_text.h"
#include "library/tags/vorbis_comment.h"

#include <cstdlib>
#include <exception>
#include <sstream>

namespace {

void Check(const vk::TagRecord& tag) {
    for (const std::string* text : {&tag.Title, &tag.Artist, &tag.Album, &tag.Genre})
        if (text->find('\0') != std::string::npos || text->size() > 4 * vk::TagTextLength)
            std::abort();
}

template<class Reader>
void Run(Reader reader, const std::string& bytes, const vk::GenreTable& genres, auto... options) {
    std::istringstream stream(bytes);
    vk::MediaFile file(stream);
    vk::TagRecord tag;
    try {
        reader(file, genres, tag, options...);
    } catch (const std::exception&) {
        // A damaged tag: what was read before the damage stays.
    } catch (const vk::UnknownFrameForm&) {
        // Left to another reader.
    }
    genres.Complete(tag);
    vk::CutTexts(tag);
    Check(tag);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const vk::GenreTable genres = [] {
        vk::GenreTable table;
        table.FillBuiltIn();
        return table;
    }();
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const auto reader : {vk::ReadID3v22, vk::ReadID3v23, vk::ReadID3v24})
        for (const vk::TagReading reading :
             {vk::TagReading{}, {vk::Picture::Skip, false}, {vk::Picture::Read, true}})
            Run(reader, bytes, genres, reading);
    Run(vk::ReadVorbisComment, bytes, genres);
    Run(vk::ReadFlacComment, bytes, genres);
    Run(vk::ReadMp4Tag, bytes, genres);
    const auto foreign = [](vk::MediaFile& file, const vk::GenreTable& table, vk::TagRecord& tag) {
        vk::ReadForeignTag(file, vk::FormOf(file), table, tag);
    };
    Run(foreign, bytes, genres);
    if (size >= vk::ID3v1Length) Run(vk::ReadID3v1, bytes, genres);
    Check(vk::GetFileNameTag(bytes, vk::MediaAudio));
    return 0;
}
