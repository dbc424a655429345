#include "playback/resume.h"

#include "core/optical_drive.h"
#include "platform/files.h"

#include <algorithm>
#include <limits>

namespace vk {

namespace {

constexpr std::int32_t MostTrack = std::numeric_limits<std::int32_t>::max() - 1;

bool DiscIsIn(std::int32_t serial, const std::string& configured, const Volumes& volumes) {
    const std::string drive = OpticalRoot(volumes, configured);
    if (serial == 0 || serial == -1 || drive.empty()) return true;
    return volumes.IsReady(drive) && volumes.Serial(drive) == serial;
}

} // namespace

bool HasListToResume(const SettingsStore& settings) {
    return FileExists(settings.File(AudioListName));
}

ResumeResult PrepareResume(SettingsStore& settings, const Volumes& volumes, AudioState& audio) {
    if (!HasListToResume(settings)) return ResumeResult::NoList;
    const std::int32_t serial = settings.Get(setting::AudioVolumeSerial);
    if (!DiscIsIn(serial, settings.values.CDDriveLetter, volumes)) return ResumeResult::DiscMissing;
    audio.PlayMode = PlayAudio;
    audio.bResuming = settings.values.DoResume;
    audio.bStartPlaying = true;
    // The position may carry a fraction; only its whole seconds count.
    const double position = settings.Get(setting::CurrentPosition);
    audio.ResumePosition = static_cast<std::int32_t>(std::clamp(position, -1.0, 1e9));
    audio.TrackToSelect = std::clamp(settings.Get(setting::CurrentTrack), 0, MostTrack) + 1;
    audio.VolumeSerial = serial;
    audio.ListFile = settings.File(AudioListName);
    return ResumeResult::Ready;
}

} // namespace vk
