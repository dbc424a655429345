#include "settings/debug_page.h"

#include "platform/copy_file.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <cstdio>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace vk {

namespace {

constexpr int LogLines = 3; // of the page

std::string FolderName(const DateTime& now) {
    char text[64];
    std::snprintf(text, sizeof text, "velkorandum_%04d%02d%02d_%02d%02d%02d", now.year, now.month,
                  now.day, now.hour, now.minute, now.second);
    return text;
}

} // namespace

/// What the two threads share.
struct DebugPage::Copy {
    std::string log, folder, settingsName, settings; ///< the last as a whole file
    std::mutex mutex;
    std::optional<std::string> told; ///< how it came out, under the mutex

    std::string Made() const {
        if (!FolderExists(folder) && !MakeFolder(folder)) return "Could not be written: " + folder;
        const CopyOutcome copied = CopyInPieces(log, JoinPath(folder, FileNameOf(log)),
                                                [](std::uint64_t, std::uint64_t) { return true; });
        if (copied.kind != CopyOutcome::Done)
            return "Could not be copied: " + log + "\n" + copied.reason;
        std::string reason;
        if (!ReplaceFile(JoinPath(folder, settingsName), settings, &reason))
            return "Could not be copied: " + settingsName + "\n" + reason;
        return FlushFile(folder) ? "Copied to " + folder : "Could not be written: " + folder;
    }
    void Work() {
        std::string outcome = Made();
        const std::lock_guard lock(mutex);
        told = std::move(outcome);
    }
    std::optional<std::string> Outcome() {
        const std::lock_guard lock(mutex);
        return told;
    }
};

void DebugPage::btnClearLog_Click() {
    base_.log.MakeLogFile();
    told_ = "The log is cleared";
}

std::optional<std::string> DebugPage::ChosenDrive() {
    std::vector<std::string> roots, captions;
    for (const Drive& drive : base_.volumes.Drives()) {
        if (drive.type != DriveType::Removable || !base_.volumes.IsReady(drive.root)) continue;
        roots.push_back(drive.root);
        captions.push_back(base_.volumes.Label(drive.root) + "  " + drive.root);
    }
    if (roots.empty()) told_ = "There is no removable drive";
    if (roots.size() < 2) return roots.empty() ? std::nullopt : std::optional(roots.front());
    const auto chosen = base_.dialogs.Choose("Copy to", captions, 0);
    return chosen ? std::optional(roots[static_cast<std::size_t>(*chosen)]) : std::nullopt;
}

void DebugPage::CopyToDrive() {
    if (copy_) return;
    const auto drive = ChosenDrive();
    if (!drive) return;
    const std::string settings = base_.settings.SettingsFile();
    copy_ = std::make_shared<Copy>();
    copy_->log = base_.log.FileName();
    copy_->folder = JoinPath(*drive, FolderName(base_.clock.Now()));
    copy_->settingsName = FileNameOf(settings);
    copy_->settings = base_.settings.ini().Contents(settings);
    told_ = "Copying to " + copy_->folder + " ...";
    std::thread([copy = copy_] { copy->Work(); }).detach();
}

// Looked at with each drawing.
std::string DebugPage::Told() {
    if (const auto outcome = copy_ ? copy_->Outcome() : std::nullopt) {
        told_ = *outcome;
        copy_.reset();
    }
    return told_.empty() ? base_.log.FileName() : told_;
}

Page DebugPage::Describe() {
    Row log = ProgressRow([this] { return log_.Text(); });
    log.lines = LogLines;
    log.scroll = [this](int lines) { log_.Move(lines); };
    const auto button = [](const char* caption, std::function<void()> use, const char* name) {
        return ButtonRow(caption, std::move(use), Row::Quarter, name);
    };
    return {.name = "settingsDebug",
            .tab = "Debug",
            .rows = {log,
                     button(
                         "Older lines", [this] { log_.Move(LogView::Step); }, "btnOlder"),
                     button(
                         "Newer lines", [this] { log_.Move(-LogView::Step); }, "btnNewer"),
                     button(
                         "Clear the log", [this] { btnClearLog_Click(); }, "btnClearLog"),
                     button(
                         "Copy to a drive", [this] { CopyToDrive(); }, "btnCopyLog")},
            .heading = [this] { return Told(); },
            .leave =
                [this] {
                    if (!copy_) told_.clear();
                }};
}

} // namespace vk
