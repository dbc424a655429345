// One media object: made from a path, and what libVLC knows of it.
#pragma once

#include "platform/linux/vlc/vlc_handles.h"
#include "player/engine/output.h"

#include <string>

namespace vk {

/// `path` is a file's full path or an address ("http://…").
VlcMedia MakeVlcMedia(const VlcInstance& library, const std::string& path);

/// False for a file that is not there; addresses are not looked at.
bool VlcMediaExists(const std::string& path);

/// What the stream of an address says that it plays, else what it is called, in UTF-8; "" for files
/// and as long as it has said nothing.
std::string VlcStreamTitle(libvlc_media_t* media, const std::string& path);

/// Length and bit rate of a media that was parsed or is open; where its tracks do not tell the bit
/// rate it is the file's mean. `playingLengthMs` (0: unknown) is a player's own word on the length.
TrackFacts VlcMediaFacts(libvlc_media_t* media, const std::string& path,
                         std::int64_t playingLengthMs = 0);

} // namespace vk
