// The synchronisation as the user works it: started, watched, aborted.
#pragma once

#include "core/base.h"
#include "library/catalogue.h"
#include "sync/folder_copy.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vk {

/// The files are copied on a thread of their own, behind all else that the machine does.
class Synchronizer {
  public:
    /// Both outlive this object.
    Synchronizer(Base& base, Catalogue& catalogue);
    /// Aborts a run and waits for its end, at most `EndMs`: a device that hangs holds nothing up.
    ~Synchronizer();
    Synchronizer(const Synchronizer&) = delete;
    Synchronizer& operator=(const Synchronizer&) = delete;

    static constexpr int EndMs = 2000;

    /// Starts a run, or aborts the one that is under way.
    void cmdSync_Click();
    /// A run comes to its end soon; without one nothing happens.
    void Abort();
    bool Running() const { return run_ != nullptr; }
    /// What the button does now.
    const char* Caption() const { return Running() ? "Abort" : "Synchronize Now"; }
    /// `lblStatus`: what the run does, or how the last one ended.
    const std::string& Status() const { return status_; }
    /// How far the file and the run are, of 100; -1 without a run.
    int FilePercent() const { return Running() ? filePercent_ : -1; }
    int RunPercent() const { return Running() ? runPercent_ : -1; }

  private:
    struct Run;
    void CopyFiles();
    bool Ready(const SyncOrder& order);
    void Tick();
    void Take();
    void LogSome();
    void CatalogueCopied();
    void End(const SyncResult& result);

    Base& base_;
    Catalogue& catalogue_;
    std::unique_ptr<Timer> timer_;
    std::shared_ptr<Run> run_;            ///< shared with its thread
    std::deque<std::string> lines_;       ///< to be logged
    std::vector<std::string> copied_;     ///< to be catalogued
    std::optional<SyncResult> result_;    ///< of the run, when its thread has come to its end
    std::string sourceDrive_, destDrive_; ///< of the run; one that has gone has no name any more
    std::string status_;
    int filePercent_ = 0, runPercent_ = 0;
};

} // namespace vk
