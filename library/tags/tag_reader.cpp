#include "library/tags/tag_reader.h"

#include "core/text.h"
#include "library/tags/file_form.h"
#include "library/tags/foreign_tag.h"
#include "library/tags/id3v1.h"
#include "library/tags/id3v2.h"
#include "library/tags/mp4_tag.h"
#include "library/tags/tag_text.h"
#include "library/tags/vorbis_comment.h"
#include "platform/files.h"
#include "platform/random_file.h"

#include <charconv>
#include <exception>

namespace vk {

namespace {

constexpr std::size_t MaxGenreFileBytes = 64 * 1024;
/// Runs an operation; a failure is logged with the line that began it and gives the fallback.
template<class Result, class Operation>
Result Trapped(const DebugLog& log, const std::string& procedure, int line, Result fallback,
               Operation operation) {
    try {
        return operation();
    } catch (const std::exception&) {
        log.WriteDebugLog("An error occured in ID3." + procedure + "  at line number " +
                          std::to_string(line));
        return fallback;
    }
}

std::string VersionText(float version) {
    char text[32];
    const auto end = std::to_chars(std::begin(text), std::end(text), version).ptr;
    return {text, end};
}

bool HasID3v1(MediaFile& file) {
    if (file.Length() == 0) return false;
    file.Seek(file.Length() - ID3v1Length);
    return file.Read(3) == "TAG";
}

} // namespace

TagRecord ID3::ReadTag(const std::string& path, Picture picture) {
    if (!genres_.Initialised()) InitGenre();
    TagRecord tag;
    float version = 0;
    try {
        const RandomFile opened(path);
        if (opened.IsOpen()) {
            MediaFile file(opened);
            const bool ogg = ToUpper(LastBytes(path, 4)) == ".OGG";
            const auto read = extended_ ? &ID3::ReadExtended : &ID3::ReadOlder;
            (this->*read)(file, ogg, tag, picture, version);
        }
    } catch (const std::exception& error) {
        ports_.log.WriteDebugLog("Error reading Tag Version " + VersionText(version) +
                                 " from filename " + path + " - " + error.what());
    }
    genres_.Complete(tag);
    CutTexts(tag);
    return tag;
}

void ID3::ReadOlder(MediaFile& file, bool ogg, TagRecord& tag, Picture picture,
                    float& version) const {
    if (ogg) return ReadVorbisComment(file, genres_, tag);
    version = TagVersion(file);
    ReadVersion(version, file, tag, picture);
}

// What the older reading knows stays its own; the form decides, as names can be wrong.
void ID3::ReadExtended(MediaFile& file, bool ogg, TagRecord& tag, Picture picture,
                       float& version) const {
    const FileForm form = FormOf(file);
    if (form == FileForm::Flac) return ReadFlacComment(file, genres_, tag);
    if (form == FileForm::Mp4) return ReadMp4Tag(file, genres_, tag);
    if (form == FileForm::OggVorbis && ogg) return ReadVorbisComment(file, genres_, tag);
    if (form != FileForm::Other || HasForeignID3v2(file))
        return ReadForeignTag(file, form, genres_, tag);
    try {
        ReadOlder(file, ogg, tag, picture, version);
    } catch (const UnknownFrameForm&) {
        return ReadForeignTag(file, form, genres_, tag);
    }
    if (tag.Title.empty() && tag.Artist.empty() && EndsInApeTag(file))
        ReadForeignTag(file, form, genres_, tag);
}

void ID3::ReadVersion(float version, MediaFile& file, TagRecord& tag, Picture picture) const {
    const TagReading reading{picture, extended_};
    if (version == 1.0f)
        ReadID3v1(file, genres_, tag);
    else if (version == 2.2f || version == 2.21f)
        ReadID3v22(file, genres_, tag, reading);
    else if (version == 2.3f)
        ReadID3v23(file, genres_, tag, reading);
    else if (version == 2.4f)
        ReadID3v24(file, genres_, tag, reading);
}

float ID3::TagVersion(MediaFile& file) const {
    return Trapped(ports_.log, "TagVersion", __LINE__, 0.0f, [&] {
        file.Seek(0);
        const std::string header = file.ReadUpTo(10);
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(header[i]); };
        if (header.size() == 10 && header.starts_with("ID3") && !HasForeignID3v2(file)) {
            const std::string text =
                "2" + decimalSymbol_ + std::to_string(byte(3)) + std::to_string(byte(4));
            return static_cast<float>(ParseDecimal(text, decimalSymbol_).value_or(0));
        }
        return HasID3v1(file) ? 1.0f : 0.0f;
    });
}

void ID3::InitGenre(const std::string& genreFile) {
    const bool filled = Trapped(ports_.log, "InitGenre", __LINE__, false, [&] {
        return !genreFile.empty() && FileExists(genreFile) && ReadGenreFile(genreFile);
    });
    if (!filled) genres_.FillBuiltIn();
}

bool ID3::ReadGenreFile(const std::string& genreFile) {
    const auto contents = ReadWholeFile(genreFile, MaxGenreFileBytes);
    if (!contents) {
        ShowGenreFailure("Couldn't open the genre file!");
        return false;
    }
    ports_.log.WriteDebugLog("Using Genres from file...");
    const bool filled = genres_.FillFromLines(*contents);
    if (!filled) ShowGenreFailure("The specified file contains no genre information!");
    return filled;
}

void ID3::ShowGenreFailure(const std::string& text) const {
    ports_.dialogs.ShowMessage(text + "\nDefaults will be used.", "Error!");
}

std::uint8_t ID3::GenreStringToNum(const std::string& text) const {
    return Trapped(ports_.log, "GenreStringToNum", __LINE__, UnknownGenreNum,
                   [&] { return genres_.Number(text); });
}

} // namespace vk
