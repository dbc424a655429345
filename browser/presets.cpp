// The radio presets: shown, given a label, deleted.
#include "library/lists/presets.h"

#include "browser/browser.h"
#include "core/text.h"
#include "platform/files.h"

#include <algorithm>

namespace vk {

void Browser::ReadPresets(const RowDescriptor& row) {
    PresetPath = row.Rest();
    desk_.Start();
    desk_.SetTitle("Radio Presets ");
    desk_.rows.AddBack(needs_.MediaDir());
    desk_.Try("ReadPresets", [&] {
        const auto presets = ReadPresetFile(PresetPath);
        for (const Preset& preset : presets)
            list_.AddItem(preset.label + " - ", preset.frequency, "FREQ:" + preset.frequency);
        if (presets.empty() && FileExists(PresetPath))
            desk_.rows.AddNotice("<No Valid Preset Entries>");
    });
    desk_.Finish();
}

void Browser::AskLabel(const RowDescriptor& row) {
    ShowOSK("Label For: " + row.Rest(), list_.GetSelectedItemTitle(),
            KeyboardPurposeValue::PresetLabel);
}

void Browser::SavePreset(const std::string& label) {
    const RowDescriptor row = SplitDescriptor(list_.GetSelectedFileName());
    HideOSK();
    ChangePresets("SavePreset()", [&] { vk::SavePreset(PresetPath, row.Rest(), Trim(label)); });
}

void Browser::DeleteFreq(const RowDescriptor& row) {
    ChangePresets("DeleteFreq()", [&] { vk::DeleteFreq(PresetPath, row.Rest()); });
}

// The presets are shown again, the cursor where it was.
void Browser::ChangePresets(const std::string& name, const std::function<void()>& change) {
    const int selected = list_.GetSelectedSongNum();
    try {
        change();
    } catch (const std::exception& error) {
        needs_.report.Log("An error occured in playlists." + name + " " + error.what());
        return ShowNotice("The presets could not be saved.");
    }
    ReadPresets(SplitDescriptor("FILE:" + PresetPath));
    list_.SelectItem(std::min(selected, list_.ItemCount() - 1));
    view_.ReDrawList();
}

} // namespace vk
