#include "settings/actions_page.h"

namespace vk {

namespace {

Row WheelRow(SettingsStore& store) {
    return {.text =
                [&store] {
                    return setting::MouseFunction.caption +
                           std::string(store.values.MouseFunction == 0 ? "\nscrolls lists"
                                                                       : "\nchanges the volume");
                },
            .use =
                [&store] {
                    store.Set(setting::MouseFunction, store.values.MouseFunction == 0 ? 1 : 0);
                },
            .name = setting::MouseFunction.name,
            .changes = {&setting::MouseFunction}};
}

} // namespace

Page ActionsPage(SettingsStore& store) {
    return {
        .name = "settingsActions",
        .tab = "Actions",
        .rows = {ToggleRow(store, setting::LoadtoMP3), ToggleRow(store, setting::UseBrowseHistory),
                 ToggleRow(store, setting::ShowElapsedTime), ToggleRow(store, setting::AdjMainVol),
                 ToggleRow(store, setting::UseSplitVolume),
                 ToggleRow(store, setting::bTSModeEnabled), StepperRow(store, setting::TSRepeatVal),
                 WheelRow(store), StepperRow(store, setting::MouseIncrement),
                 StepperRow(store, setting::SearchesToSave),
                 StepperRow(store, setting::TopNewCount), ToggleRow(store, setting::alwaysontop),
                 ToggleRow(store, setting::HighQBlit)},
        .heading = [] { return std::string("These settings count when you leave with Done"); }};
}

} // namespace vk
