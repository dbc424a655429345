#include "navigation/isn_file.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

std::string IsnFile::Common(const std::string& file) const {
    return JoinPath(JoinPath(JoinPath(appDir_, "COMMON"), "GPSPICS"), file);
}

std::string IsnFile::Find() const {
    std::string own = skin_.PicturePath("GPSMain.isn");
    if (FileExists(own)) return own;
    log_.WriteDebugLog("Current skin does not contain GPS information. Using Default GPS skin");
    log_.WriteDebugLog(R"(Searching for APP.PATH\COMMON\GPSPICS\DEFAULT.isn)");
    std::string common = Common("DEFAULT.isn");
    if (FileExists(common)) return common;
    log_.WriteDebugLog("Could not use default GPS skin.. Default GPS skin missing");
    return "";
}

void IsnFile::Load() {
    data_ = {};
    const std::string file = Find();
    if (file.empty()) return;
    const auto text = ReadWholeFile(file, LongestIsn + 1);
    const auto complain = [&](const std::string& what) {
        log_.WriteDebugLog(ToUtf8(FileNameOf(file)) + ": " + what);
    };
    if (!text) return complain("it cannot be read");
    if (text->size() > LongestIsn) return complain("it is too large for a GPS skin");
    data_ = ParseIsn(*text, complain);
}

std::string IsnFile::Picture(const IsnState& state, bool pressed) const {
    const std::string key = std::string(state.audio ? "" : "NO") + "AUDIO" +
                            (state.external ? "EXT" : "DEST") + (pressed ? "ON" : "OFF");
    const auto named = data_.pictures.find(key);
    if (named == data_.pictures.end()) return "";
    // A picture belongs to its skin: what a foreign file names is looked for there and nowhere
    // else.
    const std::string name = FileNameOf(ReplaceAll(named->second, "\\", "/"));
    const std::string own = skin_.PicturePath(name);
    return FileExists(own) ? own : Common(name);
}

} // namespace vk
