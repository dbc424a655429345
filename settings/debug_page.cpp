#include "settings/debug_page.h"

#include "core/text.h"
#include "platform/copy_file.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/random_file.h"

#include <algorithm>
#include <cstdio>

namespace vk {

namespace {

constexpr std::uint64_t ReadFromEnd = 4096; // bytes
constexpr std::size_t LinesShown = 6, CharactersShown = 90;
constexpr int LogLines = 3; // of the page

std::string FolderName(const DateTime& now) {
    char text[64];
    std::snprintf(text, sizeof text, "velkorandum_%04d%02d%02d_%02d%02d%02d", now.year, now.month,
                  now.day, now.hour, now.minute, now.second);
    return text;
}

} // namespace

// It is asked with each drawing, and read when it has grown.
const std::string& DebugPage::LogEnd() {
    const FileStamp now = StampOf(base_.log.FileName());
    if (end_.empty() || !now.settled || !now.SameAs(read_)) end_ = ReadEnd();
    read_ = now;
    return end_;
}

std::string DebugPage::ReadEnd() const {
    const RandomFile log(base_.log.FileName());
    if (!log.IsOpen()) return "The log is empty";
    std::string text(std::min(log.Length(), ReadFromEnd), '\0');
    text.resize(log.ReadAt(log.Length() - text.size(), text.data(), text.size()));
    std::vector<std::string> lines = Split(ReplaceAll(Trim(ToUtf8(text)), "\r", ""), '\n');
    if (lines.size() > LinesShown)
        lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(LinesShown));
    for (std::string& line : lines)
        line = Left(line, CharactersShown);
    return Join(lines, "\n");
}

void DebugPage::btnClearLog_Click() {
    base_.log.MakeLogFile();
    told_ = "The log is cleared";
}

void DebugPage::CopyToDrive() {
    const std::vector<Drive> drives = base_.volumes.Drives();
    const auto drive = std::ranges::find_if(drives, [this](const Drive& each) {
        return each.type == DriveType::Removable && base_.volumes.IsReady(each.root);
    });
    if (drive == drives.end()) {
        told_ = "There is no removable drive";
        return;
    }
    base_.settings.Finish();
    const std::string folder = JoinPath(drive->root, FolderName(base_.clock.Now()));
    told_ = "Copied to " + folder;
    if (!MakeFolder(folder)) told_ = "Could not be written: " + folder;
    Work work(base_.pump, "copying the log");
    for (const std::string& file : {base_.log.FileName(), base_.settings.SettingsFile()}) {
        const CopyOutcome copied =
            CopyInPieces(file, JoinPath(folder, FileNameOf(file)),
                         [&](std::uint64_t, std::uint64_t) { return work.Pulse(); });
        if (copied.kind != CopyOutcome::Done)
            told_ = "Could not be copied: " + file + "\n" + copied.reason;
    }
    FlushFile(folder);
}

Page DebugPage::Describe() {
    Row log = ProgressRow([this] { return LogEnd(); });
    log.lines = LogLines;
    return {
        .name = "settingsDebug",
        .tab = "Debug",
        .rows = {log,
                 ButtonRow(
                     "Clear the log", [this] { btnClearLog_Click(); }, Row::Half, "btnClearLog"),
                 ButtonRow(
                     "Copy to a removable drive", [this] { CopyToDrive(); }, Row::Half,
                     "btnCopyLog")},
        .heading = [this] { return told_.empty() ? base_.log.FileName() : told_; },
        .leave = [this] { told_.clear(); }};
}

} // namespace vk
