// The on-screen keyboard of the browser: opening and closing it, and where its text goes.
#include "browser/browser.h"

#include <map>

namespace vk {

// Events run meanwhile: it takes no input before it is there, and none on its way out.
void Browser::SlideKeyboard(bool open) {
    KeyboardShown = false;
    view_.SlideKeyboard(open);
    KeyboardShown = open;
}

void Browser::ShowOSK(const std::string& caption, const std::string& value,
                      KeyboardPurposeValue purpose) {
    SavedTitle = desk_.Title();
    KeyboardPurpose = purpose;
    keyboard_.ClearInput();
    keyboard_.SetCaption(caption);
    keyboard_.SetValue(value);
    SlideKeyboard(true);
}

void Browser::HideOSK() {
    SlideKeyboard(false);
}

// Its own Escape: nothing was typed.
void Browser::CloseKeyboard() {
    if (!KeyboardShown) return;
    HideOSK();
    desk_.SetTitle(SavedTitle);
    if (KeyboardPurpose <= KeyboardPurposeValue::SearchFileName) return MoveBack();
    if (list_.ItemCount() > 0) return;
    desk_.rows.AddBack(needs_.MediaDir());
    desk_.Finish();
}

void Browser::TakeText(const std::string& text) {
    static const std::map<KeyboardPurposeValue, TextHandler> purposes = {
        {KeyboardPurposeValue::SearchArtist, &Browser::SearchFor},
        {KeyboardPurposeValue::SearchTitle, &Browser::SearchFor},
        {KeyboardPurposeValue::SearchGenre, &Browser::SearchFor},
        {KeyboardPurposeValue::SearchFileName, &Browser::SearchFor},
        {KeyboardPurposeValue::PresetLabel, &Browser::SavePreset},
        {KeyboardPurposeValue::ListName, &Browser::SaveUnder}};
    if (!KeyboardShown) return;
    Run("UCKeyboard_OK", [&] {
        const auto handler = purposes.find(KeyboardPurpose);
        if (handler != purposes.end()) (this->*handler->second)(text);
    });
}

} // namespace vk
