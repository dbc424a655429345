#include "dbupdate/scan/scan.h"

#include "core/error_report.h"
#include "core/text.h"
#include "dbupdate/scan/compare.h"
#include "dbupdate/scan/tag_pool.h"
#include "dbupdate/scan/working_copy.h"
#include "library/catalogue/schema.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <memory>

namespace vk {

namespace {

constexpr int NoMediaFiles = 53; // "File not found"
constexpr std::int64_t FilesAProgress = 512;
constexpr std::int64_t FewOf = 10; // a tenth of the rows

class Scan {
  public:
    Scan(const ScanRequest& request, const ScanNeeds& needs) : request_(request), needs_(needs) {
        types_.Load(request.audioExtensions, request.videoExtensions);
    }

    void Run() {
        SendState(DBStateValue::Rebuilding);
        DeleteFileAt(JoinPath(request_.appDir, WorkingCatalogueName)); // a killed scan leaves it
        try {
            OpenCatalogue();
            Work();
        } catch (const std::exception& error) {
            SendError(error);
        }
        catalogue_.reset();
        Progress(ScanStep::Ready, 0, "Ready");
        SendState(rows_ > 0 || succeeded_ ? DBStateValue::OnLine : DBStateValue::Disabled);
    }

  private:
    void OpenCatalogue() {
        try {
            auto opened = std::make_unique<Database>(JoinPath(request_.appDir, CatalogueFileName),
                                                     Database::Mode::ReadOnly);
            CheckCatalogue(*opened);
            if (OriginOf(*opened) != Wanted()) return; // nothing in it can be compared
            rows_ = CountFiles(*opened);
            if (rows_ > 0) catalogue_ = std::move(opened);
        } catch (const std::exception& error) {
            SendError(error); // and all is read anew
        }
    }

    Origin Wanted() const {
        return {WithoutTrailingSeparator(request_.mediaDir), request_.extendedTags};
    }

    void Work() {
        Progress(ScanStep::Counting, 0, "Getting File Count");
        std::int64_t told = 0;
        const FoundFiles found =
            WalkMedia(request_.mediaDir, types_, needs_.stop, [&](std::int64_t count) {
                if (count - told < FilesAProgress) return;
                told = count;
                Progress(ScanStep::Counting, count, "Getting File Count");
            });
        if (found.stopped) return;
        Progress(ScanStep::Counted, Count(found.files), "Please Wait...");
        if (found.files.empty() && rows_ > 0)
            throw Error("The media folder " + request_.mediaDir + " holds no media files",
                        NoMediaFiles);
        const Changes changes = Compare(found);
        if (!changes.None() || !catalogue_) WriteOrRenew(found, changes);
        succeeded_ = !needs_.stop;
    }

    /// What cannot be read any more is given up.
    Changes Compare(const FoundFiles& found) {
        Progress(ScanStep::Comparing, 0, "Please Wait...");
        try {
            return CompareWithRows(found, catalogue_.get());
        } catch (const std::exception& error) {
            SendError(error);
            catalogue_.reset();
            return CompareWithRows(found, nullptr);
        }
    }

    /// Damage of an index shows only when rows change: all is written anew, once.
    void WriteOrRenew(const FoundFiles& found, const Changes& changes) {
        try {
            Write(found, changes);
        } catch (const std::exception& error) {
            if (!catalogue_ || !IsDamage(error)) throw;
            SendError(error);
            catalogue_.reset();
            Write(found, CompareWithRows(found, nullptr));
        }
    }

    void Write(const FoundFiles& found, const Changes& changes) {
        WorkingCopy copy(request_.appDir, catalogue_.get());
        Progress(ScanStep::ToRead, Count(changes.toRead), "Please Wait...");
        WriteRead(found, changes, copy.Rows());
        if (needs_.stop) return;
        const std::int64_t gone = Count(changes.gone);
        Progress(ScanStep::Reconciling, gone, std::to_string(gone) + " reconciling db");
        for (const std::string& key : changes.gone)
            copy.Rows().Remove(key);
        copy.SetDrives(changes.drives);
        copy.SetOrigin(Wanted());
        Progress(ScanStep::Writing, 0, "Please Wait...");
        copy.Finish(
            {.compact = request_.full, .measure = (Count(changes.toRead) + gone) * FewOf > rows_});
        catalogue_.reset();
        Progress(ScanStep::Checkpoint, 0, "Please Wait...");
        SendState(DBStateValue::CheckPoint);
        ServerEvent unhook;
        unhook.kind = ServerEvent::Kind::UnhookDB;
        needs_.send(unhook);
    }

    void WriteRead(const FoundFiles& found, const Changes& changes, RowWriter& rows) {
        TagPool pool({request_.mediaDir, found, changes.toRead, request_.decimalSymbol,
                      request_.extendedTags, needs_.log, needs_.stop});
        std::int64_t done = 0, told = 0;
        while (const auto read = pool.Take()) {
            for (const FileRow& row : *read)
                rows.Put(row);
            done += Count(*read);
            if (done - told < FilesAProgress) continue;
            told = done;
            Progress(ScanStep::Reading, done, std::to_string(done) + " reconciling db");
        }
    }

    template<class Container> static std::int64_t Count(const Container& container) {
        return static_cast<std::int64_t>(container.size());
    }

    void SendState(DBStateValue state) const {
        ServerEvent event;
        event.kind = ServerEvent::Kind::StatusChanged;
        event.state = state;
        needs_.send(event);
    }

    void Progress(ScanStep step, std::int64_t count, const std::string& text) const {
        ServerEvent event;
        event.kind = ServerEvent::Kind::ShowProgress;
        event.progress = {step, count, text};
        needs_.send(event);
    }

    void SendError(const std::exception& error) const {
        ServerEvent event;
        event.kind = ServerEvent::Kind::DBError;
        event.error = {ErrorNumber(error), "DB_UPDATE", error.what(), true};
        needs_.send(event);
    }

    const ScanRequest& request_;
    const ScanNeeds& needs_;
    MediaExtensions types_;
    std::unique_ptr<Database> catalogue_; ///< null while there is none, or none to be trusted
    std::int64_t rows_ = 0;
    bool succeeded_ = false;
};

} // namespace

void RunScan(const ScanRequest& request, const ScanNeeds& needs) {
    Scan(request, needs).Run();
}

} // namespace vk
