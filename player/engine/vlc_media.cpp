#include "player/engine/vlc_media.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/linux/optical_disc.h"
#include "platform/paths.h"

#include <algorithm>
#include <optional>

namespace vk {

namespace {

bool IsAddress(const std::string& path) {
    return path.find("://") != std::string::npos;
}

/// A track of an audio disc: "/dev/sr0/Track01.CDA" is no file, but the first track in that drive.
struct DiscTrack {
    std::string drive, number;
};

std::optional<DiscTrack> DiscTrackOf(const std::string& path) {
    if (!EqualNoCase(ExtensionOf(path), "cda")) return std::nullopt;
    const std::string drive = FolderOf(path), name = FileNameOf(path);
    const auto digits = name.find_first_of("123456789");
    if (digits == std::string::npos || !FileExists(drive)) return std::nullopt;
    return DiscTrack{drive, name.substr(digits, name.find('.') - digits)};
}

// Nothing for the image of a disc, and for a drive that does not answer soon.
std::optional<AudioTrack> OnDisc(const DiscTrack& track) {
    const auto ask = [drive = track.drive] { return ReadAudioDisc(SystemOpticalCalls(), drive); };
    const AudioDisc disc = SlowAnswer<AudioDisc>().Ask(ask, DrivePatience);
    for (const AudioTrack& each : disc.tracks)
        if (std::to_string(each.number) == track.number) return each;
    return std::nullopt;
}

// libVLC takes a number for too large when the disc begins with data: it counts the tracks of sound
// alone. So it is told the sectors, too.
VlcMedia MakeDiscMedia(const VlcInstance& library, const DiscTrack& track) {
    VlcMedia media(libvlc_media_new_location(library.get(), ("cdda://" + track.drive).c_str()));
    const auto option = [&](const std::string& text) {
        if (media) libvlc_media_add_option(media.get(), text.c_str());
    };
    option(":cdda-track=" + track.number);
    if (const auto found = OnDisc(track)) {
        option(":cdda-first-sector=" + std::to_string(found->first));
        option(":cdda-last-sector=" + std::to_string(found->end));
    }
    return media;
}

// Kilobits per second of the first audio track that tells one.
int TrackBitRate(libvlc_media_t* media) {
    libvlc_media_track_t** tracks = nullptr;
    const unsigned count = libvlc_media_tracks_get(media, &tracks);
    unsigned rate = 0;
    for (unsigned index = 0; index < count && rate == 0; ++index)
        if (tracks[index]->i_type == libvlc_track_audio) rate = tracks[index]->i_bitrate;
    libvlc_media_tracks_release(tracks, count);
    return static_cast<int>((rate + 500) / 1000);
}

} // namespace

VlcMedia MakeVlcMedia(const VlcInstance& library, const std::string& path) {
    if (const auto track = DiscTrackOf(path)) return MakeDiscMedia(library, *track);
    return VlcMedia(IsAddress(path) ? libvlc_media_new_location(library.get(), path.c_str())
                                    : libvlc_media_new_path(library.get(), path.c_str()));
}

bool VlcMediaExists(const std::string& path) {
    return IsAddress(path) || FileExists(path) || DiscTrackOf(path);
}

std::string VlcStreamTitle(libvlc_media_t* media, const std::string& path) {
    if (!IsAddress(path)) return {};
    for (const libvlc_meta_t kind : {libvlc_meta_NowPlaying, libvlc_meta_Title}) {
        char* const text = libvlc_media_get_meta(media, kind);
        std::string title = text ? text : "";
        libvlc_free(text);
        // Without a title of its own a stream bears the end of its address.
        if (!title.empty() && !path.ends_with(title)) return title;
    }
    return {};
}

TrackFacts VlcMediaFacts(libvlc_media_t* media, const std::string& path,
                         std::int64_t playingLengthMs) {
    TrackFacts facts;
    facts.lengthMs = playingLengthMs > 0
                         ? playingLengthMs
                         : std::max<std::int64_t>(0, libvlc_media_get_duration(media));
    facts.bitRate = TrackBitRate(media);
    if (facts.bitRate == 0 && facts.lengthMs > 0 && !IsAddress(path))
        facts.bitRate =
            static_cast<int>(FileLength(path) * 8 / static_cast<std::uint64_t>(facts.lengthMs));
    return facts;
}

} // namespace vk
