#include "library/channels/xm_logo.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

namespace {

constexpr const char* Traffic = "Traffic-Weather";
constexpr const char* TrafficStem = "traffic-weather";

std::string StemOf(const std::string& name) {
    return ToLower(ReplaceAll(ReplaceAll(ReplaceAll(name, "'", ""), " ", "_"), "!", ""));
}

// What marks a channel's kind in its name is not part of the picture's name.
std::string WithoutMarks(std::string stem) {
    for (const std::string mark : {"xl", "cm", "sp"}) {
        if (stem.ends_with("_" + mark)) stem.erase(stem.size() - mark.size() - 1);
        if (stem.starts_with(mark + "_")) stem.erase(0, mark.size() + 1);
    }
    return stem;
}

} // namespace

XMLogos::XMLogos(const ChannelTable& channels, const std::string& appDir, ErrorReport& report)
    : channels_(channels), folder_(JoinPath(JoinPath(appDir, "COMMON"), "XMPICS")),
      report_(report) {}

std::string XMLogos::DefaultLogo() const {
    return JoinPath(folder_, "default.gif");
}

std::string XMLogos::GetXMLogo(int channel) {
    return Trap(report_, "Error occured in mdlXMShared.GetXMLogo() ", DefaultLogo(),
                [&] { return Find(channels_.channelTable.at(static_cast<std::size_t>(channel))); });
}

std::string XMLogos::Find(const XMChannel& channel) {
    std::string stem = StemOf(channel.name);
    const bool traffic = channel.category == Traffic;
    if (stem.empty() && !traffic) return DefaultLogo();
    stem = traffic ? TrafficStem : WithoutMarks(stem);
    std::string found = FindStem(stem);
    if (!found.empty()) return found;
    if (!traffic && missed_.insert(stem).second)
        report_.Log("unable to find xm logo: \\COMMON\\XMPICS\\" + stem + ".jpg/.gif/.png/.bmp");
    return DefaultLogo();
}

std::string XMLogos::FindStem(const std::string& stem) const {
    for (const char* extension : {".jpg", ".gif", ".png", ".bmp"}) {
        std::string file = JoinPath(folder_, stem + extension);
        if (FileExists(file)) return file;
    }
    return {};
}

} // namespace vk
