#include "library/tags/foreign_file.h"

#include "core/error_report.h"

#include <taglib/aifffile.h>
#include <taglib/apefile.h>
#include <taglib/asffile.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/speexfile.h>
#include <taglib/trueaudiofile.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackfile.h>

#include <algorithm>

namespace vk {

namespace {

// The pieces that TagLib asks for are sizes out of the file.
constexpr unsigned long MostBytes = 64ul << 20;
// An ordinary file needs some dozens.
constexpr int MostReads = 200'000, MostShortReads = 1000;

template<class Kind> std::unique_ptr<TagLib::File> Open(ForeignStream& stream) {
    return std::make_unique<Kind>(&stream, false);
}

} // namespace

TagLib::ByteVector ForeignStream::readBlock(unsigned long length) {
    const std::string bytes = file_.ReadUpTo(std::min(length, MostBytes));
    shortReads_ += bytes.size() < length;
    if (++reads_ > MostReads || shortReads_ > MostShortReads)
        throw Error("Input past end of file", 62);
    return {bytes.data(), static_cast<unsigned int>(bytes.size())};
}

void ForeignStream::seek(long offset, Position from) {
    const long start = from == Beginning ? 0 : from == Current ? tell() : length();
    file_.Seek(static_cast<std::uint64_t>(std::max(0l, start + offset)));
}

std::unique_ptr<TagLib::File> OpenForeign(ForeignStream& stream, FileForm form) {
    namespace Ogg = TagLib::Ogg;
    switch (form) {
    case FileForm::Flac:
    case FileForm::Other:
        return std::make_unique<TagLib::MPEG::File>(&stream,
                                                    TagLib::ID3v2::FrameFactory::instance(), false);
    case FileForm::Mp4:
        return Open<TagLib::MP4::File>(stream);
    case FileForm::Asf:
        return Open<TagLib::ASF::File>(stream);
    case FileForm::Wav:
        return Open<TagLib::RIFF::WAV::File>(stream);
    case FileForm::Aiff:
        return Open<TagLib::RIFF::AIFF::File>(stream);
    case FileForm::Ape:
        return Open<TagLib::APE::File>(stream);
    case FileForm::Musepack:
        return Open<TagLib::MPC::File>(stream);
    case FileForm::WavPack:
        return Open<TagLib::WavPack::File>(stream);
    case FileForm::TrueAudio:
        return Open<TagLib::TrueAudio::File>(stream);
    case FileForm::OggVorbis:
        return Open<Ogg::Vorbis::File>(stream);
    case FileForm::OggOpus:
        return Open<Ogg::Opus::File>(stream);
    case FileForm::OggFlac:
        return Open<Ogg::FLAC::File>(stream);
    case FileForm::Speex:
        return Open<Ogg::Speex::File>(stream);
    }
    return nullptr;
}

} // namespace vk
