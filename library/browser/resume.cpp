// Going on with the list that was last played.
#include "library/browser/browser.h"
#include "library/list_file.h"
#include "platform/files.h"

namespace vk {

void Browser::Resume() {
    if (needs_.app.ListBusy) return;
    Run("Image19_Click", [&] {
        if (!FileExists(AudioList()))
            return ShowNotice("You must first play an audio file before resuming.");
        if (needs_.audio.PlayMode == PlayNone) return ResumeSaved();
        needs_.audio.bStartPlaying = false; // it plays already: only shown
        needs_.state.FromPlayer = true;
        EnterPlayer();
    });
}

void Browser::ResumeSaved() {
    const auto saved = [&](const char* key, IniType type) {
        return needs_.settings.Read("audio_player", key, type);
    };
    const std::int32_t serial = saved("volumeserial", IniType::Long).Long();
    if (!DiscMatches(serial)) return ShowNotice("ROM Mismatch detected. Insert correct CD.");
    AudioState& audio = needs_.audio;
    audio.PlayMode = PlayAudio;
    audio.VolumeSerial = serial;
    audio.ListFile = AudioList();
    audio.TrackToSelect =
        static_cast<std::int16_t>(saved("currenttrack", IniType::Integer).Integer() + 1);
    audio.ResumePosition =
        static_cast<std::int32_t>(saved("CurrentPosition", IniType::Double).Double());
    audio.bResuming = audio.bStartPlaying = true;
    EnterPlayer();
}

// A list on the disc drive needs the disc that it was made from; any other list needs none.
bool Browser::DiscMatches(std::int32_t serial) {
    const DriveRules& drives = builder_.Drives();
    for (const std::string& line : ListLines(ReadWholeFile(AudioList()).value_or(""))) {
        if (line.starts_with('#')) continue;
        if (!drives.HasDiscDrive() || drives.PlaceOf(line) != Place::Disc) return true;
        return builder_.CheckDisc() && needs_.volumes.Serial(drives.DiscDrive()) == serial;
    }
    return true;
}

} // namespace vk
