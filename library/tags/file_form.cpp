#include "library/tags/file_form.h"

#include <array>
#include <string_view>

namespace vk {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t HeadLength = 64;
constexpr std::size_t OggPacket = 28; // behind the header of a page of one segment

struct Sign {
    FileForm form;
    std::size_t at;
    std::string_view bytes;
    std::string_view start = {}; // of the file, where the sign lies further in
};

constexpr std::array Signs = {
    Sign{FileForm::Flac, 0, "fLaC"},
    Sign{FileForm::Mp4, 4, "ftyp"},
    Sign{FileForm::Asf, 0, "\x30\x26\xB2\x75\x8E\x66\xCF\x11"},
    Sign{FileForm::Wav, 8, "WAVE", "RIFF"},
    Sign{FileForm::Aiff, 8, "AIF", "FORM"},
    Sign{FileForm::Ape, 0, "MAC "},
    Sign{FileForm::Musepack, 0, "MPCK"},
    Sign{FileForm::Musepack, 0, "MP+"},
    Sign{FileForm::WavPack, 0, "wvpk"},
    Sign{FileForm::TrueAudio, 0, "TTA1"},
    Sign{FileForm::OggVorbis, OggPacket, "\x01vorbis", "OggS"},
    Sign{FileForm::OggOpus, OggPacket, "OpusHead", "OggS"},
    Sign{FileForm::OggFlac, OggPacket,
         "\x7F"
         "FLAC",
         "OggS"},
    Sign{FileForm::Speex, OggPacket, "Speex   ", "OggS"},
};

} // namespace

FileForm FormOf(MediaFile& file) {
    file.Seek(0);
    const std::string head = file.ReadUpTo(HeadLength);
    for (const Sign& sign : Signs)
        if (head.starts_with(sign.start) && head.size() > sign.at &&
            std::string_view(head).substr(sign.at).starts_with(sign.bytes))
            return sign.form;
    return FileForm::Other;
}

bool HasForeignID3v2(MediaFile& file) {
    constexpr int ForeignFlags = 0x40; // extended header; 0x80 is unsynchronisation
    file.Seek(0);
    const std::string head = file.ReadUpTo(6);
    return head.size() == 6 && head.starts_with("ID3") &&
           static_cast<unsigned char>(head[5]) >= ForeignFlags;
}

bool EndsInApeTag(MediaFile& file) {
    constexpr std::string_view Marker = "APETAGEX";
    constexpr std::uint64_t Footer = 32, Id3v1 = 128;
    if (file.Length() < Footer + Id3v1) return false;
    file.Seek(file.Length() - Footer - Id3v1);
    const std::string end = file.ReadUpTo(Footer + Id3v1);
    return end.starts_with(Marker) || std::string_view(end).substr(Id3v1).starts_with(Marker);
}

} // namespace vk
