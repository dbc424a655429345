// When the catalogue is opened, scanned and deleted, and what the server's events change.
#pragma once

#include "core/screens.h"
#include "library/catalogue/mod_db.h"
#include "library/catalogue/server_client.h"

#include <functional>

namespace vk {

/// One object a process. The system's first scan is started by the supervisor, further ones on
/// request; scans that come to nothing leave the old rows in use. A server that is lost is started
/// once more.
class CatalogueUpdates {
  public:
    /// All of it outlives this object.
    struct Needs {
        AppState& app;
        SettingsStore& settings;
        const Screens& screens;
        ErrorReport& report;
        modDB& db;
        std::function<void(const ScanRequest&)> scan;
        std::function<void()> stop;
        std::function<void()> progressShown = {}; ///< only while the settings are in front
    };
    explicit CatalogueUpdates(Needs needs) : n_(std::move(needs)) {}

    /// The handlers of the server's events.
    DB_OBJ::Events Events();
    /// Opens the catalogue unless that was done before.
    void Open();
    /// A tick of the supervisor: starts the scan that is due, stops the one that is not wanted.
    void Supervise();
    /// Wants a scan; a catalogue that is not in use is opened for it.
    void RequestScan();
    void RequestStop();
    /// Closes and deletes tags.mdb. It stays disabled until `OpenAnew`.
    void Delete();
    /// Makes an empty catalogue whose first scan is due.
    void OpenAnew();
    /// True while the server works, or is about to.
    bool Busy() const {
        return scanning_ || ScanWanted() || n_.app.DBState == DBStateValue::Rebuilding;
    }
    /// What the server is doing; between two updates why the last one failed, "" when it did not.
    std::string Action() const;
    /// How far the update is, of 100.
    int Percent() const;

  private:
    bool FirstScanIsDue() const;
    bool ScanWanted() const { return rescanWanted_ && n_.app.DBState != DBStateValue::Disabled; }
    void EndScan();
    void TryAgain();
    void FollowFolder();
    void Scan(bool full);
    void ChangeStatus(DBStateValue state);
    void ShowProgress(const ScanProgress& progress);
    void ReportServerError(const ServerError& error);

    Needs n_;
    ScanProgress progress_;
    std::int64_t toRead_ = 0; ///< files that the update has to read
    bool fired_ = false;      ///< the first scan of this run was started
    bool scanning_ = false;   ///< the server was started and has not come to its end
    bool rescanWanted_ = false;
    bool stopWanted_ = false;
    bool stopped_ = false;    ///< the user has ended the present update
    bool triedAgain_ = false; ///< after a server that was lost
    bool foreign_ = false;    ///< the rows are off line, as they are of another folder
    bool waiting_ = false;    ///< the server has not answered a request yet
    std::string failure_;     ///< of the last update
};

} // namespace vk
