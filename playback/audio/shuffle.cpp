#include "playback/audio/shuffle.h"

namespace vk {

namespace {

constexpr const char* File = "winamp.ini";
constexpr const char* Section = "winamp";

} // namespace

// Any number but 0 is "on": other programs write -1.
bool Shuffle::Read(std::string& text) const {
    SettingsStore& settings = base_.settings;
    text = settings.ini().ReadText(settings.File(File), Section, "shuffle");
    return ConvertIniText(text, IniType::Long, ".").Long() != 0;
}

void Shuffle::Show() {
    std::string text;
    audio_.bShuffle = Read(text);
    base_.log.WriteDebugLog("winamp.ini shuffle=" + text);
    Draw(audio_.bShuffle);
}

void Shuffle::Draw(bool on) {
    view_.ShowShuffle(on);
    view_.SetButton(PlayerButton::Shuffle, on ? "shufflesel.gif" : "shuffle.gif");
}

void Shuffle::setshuffle() {
    std::string text;
    const bool on = !Read(text);
    winamp_.WinAMP_SCM(WinampToggleShuffle);
    audio_.bShuffle = on;
    Draw(on);
    SettingsStore& settings = base_.settings;
    settings.ini().WriteINI(settings.File(File), Section, "shuffle", on ? "1" : "0");
}

} // namespace vk
