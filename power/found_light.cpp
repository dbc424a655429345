#include "power/found_light.h"

#include "platform/files.h"

#include <sstream>

namespace vk {

namespace {

constexpr const char* Head = "Velkorandum-light-1";
constexpr std::size_t LargestFile = 1u << 20, LongestRamp = 1u << 14;

void Write(std::ostream& out, const std::vector<std::uint16_t>& channel) {
    for (const std::uint16_t value : channel)
        out << value << ' ';
    out << '\n';
}

bool Read(std::istream& in, std::size_t size, std::vector<std::uint16_t>& channel) {
    channel.resize(size);
    for (std::uint16_t& value : channel)
        in >> value;
    return static_cast<bool>(in);
}

bool ReadRamp(std::istream& in, FoundLight& found) {
    DisplayRamp ramp;
    std::size_t size = 0;
    if (!(in >> ramp.display >> size) || size > LongestRamp) return false;
    for (auto* channel : {&ramp.ramp.red, &ramp.ramp.green, &ramp.ramp.blue})
        if (!Read(in, size, *channel)) return false;
    found.ramps.push_back(std::move(ramp));
    return true;
}

bool ReadPanel(std::istream& in, FoundLight& found) {
    PanelLight panel;
    if (!(in >> panel.panel >> panel.level >> panel.most)) return false;
    found.panels.push_back(std::move(panel));
    return true;
}

} // namespace

bool WriteFoundLight(const std::string& file, const FoundLight& found) {
    std::ostringstream out;
    out << Head << '\n';
    for (const DisplayRamp& each : found.ramps) {
        out << "ramp " << each.display << ' ' << each.ramp.red.size() << '\n';
        for (const auto* channel : {&each.ramp.red, &each.ramp.green, &each.ramp.blue})
            Write(out, *channel);
    }
    for (const PanelLight& panel : found.panels)
        out << "panel " << panel.panel << ' ' << panel.level << ' ' << panel.most << '\n';
    out << "end\n";
    if (FileExists(file)) DeleteFileAt(file);
    return AppendToFile(file, out.str());
}

std::optional<FoundLight> ReadFoundLight(const std::string& file) {
    const auto text = ReadWholeFile(file, LargestFile);
    if (!text) return std::nullopt;
    std::istringstream in(*text);
    FoundLight found;
    std::string word;
    if (!(in >> word) || word != Head) return std::nullopt;
    while (in >> word) {
        if (word == "end") return found;
        const bool ramp = word == "ramp";
        if (!(ramp ? ReadRamp(in, found) : word == "panel" && ReadPanel(in, found))) break;
    }
    return std::nullopt;
}

} // namespace vk
