// A row of a settings page, as data, and the kinds of rows that are made from the table of
// settings.
#pragma once

#include "core/settings.h"
#include "platform/dialogs.h"
#include "settings/pages/picture.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vk {

/// What the user sees and can do. Its functions are asked with each drawing.
struct Row {
    /// A small plate at the row's end.
    struct End {
        std::string text;
        std::function<void()> use;
    };
    static constexpr int Whole = 24, Half = 12, Third = 8, Quarter = 6;

    std::function<std::string()> text;
    std::function<void()> use = {}; ///< a touch or Enter on the row itself; empty: only a text
    std::vector<End> ends = {};
    std::function<bool()> lit = {};    ///< its state is on
    std::function<bool()> usable = {}; ///< empty: always
    std::function<int()> percent = {}; ///< how far something is; negative: nothing is under way
    int width = Half;                  ///< in columns of the page
    int lines = 1; ///< of the page; nothing lies beside one of several, but for a picture
    /// Is shown in the place of a text, at the right end of the lines; the rows that follow lie
    /// beside it.
    std::function<const PagePicture&()> picture = {};
    const char* sheet = nullptr;  ///< begins a new sheet of this name
    const char* name = nullptr;   ///< of the button
    std::string pictureFile = {}; ///< drawn at the row's beginning
    /// Not empty for lines to be read, from the left, the last one at the bottom. A finger moves
    /// them by so many lines, to older ones or (negative) to newer ones.
    std::function<void(int lines)> scroll = {};
    std::vector<const SettingRow*> changes = {}; ///< the settings that it changes
};

/// A text that others change, with a bar while something is under way.
Row ProgressRow(std::function<std::string()> text, std::function<int()> percent = {});
/// A button.
Row ButtonRow(const char* caption, std::function<void()> use, int width = Row::Half,
              const char* name = nullptr);
/// A button of a quarter that shows whether something is on.
Row SwitchRow(const char* caption, std::function<void()> use, std::function<bool()> lit,
              const char* name = nullptr);
/// A picture, asked for with each drawing.
Row PictureRow(std::function<const PagePicture&()> picture, int width, int lines);
/// Something that is stepped through by two plates.
Row StepRow(std::function<std::string()> text, const std::function<void(int)>& step,
            const char* less = "-", const char* more = "+");

/// What is on or off, as all pages say it.
std::string OnOff(const std::string& caption, bool on);
/// The row changes this setting, in its own way.
Row Changes(Row row, const SettingRow& setting);

/// The setting is turned on and off.
Row ToggleRow(SettingsStore& store, const Setting<bool>& setting);
/// A number between the limits of its row in the table, by its step.
template<class T> Row StepperRow(SettingsStore& store, const Setting<T>& setting);
/// A value and how it is called.
using Option = std::pair<std::string, std::string>;
/// One of several; they are asked for anew with each step.
Row ChoiceRow(SettingsStore& store, const Setting<std::string>& setting,
              const std::function<std::vector<Option>()>& options);
/// A line of text, typed.
Row TextRow(SettingsStore& store, Dialogs& dialogs, const Setting<std::string>& setting);
/// A folder, chosen.
Row FolderRow(SettingsStore& store, Dialogs& dialogs, const Setting<std::string>& setting);
/// A time of day, by quarters of an hour.
Row TimeRow(SettingsStore& store, const Setting<std::string>& setting);
/// What a list of items says, and who is asked and told of a change.
struct Items {
    const char* ask;            ///< the text of the box for a new one
    const char *before, *after; ///< the question before one is taken out, around it
    const char* title;          ///< of the question
    std::function<bool()> mayChange;
    std::function<void()> changed;
};
/// Items in upper case separated by ":" in one setting: stepped through, added to, and taken out
/// after a question.
Row ItemsRow(SettingsStore& store, Dialogs& dialogs, const Setting<std::string>& setting,
             const Items& texts);

} // namespace vk
