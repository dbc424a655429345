#include "settings/sync_page.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <utility>

namespace vk {

namespace {

constexpr int RefreshMs = 100;
constexpr int BarColumns = 4; // what the run does stands beside its bars

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

Row Third(Row row) {
    row.width = Row::Third;
    return row;
}

} // namespace

Page SyncPage(Base& base, Synchronizer& sync) {
    Page page{.name = "settingsSYNC",
              .tab = "Synchronize",
              .rows = {PathRow(base, setting::SyncSource), PathRow(base, setting::SyncDest),
                       Third(ToggleRow(base.settings, setting::SyncBackup)),
                       Third(ToggleRow(base.settings, setting::SyncRefresh))},
              .heading = [] { return std::string("Automatic Music Synchronization System"); },
              .refreshMs = RefreshMs};
    for (Row& row : page.rows)
        row.usable = [&sync] { return !sync.Running(); };
    page.rows.push_back({.text = [&sync] { return std::string(sync.Caption()); },
                         .use = [&sync] { sync.cmdSync_Click(); },
                         .width = Row::Third,
                         .name = "cmdSync"});
    page.rows.push_back({.text = [&sync] { return sync.Status(); },
                         .width = Row::Whole - 2 * BarColumns,
                         .name = "lblStatus"});
    const auto bar = [&sync](const char* caption, int (Synchronizer::*percent)() const) {
        return Row{.text = [&sync, caption] { return std::string(sync.Running() ? caption : ""); },
                   .percent = [&sync, percent] { return (sync.*percent)(); },
                   .width = BarColumns};
    };
    page.rows.push_back(bar("File", &Synchronizer::FilePercent));
    page.rows.push_back(bar("All", &Synchronizer::RunPercent));
    return page;
}

} // namespace vk
