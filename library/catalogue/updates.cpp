#include "library/catalogue/updates.h"

#include "library/catalogue/schema.h"
#include "platform/files.h"

#include <algorithm>

namespace vk {

DB_OBJ::Events CatalogueUpdates::Events() {
    return {.StatusChanged = [this](DBStateValue state) { ChangeStatus(state); },
            .ShowProgress = [this](const ScanProgress& progress) { ShowProgress(progress); },
            .UnhookDB =
                [this] { failure_ = n_.db.UnhookDB() ? "" : "the new file could not be taken"; },
            .DBError = [this](const ServerError& error) { ReportServerError(error); },
            .Lost =
                [this] {
                    EndScan();
                    failure_ = "DB_UPDATE has ended";
                    n_.db.ShowOldRows();
                    TryAgain();
                }};
}

// It may have been killed for want of memory while the system started. Without a catalogue from
// before there would be none until the next start.
void CatalogueUpdates::TryAgain() {
    if (!stopped_ && !std::exchange(triedAgain_, true)) RequestScan();
}

void CatalogueUpdates::ChangeStatus(DBStateValue state) {
    waiting_ = false;
    if (state == DBStateValue::OnLine && !n_.db.IsOpen()) state = DBStateValue::Disabled;
    n_.app.DBState = state;
    if (state == DBStateValue::Rebuilding) n_.app.quitAttempts = 0;
    if (state != DBStateValue::OnLine && state != DBStateValue::Disabled) return;
    EndScan();
    n_.db.RunUpdates();
}

void CatalogueUpdates::EndScan() {
    scanning_ = waiting_ = false;
}

void CatalogueUpdates::Open() {
    if (n_.app.DBState == DBStateValue::Offline) n_.db.InitDB(false);
}

bool CatalogueUpdates::FirstScanIsDue() const {
    const DBStateValue state = n_.app.DBState;
    return !fired_ && n_.app.Setup && n_.screens.CurrentForm != "settings" &&
           (state == DBStateValue::CheckPoint || state == DBStateValue::Initialized) &&
           !n_.settings.values.manualdb && FolderExists(n_.settings.values.MediaDir);
}

// Another media folder was chosen: the rows wait off line for an update, or for the old folder.
void CatalogueUpdates::FollowFolder() {
    if (Busy()) return;
    DBStateValue& state = n_.app.DBState;
    if (state == DBStateValue::OnLine && n_.db.OfOtherFolder()) {
        n_.report.Log("tags.mdb is of another media folder");
        state = DBStateValue::Initialized;
        foreign_ = true;
    } else if (foreign_ && !n_.db.OfOtherFolder()) {
        foreign_ = false;
        if (state == DBStateValue::Initialized) state = DBStateValue::OnLine;
    }
}

void CatalogueUpdates::Supervise() {
    FollowFolder();
    rescanWanted_ |= std::exchange(n_.db.RebuildDue, false);
    if (FirstScanIsDue()) {
        fired_ = true;
        Scan(true);
    } else if (ScanWanted() && !scanning_) {
        Scan(false);
    }
    if (std::exchange(stopWanted_, false)) n_.stop();
    n_.db.WritesRows(); // goes on with them
}

void CatalogueUpdates::RequestScan() {
    if (n_.app.DBState == DBStateValue::Disabled) n_.db.InitDB(false);
    rescanWanted_ = true;
}

void CatalogueUpdates::RequestStop() {
    stopWanted_ = waiting_ = stopped_ = true;
}

void CatalogueUpdates::Delete() {
    n_.report.Log("db checkpoint");
    n_.db.Close();
    DeleteFileAt(n_.settings.File(CatalogueFileName));
    n_.app.DBState = DBStateValue::Disabled;
}

void CatalogueUpdates::OpenAnew() {
    n_.app.DBState = DBStateValue::Offline;
    n_.db.InitDB(false);
    fired_ = false;
    rescanWanted_ = true; // in manual mode, and while the settings screen is in front
}

void CatalogueUpdates::Scan(bool full) {
    rescanWanted_ = stopped_ = foreign_ = false;
    scanning_ = waiting_ = true;
    progress_ = {ScanStep::Counting, 0, ""};
    toRead_ = 0;
    failure_.clear();
    const Settings& settings = n_.settings.values;
    n_.scan({.full = full,
             .appDir = n_.settings.StateDir(),
             .mediaDir = settings.MediaDir,
             .audioExtensions = settings.AudioExtensions,
             .videoExtensions = settings.VideoExtensions,
             .decimalSymbol = n_.app.DecimalSymbol,
             .extendedTags = settings.ExtendedTags});
}

void CatalogueUpdates::ShowProgress(const ScanProgress& progress) {
    progress_ = progress;
    if (progress.step == ScanStep::ToRead) toRead_ = progress.count;
    if (n_.progressShown && n_.screens.CurrentForm == "settings") n_.progressShown();
}

std::string CatalogueUpdates::Action() const {
    if (!Busy()) return failure_.empty() ? "" : "The last update failed: " + failure_;
    if (waiting_ || !scanning_) return "Please Wait...";
    if (progress_.step == ScanStep::Counting && progress_.count > 0)
        return progress_.text + "   " + std::to_string(progress_.count);
    if (progress_.step == ScanStep::Reading)
        return progress_.text + "   of " + std::to_string(toRead_);
    return progress_.text;
}

// Nearly all the time goes into reading tags.
int CatalogueUpdates::Percent() const {
    constexpr int Before = 10, Reading = 80;
    if (progress_.step < ScanStep::Reading) return 0;
    if (progress_.step > ScanStep::Reading || toRead_ <= 0) return Before + Reading;
    return Before + static_cast<int>(std::min(progress_.count, toRead_) * Reading / toRead_);
}

void CatalogueUpdates::ReportServerError(const ServerError& error) {
    failure_ = error.description; // unless the scan comes to its end all the same
    if (error.silent)
        n_.report.Log(std::to_string(error.number) + ", " + error.source + ", " +
                      error.description);
    else
        n_.report.ReportError(error.source, error.description, error.number);
}

} // namespace vk
