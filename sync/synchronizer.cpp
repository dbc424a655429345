#include "sync/synchronizer.h"

#include "platform/background.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <iterator>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace vk {

namespace {

constexpr int TickMs = 50;
constexpr int LinesATick = 400; // some milliseconds

std::string BackupName(const DateTime& now) {
    char text[64];
    std::snprintf(text, sizeof text, "backup_%02d%02d%04d_%02d%02d%02d", now.day, now.month,
                  now.year, now.hour, now.minute, now.second);
    return text;
}

std::string Missing(const std::string& drive) {
    return "Drive " + drive + "not available";
}

std::string Summary(const SyncResult& result) {
    std::string text = "Files checked: " + std::to_string(result.filesChecked) +
                       "  Copied: " + std::to_string(result.filesCopied) +
                       "   Made backup: " + std::to_string(result.filesBackedUp);
    if (result.filesFailed > 0)
        text += "   Failed: " + std::to_string(result.filesFailed) + " (" + result.failure + ")";
    return text;
}

} // namespace

/// What the two threads share.
struct Synchronizer::Run {
    explicit Run(SyncOrder what) : order(std::move(what)) {}

    void Work() {
        WorkThreadInBackground(); // the music must not stutter
        const SyncListener listener{[this] { return watched.exchange(false); },
                                    [this](const std::string& text) {
                                        const std::lock_guard lock(mutex);
                                        status = text;
                                    },
                                    [this](const std::string& line) {
                                        const std::lock_guard lock(mutex);
                                        lines.push_back(line);
                                    },
                                    [this](const std::string& path) {
                                        const std::lock_guard lock(mutex);
                                        copied.push_back(path);
                                    },
                                    [this](int file, int whole) {
                                        filePercent = file;
                                        runPercent = whole;
                                        return !stop;
                                    }};
        const SyncResult ended = FolderCopy(order, listener).CopyFiles();
        const std::lock_guard lock(mutex);
        result = ended;
        over.notify_all();
    }
    bool WaitForEnd(int milliseconds) {
        std::unique_lock lock(mutex);
        return over.wait_for(lock, std::chrono::milliseconds(milliseconds),
                             [this] { return result.has_value(); });
    }

    const SyncOrder order;
    std::atomic<bool> stop = false;
    std::atomic<bool> watched = true; ///< the status was shown
    std::atomic<int> filePercent = 0, runPercent = 0;
    std::mutex mutex; ///< of what follows
    std::condition_variable over;
    std::string status;
    std::vector<std::string> lines, copied;
    std::optional<SyncResult> result;
};

Synchronizer::Synchronizer(Base& base, Catalogue& catalogue)
    : base_(base), catalogue_(catalogue), timer_(base.clock.MakeTimer([this] { Tick(); })) {}

Synchronizer::~Synchronizer() {
    if (!run_) return;
    Abort();
    if (!run_->WaitForEnd(EndMs)) base_.log.WriteSyncLog("the run does not end, it is left alone");
    Take();
    while (!lines_.empty())
        LogSome();
}

void Synchronizer::cmdSync_Click() {
    if (Running()) return Abort();
    Trap(base_.report, "An error occured in settings.cmdSync_Click ", [this] { CopyFiles(); });
}

void Synchronizer::Abort() {
    if (run_) run_->stop = true;
}

bool Synchronizer::Ready(const SyncOrder& order) {
    status_ = "Checking for source drive availability...";
    const std::string drive = base_.volumes.DriveOf(order.source);
    if (!order.source.empty() && !base_.volumes.IsReady(drive)) {
        status_ = Missing(drive);
        return false;
    }
    for (const std::string& folder : {order.source, order.dest}) {
        if (!folder.empty() && FolderExists(folder)) continue;
        status_ = folder;
        base_.dialogs.ShowMessage("Not a valid directory!");
        return false;
    }
    return true;
}

void Synchronizer::CopyFiles() {
    SettingsStore& store = base_.settings;
    SyncOrder order{.source = WithoutTrailingSeparator(store.values.SyncSource),
                    .dest = WithoutTrailingSeparator(store.values.SyncDest),
                    .backup = store.values.SyncBackup,
                    .refresh = store.values.SyncRefresh,
                    .backupName = BackupName(base_.clock.Now())};
    if (!Ready(order)) return;
    sourceDrive_ = base_.volumes.DriveOf(order.source);
    destDrive_ = base_.volumes.DriveOf(order.dest);
    run_ = std::make_shared<Run>(std::move(order));
    filePercent_ = runPercent_ = 0;
    std::thread([run = run_] { run->Work(); }).detach();
    timer_->Start(TickMs);
}

// The end is told when everything that was copied is catalogued.
void Synchronizer::Tick() {
    Take();
    LogSome();
    CatalogueCopied();
    if (!catalogue_.WritesRows() && result_ && lines_.empty())
        End(*std::exchange(result_, std::nullopt));
}

// Never waits for the other thread, which may be passed over for long while it holds the lock.
void Synchronizer::Take() {
    const std::unique_lock lock(run_->mutex, std::try_to_lock);
    if (!lock) return;
    std::ranges::move(run_->lines, std::back_inserter(lines_));
    run_->lines.clear();
    copied_.swap(run_->copied);
    status_ = run_->status;
    result_ = run_->result;
    filePercent_ = run_->filePercent;
    runPercent_ = run_->runPercent;
    run_->watched = true;
}

void Synchronizer::LogSome() {
    for (int i = 0; i < LinesATick && !lines_.empty(); ++i) {
        base_.log.WriteSyncLog(lines_.front());
        lines_.pop_front();
    }
}

void Synchronizer::CatalogueCopied() {
    const std::string library =
        WithoutTrailingSeparator(base_.settings.values.MediaDir) + PathSeparator;
    std::erase_if(copied_, [&](const std::string& path) { return !path.starts_with(library); });
    catalogue_.UpdateFileRows(std::exchange(copied_, {}));
}

void Synchronizer::End(const SyncResult& result) {
    timer_->Stop();
    run_.reset();
    switch (result.end) {
    case SyncResult::NoSpace:
        status_ = "Sync could not complete due to insufficient disk space";
        break;
    case SyncResult::SourceGone:
        status_ = Missing(sourceDrive_);
        break;
    case SyncResult::DestGone:
        status_ = Missing(destDrive_);
        break;
    default:
        status_ = Summary(result);
    }
    base_.log.WriteSyncLog(status_ + (result.end == SyncResult::Aborted ? ", aborted" : ""));
}

} // namespace vk
