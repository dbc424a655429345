#include "library/tags/foreign_tag.h"

#include "library/tags/foreign_file.h"
#include "library/tags/id3v2.h"
#include "library/tags/tag_text.h"

#include <taglib/aifffile.h>
#include <taglib/apefile.h>
#include <taglib/apetag.h>
#include <taglib/asffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/tpropertymap.h>
#include <taglib/trueaudiofile.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackfile.h>

namespace vk {

namespace {

std::string Bytes(const TagLib::ByteVector& bytes) {
    return {bytes.data(), bytes.size()};
}

std::string Value(const TagLib::PropertyMap& properties, const char* key) {
    const auto found = properties.find(key);
    return found == properties.end() ? "" : TagText(found->second.toString("; ").to8Bit(true));
}

std::string PictureOf(const TagLib::ID3v2::Tag* tag) {
    using Frame = TagLib::ID3v2::AttachedPictureFrame;
    const Frame* best = nullptr;
    if (tag)
        for (const auto* each : tag->frameList("APIC"))
            if (const auto* frame = dynamic_cast<const Frame*>(each))
                if (!best ||
                    (best->type() != Frame::FrontCover && frame->type() == Frame::FrontCover))
                    best = frame;
    return best ? Bytes(best->picture()) : "";
}

// A file's name, ended by NUL, stands before the picture.
std::string PictureOf(const TagLib::APE::Tag* tag) {
    if (!tag) return {};
    for (const auto& [key, item] : tag->itemListMap()) {
        if (!key.upper().startsWith("COVER ART") || item.type() != TagLib::APE::Item::Binary)
            continue;
        const std::string bytes = Bytes(item.binaryData()); // "(BACK)" comes before "(FRONT)"
        if (key.upper() != "COVER ART (FRONT)" && tag->itemListMap().contains("COVER ART (FRONT)"))
            continue;
        return bytes.substr(bytes.find('\0') + 1);
    }
    return {};
}

std::string PictureOf(const TagLib::ASF::Tag* tag) {
    TagLib::ASF::Picture best;
    if (tag && tag->attributeListMap().contains("WM/Picture"))
        for (const auto& attribute : tag->attributeListMap()["WM/Picture"]) {
            const TagLib::ASF::Picture picture = attribute.toPicture();
            const bool front = picture.type() == TagLib::ASF::Picture::FrontCover;
            if (picture.isValid() && (front || !best.isValid())) best = picture;
            if (front) break;
        }
    return best.isValid() ? Bytes(best.picture()) : "";
}

std::string PictureOf(const TagLib::MP4::Tag* tag) {
    if (!tag || !tag->contains("covr")) return {};
    const TagLib::MP4::CoverArtList covers = tag->item("covr").toCoverArtList();
    return covers.isEmpty() ? "" : Bytes(covers.front().data());
}

/// The picture of the tag that `get` names, when the file is of that class.
template<class File, class Tag>
std::string PictureIn(TagLib::File& file, Tag* (File::*get)() const) {
    const auto* known = dynamic_cast<File*>(&file);
    return known ? PictureOf((known->*get)()) : std::string();
}

template<class File, class Tag> std::string PictureIn(TagLib::File& file, Tag* (File::*get)(bool)) {
    auto* known = dynamic_cast<File*>(&file);
    return known ? PictureOf((known->*get)(false)) : std::string();
}

} // namespace

void ReadForeignTag(MediaFile& file, FileForm form, const GenreTable& genres, TagRecord& tag) {
    ForeignStream stream(file);
    const auto opened = OpenForeign(stream, form);
    if (!opened || !opened->isValid()) return;
    const TagLib::PropertyMap properties = opened->properties();
    tag.Title = Value(properties, "TITLE");
    tag.Artist = Value(properties, "ARTIST");
    tag.Album = Value(properties, "ALBUM");
    tag.Track = TrackNumber(Value(properties, "TRACKNUMBER"));
    TakeGenres({Value(properties, "GENRE")}, genres, tag);
}

std::string ReadForeignPicture(MediaFile& file, FileForm form) {
    ForeignStream stream(file);
    const auto opened = OpenForeign(stream, form);
    if (!opened || !opened->isValid()) return {};
    TagLib::File& any = *opened;
    for (const std::string& picture :
         {PictureIn(any, &TagLib::MP4::File::tag), PictureIn(any, &TagLib::ASF::File::tag),
          PictureIn(any, &TagLib::MPEG::File::ID3v2Tag),
          PictureIn(any, &TagLib::MPEG::File::APETag),
          PictureIn(any, &TagLib::RIFF::WAV::File::ID3v2Tag),
          PictureIn(any, &TagLib::RIFF::AIFF::File::tag),
          PictureIn(any, &TagLib::TrueAudio::File::ID3v2Tag),
          PictureIn(any, &TagLib::APE::File::APETag), PictureIn(any, &TagLib::MPC::File::APETag),
          PictureIn(any, &TagLib::WavPack::File::APETag)})
        if (!picture.empty()) return picture;
    return {};
}

} // namespace vk
