// The on-screen keyboard of the browser: opening and closing it, and where its text goes.
#include "library/browser/browser.h"

#include <map>

namespace vk {

void Browser::ShowOSK(const std::string& caption, const std::string& value,
                      KeyboardPurposeValue purpose) {
    needs_.app.ListBusy = true;
    SavedTitle = desk_.Title();
    KeyboardPurpose = purpose;
    KeyboardShown = true;
    keyboard_.ClearInput();
    keyboard_.SetCaption(caption);
    keyboard_.SetValue(value);
    view_.SlideKeyboard(true);
    needs_.app.ListBusy = false;
}

void Browser::HideOSK() {
    needs_.app.ListBusy = true;
    KeyboardShown = false;
    view_.SlideKeyboard(false);
    needs_.app.ListBusy = false;
}

// Its own Escape: nothing was typed.
void Browser::CloseKeyboard() {
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
    Run("UCKeyboard_OK", [&] {
        const auto handler = purposes.find(KeyboardPurpose);
        if (handler != purposes.end()) (this->*handler->second)(text);
    });
}

} // namespace vk
