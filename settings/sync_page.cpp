#include "settings/sync_page.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <utility>

namespace vk {

namespace {

constexpr int RefreshMs = 100;

/// A folder, chosen by a touch or typed.
Row PathRow(Base& base, const Setting<std::string>& setting) {
    Row row = FolderRow(base.settings, base.dialogs, setting);
    row.width = Row::Whole;
    row.ends = {{"Type", [&] {
                     const auto typed =
                         base.dialogs.InputBox(setting.caption, {}, base.settings.Get(setting));
                     if (!typed) return;
                     if (typed->empty() || !FolderExists(*typed))
                         base.dialogs.ShowMessage("Not a valid directory!");
                     else
                         base.settings.Set(setting, WithoutTrailingSeparator(*typed));
                 }}};
    return row;
}

} // namespace

Page SyncPage(Base& base, Synchronizer& sync) {
    const auto idle = [&sync] { return !sync.Running(); };
    Page page{
        .name = "settingsSYNC",
        .tab = "Synchronize",
        .rows = {PathRow(base, setting::SyncSource), PathRow(base, setting::SyncDest),
                 ToggleRow(base.settings, setting::SyncBackup),
                 ToggleRow(base.settings, setting::SyncRefresh)},
        .heading = [&sync] { return "Automatic Music Synchronization System\n" + sync.Status(); },
        .refreshMs = RefreshMs};
    for (Row& row : page.rows)
        row.usable = idle;
    page.rows.push_back({.text = [&sync] { return std::string(sync.Caption()); },
                         .use = [&sync] { sync.cmdSync_Click(); },
                         .name = "cmdSync"});
    page.rows.push_back({.text = [&sync] { return std::string(sync.Running() ? "File" : ""); },
                         .percent = [&sync] { return sync.FilePercent(); },
                         .width = Row::Quarter});
    page.rows.push_back({.text = [&sync] { return std::string(sync.Running() ? "All" : ""); },
                         .percent = [&sync] { return sync.RunPercent(); },
                         .width = Row::Quarter});
    return page;
}

} // namespace vk
