#include "playback/tuner_choice.h"

namespace vk {

PlayModeValue FirstTuner(const Settings& settings, std::int32_t firstRadioType) {
    if (settings.dlink_enabled && settings.xmpcr_enabled)
        return firstRadioType == 1 ? PlayXM : PlayFM;
    return settings.dlink_enabled ? PlayFM : settings.xmpcr_enabled ? PlayXM : PlayNone;
}

void TakeTunerList(PlayModeValue tuner, SettingsStore& settings, AudioState& audio) {
    if (tuner == PlayFM) {
        audio.bShuffle = false;
        audio.bStartPlaying = true;
        audio.ListFile = settings.File("presets.lst");
        audio.ListTitle = FMSourceName;
        return;
    }
    audio.ListFile = settings.Get(setting::PresetList);
    audio.ListTitle = audio.ListFile.empty() ? XMSourceName : settings.Get(setting::ListTitle);
}

void ChooseTuner(PlayModeValue tuner, SettingsStore& settings, AudioState& audio) {
    TakeTunerList(tuner, settings, audio);
    audio.PlayMode = tuner;
    audio.CurrentChannel = 0;
    audio.VolumeSerial = -1;
    audio.bPaused = false;
    audio.bStartPlaying = true;
}

} // namespace vk
