#include "settings/pages/row.h"

#include "core/text.h"
#include "core/time_of_day.h"

#include <algorithm>
#include <memory>
#include <type_traits>

namespace vk {

namespace {

constexpr int TimeStep = 15, Day = 24 * 60; // minutes

template<class T> double NumberOf(const T& value) {
    if constexpr (std::is_same_v<T, std::string>)
        return ParseDecimal(value).value_or(0);
    else
        return static_cast<double>(value);
}

template<class T> T ValueFrom(double number) {
    if constexpr (std::is_same_v<T, std::string>)
        return SettingText(number);
    else
        return static_cast<T>(number);
}

// What is held in memory is not read from the disk at each drawing.
template<class T> T Now(SettingsStore& store, const Setting<T>& setting) {
    return setting.kept ? store.values.*setting.kept : store.Get(setting);
}

std::function<std::string()> Captioned(const char* caption, std::function<std::string()> value) {
    return [caption, value = std::move(value)] {
        const std::string_view text = caption;
        return std::string(text) + (text.ends_with(':') ? " " : ": ") + value();
    };
}

// The place of `value` after one step, round and round; 0 for one that is not there.
std::size_t StepThrough(const std::vector<Option>& options, const std::string& value, int step) {
    const auto at = std::ranges::find(options, value, &Option::first);
    if (at == options.end()) return 0;
    const auto count = static_cast<int>(options.size());
    return static_cast<std::size_t>((static_cast<int>(at - options.begin()) + step + count) %
                                    count);
}

// A long caption would be small beside its plates.
int WidthFor(const SettingRow& setting) {
    constexpr std::size_t Longest = 20; // characters
    return std::string_view(setting.caption).size() > Longest ? Row::Whole : Row::Half;
}

} // namespace

std::string OnOff(const std::string& caption, bool on) {
    return caption + (on ? ": on" : ": off");
}

Row ProgressRow(std::function<std::string()> text, std::function<int()> percent) {
    return {.text = std::move(text), .percent = std::move(percent), .width = Row::Whole};
}

Row PictureRow(std::function<const PagePicture&()> picture, int width, int lines) {
    return {.text = [] { return std::string(); },
            .width = width,
            .lines = lines,
            .picture = std::move(picture)};
}

Row ButtonRow(const char* caption, std::function<void()> use, int width, const char* name) {
    return {.text = [caption] { return std::string(caption); },
            .use = std::move(use),
            .width = width,
            .name = name};
}

Row SwitchRow(const char* caption, std::function<void()> use, std::function<bool()> lit,
              const char* name) {
    Row row = ButtonRow(caption, std::move(use), Row::Quarter, name);
    row.lit = std::move(lit);
    return row;
}

Row StepRow(std::function<std::string()> text, const std::function<void(int)>& step,
            const char* less, const char* more) {
    return {.text = std::move(text),
            .ends = {{less, [step] { step(-1); }}, {more, [step] { step(1); }}}};
}

Row Changes(Row row, const SettingRow& setting) {
    row.changes.push_back(&setting);
    return row;
}

Row ToggleRow(SettingsStore& store, const Setting<bool>& setting) {
    return {.text = [&store, &setting] { return OnOff(setting.caption, Now(store, setting)); },
            .use = [&store, &setting] { store.Set(setting, !Now(store, setting)); },
            .lit = [&store, &setting] { return Now(store, setting); },
            .name = setting.name,
            .changes = {&setting}};
}

template<class T> Row StepperRow(SettingsStore& store, const Setting<T>& setting) {
    Row row = StepRow(
        Captioned(setting.caption,
                  [&] { return SettingText(Now(store, setting)) + setting.limits.unit; }),
        [&](int step) {
            store.Set(setting,
                      ValueFrom<T>(Stepped(NumberOf(Now(store, setting)), step, setting.limits)));
        });
    row.name = setting.name;
    row.width = WidthFor(setting);
    return Changes(std::move(row), setting);
}

template Row StepperRow(SettingsStore&, const Setting<std::int16_t>&);
template Row StepperRow(SettingsStore&, const Setting<std::int32_t>&);
template Row StepperRow(SettingsStore&, const Setting<double>&);
template Row StepperRow(SettingsStore&, const Setting<std::string>&);

Row ChoiceRow(SettingsStore& store, const Setting<std::string>& setting,
              const std::function<std::vector<Option>()>& options) {
    const auto shown = [&store, &setting, options] {
        const std::string value = Now(store, setting);
        const auto all = options();
        const auto at = std::ranges::find(all, value, &Option::first);
        return at == all.end() ? value : at->second;
    };
    Row row = StepRow(
        Captioned(setting.caption, shown),
        [&store, &setting, options](int step) {
            const auto all = options();
            if (!all.empty())
                store.Set(setting, all[StepThrough(all, Now(store, setting), step)].first);
        },
        "<", ">");
    row.name = setting.name;
    return Changes(std::move(row), setting);
}

Row TextRow(SettingsStore& store, Dialogs& dialogs, const Setting<std::string>& setting) {
    return {.text = Captioned(setting.caption, [&] { return Now(store, setting); }),
            .use =
                [&] {
                    const auto typed = dialogs.InputBox(setting.caption, {}, Now(store, setting));
                    if (typed) store.Set(setting, *typed);
                },
            .name = setting.name,
            .changes = {&setting}};
}

Row FolderRow(SettingsStore& store, Dialogs& dialogs, const Setting<std::string>& setting) {
    return {.text = Captioned(setting.caption, [&] { return Now(store, setting); }),
            .use =
                [&] {
                    const std::string chosen =
                        dialogs.ChooseFolder(setting.caption, Now(store, setting));
                    if (!chosen.empty()) store.Set(setting, chosen);
                },
            .name = setting.name,
            .changes = {&setting}};
}

// A text that is no time of day begins at midnight.
Row TimeRow(SettingsStore& store, const Setting<std::string>& setting) {
    Row row =
        StepRow(Captioned(setting.caption, [&] { return Now(store, setting); }), [&](int step) {
            const int now = ParseTimeOfDay(Now(store, setting)).value_or(0);
            const int steps = step > 0 ? now / TimeStep + 1 : (now + TimeStep - 1) / TimeStep - 1;
            store.Set(setting, TimeOfDayText((steps * TimeStep + Day) % Day));
        });
    row.name = setting.name;
    row.width = WidthFor(setting);
    return Changes(std::move(row), setting);
}

Row ItemsRow(SettingsStore& store, Dialogs& dialogs, const Setting<std::string>& setting,
             const Items& texts) {
    const auto shown = std::make_shared<std::size_t>(0);
    const auto items = [&] {
        const std::string text = Now(store, setting);
        return text.empty() ? std::vector<std::string>() : Split(text, ':');
    };
    const auto item = [shown, items] {
        const auto all = items();
        return all.empty() ? std::string() : all[*shown % all.size()];
    };
    const auto step = [shown, items](std::size_t by) {
        if (const auto count = items().size()) *shown = (*shown % count + by % count) % count;
    };
    const auto put = [&, texts](const std::vector<std::string>& all) {
        store.Set(setting, Join(all, ":"));
        texts.changed();
    };
    const auto add = [&dialogs, shown, items, texts, put] {
        if (!texts.mayChange()) return;
        const auto typed = dialogs.InputBox(texts.ask, {}, {});
        std::string added = ToUpper(Trim(typed.value_or("")));
        added.erase(0, added.find_first_not_of("*.")); // typed as it stands in a file's name
        auto all = items();
        if (added.empty() || !texts.mayChange()) return;
        const auto there = std::ranges::find(all, added);
        *shown = static_cast<std::size_t>(there - all.begin());
        if (there != all.end()) return;
        all.push_back(added);
        put(all);
    };
    const auto remove = [&dialogs, shown, items, item, texts, put] {
        auto all = items();
        if (all.empty() || !texts.mayChange()) return;
        if (!dialogs.AskNoYes(texts.before + item() + texts.after, texts.title)) return;
        if (!texts.mayChange()) return;
        all.erase(all.begin() + static_cast<std::ptrdiff_t>(*shown % all.size()));
        put(all);
    };
    return {.text = Captioned(setting.caption, item),
            .ends = {{"<", [step, items] { step(items().size() - 1); }},
                     {">", [step] { step(1); }},
                     {"Add", add},
                     {"Remove", remove}},
            .width = Row::Whole,
            .name = setting.name,
            .changes = {&setting}};
}

} // namespace vk
