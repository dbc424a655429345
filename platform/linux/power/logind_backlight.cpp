#include "platform/linux/power/logind_backlight.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <cstdint>
#include <cstdlib>

namespace vk {

namespace {

int Number(const std::string& file) {
    const auto text = ReadWholeFile(file, 32);
    return text ? std::atoi(text->c_str()) : 0;
}

} // namespace

std::vector<PanelLight> LogindBacklight::Read() const {
    std::vector<PanelLight> panels;
    for (const FolderEntry& entry : ListFolder(folder_)) {
        const std::string panel = JoinPath(folder_, entry.name);
        const int most = Number(JoinPath(panel, "max_brightness"));
        if (most > 0) panels.push_back({entry.name, Number(JoinPath(panel, "brightness")), most});
    }
    return panels;
}

void LogindBacklight::Set(const std::string& panel, int level,
                          std::function<void(const std::string&)> answer) {
    bus_.Call(
        "/org/freedesktop/login1/session/auto", "org.freedesktop.login1.Session", "SetBrightness",
        [answer = std::move(answer)](sd_bus_message*, const std::string& error) { answer(error); },
        "ssu", "backlight", panel.c_str(), static_cast<std::uint32_t>(level));
}

} // namespace vk
