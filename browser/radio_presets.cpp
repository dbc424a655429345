#include "browser/radio_presets.h"

#include "core/text.h"
#include "library/lists/presets.h"
#include "platform/files.h"

#include <algorithm>

namespace vk {

void RadioPresets::ReadPresets(const std::string& path) {
    path_ = path;
    desk_.Start();
    desk_.SetTitle("Radio Presets ");
    desk_.rows.AddBack(desk_.needs.MediaDir());
    desk_.Try("ReadPresets", [&] {
        const auto presets = ReadPresetFile(path_);
        for (const Preset& preset : presets)
            desk_.list.AddItem(preset.label + " - ", preset.frequency,
                               Descriptor::Freq(preset.frequency).Text());
        if (presets.empty() && FileExists(path_)) desk_.rows.AddNotice("<No Valid Preset Entries>");
    });
    desk_.Finish();
}

// The frequency where there is none.
std::string RadioPresets::SelectedLabel() const {
    const std::string label = Trim(desk_.list.GetSelectedItemText());
    const bool named = label.size() > 1 && label.ends_with("-");
    return named ? Trim(label.substr(0, label.size() - 1)) : desk_.list.GetSelectedItemTitle();
}

void RadioPresets::AskLabel(const std::string& frequency) {
    const auto save = [this, frequency](const std::optional<std::string>& label) {
        if (!label) return;
        desk_.Run("UCKeyboard_OK", [&] {
            Change("SavePreset()", [&] { SavePreset(path_, frequency, Trim(*label)); });
        });
    };
    text_.Open({.caption = "Label For: " + frequency, .value = SelectedLabel(), .answer = save});
}

void RadioPresets::DeleteFreq(const std::string& frequency) {
    if (desk_.needs.base.dialogs.AskNoYes("Delete the preset " + frequency + "?"))
        Change("DeleteFreq()", [&] { vk::DeleteFreq(path_, frequency); });
}

// The presets are shown again, the cursor where it was.
void RadioPresets::Change(const char* name, const std::function<void()>& change) {
    const int selected = desk_.list.GetSelectedSongNum();
    try {
        change();
    } catch (const std::exception& error) {
        desk_.needs.base.report.Log(std::string("An error occured in playlists.") + name + " " +
                                    error.what());
        return desk_.Say("The presets could not be saved.");
    }
    ReadPresets(std::string(path_));
    desk_.list.SelectItem(std::min(selected, desk_.list.ItemCount() - 1));
    desk_.view.ReDrawList();
}

} // namespace vk
