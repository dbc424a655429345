// The catalogue as the main program uses it: one connection to tags.mdb in the application
// directory.
#pragma once

#include "core/error_report.h"
#include "core/settings.h"
#include "library/catalogue.h"
#include "library/catalogue/row_queue.h"
#include "library/catalogue/schema.h"
#include "library/tags/media_type.h"
#include "library/tags/tag_reader.h"

#include <memory>
#include <string>
#include <vector>

namespace vk {

class modDB : public Catalogue {
  public:
    /// All of it outlives the catalogue.
    struct Needs {
        AppState& app;
        const MediaExtensions& extensions;
        SettingsStore& settings;
        ErrorReport& report;
        ID3& reader;
    };

    explicit modDB(Needs needs) : needs_(needs) {}

    /// Opens tags.mdb, made from its template when it is missing, and sets `DBState`; with `keep`
    /// an open catalogue keeps the state it has. A file that cannot be opened, whatever the reason,
    /// is told in the log and `RebuildDue` set; rows of another media folder stay off line.
    void InitDB(bool keep);
    /// Closes the connection, takes the server's new file in place of tags.mdb and opens that.
    /// False when it could not be taken: the old one is open again, or none, which disables the
    /// catalogue.
    bool UnhookDB();
    /// Does the updates that were put off while the server worked: when it has finished.
    void RunUpdates();
    /// Closes the connection; the file can be deleted then.
    void Close() {
        rows_.StartOver();
        database_.reset();
    }
    bool IsOpen() const { return database_ != nullptr; }
    /// True when the rows are those of another media folder than the settings name.
    bool OfOtherFolder() const;
    /// After a scan that came to nothing: the old rows are shown, and where there are none the
    /// screens read the folders themselves.
    void ShowOldRows();
    /// The server put its file in place of the old one; whoever acts on it clears the flag.
    bool Replaced = false;
    /// The file cannot be used, which may show first in a query: only a scan, whose new file takes
    /// its place, brings the catalogue back; whoever wants it clears the flag.
    bool RebuildDue = false;

    DBStateValue State() const override { return needs_.app.DBState; }
    std::vector<CatalogueFile> FolderFiles(const std::string& folder, bool playableOnly,
                                           bool sortByFilename) override;
    std::vector<CatalogueFile> FilesBelow(const std::string& folder) override;
    std::vector<CatalogueFile> Files(const std::string& sql) override;
    void EachFile(const std::string& sql,
                  const std::function<bool(const CatalogueFile&)>& take) override;
    std::vector<CatalogueRecord> Records(const std::string& sql) override;
    std::optional<TagRecord> StoredTag(const std::string& path) override;
    void UpdateFileRow(const std::string& path) override;
    void UpdateFileRows(const std::vector<std::string>& paths) override { rows_.Add(paths); }
    bool WritesRows() override;

  private:
    std::string File(const char* name) const;
    void Open();
    bool TryToOpen();
    Origin WantedOrigin() const;
    bool ServerWorks() const;
    template<class Work> auto Guarded(const Work& work);
    void GiveUp(const std::exception& damage);
    bool CopyTemplate();
    std::string WhyThereIsNone() const;
    Database& Opened();
    Statement Query(const std::string& sql);
    std::string ParentDirOf(const std::string& folder) const;
    CatalogueFile ReadFile(const Statement& record) const;
    std::string StoredPath(std::string_view stored) const;
    std::optional<TagRecord> FindTag(const std::string& path);
    void Put(const std::string& path);
    RowQueue::Place Place() const;

    Needs needs_;
    std::unique_ptr<Database> database_;
    Origin origin_;                ///< of the rows of the open file
    std::vector<std::string> due_; ///< paths to be updated when the server has finished
    RowQueue rows_;
};

} // namespace vk
