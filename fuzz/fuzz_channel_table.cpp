// Feeds any bytes to what is read of the tuners' files: the channels of the last run, lists of
// channels and radio presets. What is read is written and read again: it must stay the same.
#include "library/channels/channel_file.h"
#include "library/lists/channel_list.h"
#include "library/lists/presets.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Check(bool holds) {
    if (!holds) std::abort();
}

void CheckChannels(std::string_view bytes) {
    vk::ChannelTable table, again;
    Check(vk::ParseChannels(bytes, {}, table) >= 0);
    const std::string saved = vk::FormatChannels(table);
    Check(vk::ParseChannels(saved, {}, again) == 0);
    Check(again.Channels() == table.Channels() && again.Categories() == table.Categories());
    Check(vk::FormatChannels(again) == saved);
    Check(!table.channelTable[0].valid);
    for (const int number : vk::ChannelNumbers(bytes))
        Check(vk::IsChannelNumber(number));
}

void CheckPresets(std::string_view text) {
    const auto presets = vk::ParsePresets(text);
    if (presets.empty()) return;
    const std::string frequency = presets.front().frequency;
    const std::string without = vk::WithoutPreset(text, frequency);
    for (const vk::Preset& left : vk::ParsePresets(without))
        Check(left.frequency != frequency);
    const auto saved = vk::ParsePresets(vk::WithPreset(text, frequency, "label"));
    Check(saved.size() >= presets.size() && saved.front().label == "label");
    Check(vk::WithoutPreset(vk::WithPreset(text, frequency, "label"), frequency) == without);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckChannels(bytes);
    CheckPresets(bytes);
    return 0;
}
