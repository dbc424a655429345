#include "library/catalogue/row_queue.h"

#include "core/error_report.h"
#include "library/catalogue/row_update.h"
#include "platform/no_dialogs.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <thread>
#include <utility>

namespace vk {

namespace {

void Write(const RowQueue::Place& place, const std::vector<std::string>& paths) {
    Database database(place.catalogue, Database::Mode::ReadWrite);
    PrepareToWrite(database);
    NoDialogs nobody;
    ID3 reader{{place.log, nobody}, place.decimalSymbol, place.origin.extendedTags};
    const RowSource source{place.extensions, place.mediaDir, reader};
    std::vector<FileRow> rows;
    for (const std::string& path : paths)
        try {
            if (auto row = ChangedRow(database, source, path)) rows.push_back(std::move(*row));
        } catch (const std::exception& error) {
            if (IsDamage(error)) throw;
            place.log.WriteDebugLog(std::string(UpdateFailed) + error.what());
        }
    if (!rows.empty()) WriteRows(database, place.origin, rows);
}

} // namespace

void RowQueue::Add(const std::vector<std::string>& paths) {
    paths_.insert(paths_.end(), paths.begin(), paths.end());
}

void RowQueue::Clear() {
    StartOver();
    paths_.clear();
}

bool RowQueue::Writing() const {
    return writing_.valid() &&
           writing_.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

void RowQueue::Begin(Place place) {
    begun_ = std::min(paths_.size(), AtOnce);
    std::vector<std::string> first(paths_.begin(),
                                   paths_.begin() + static_cast<std::ptrdiff_t>(begun_));
    std::packaged_task<void()> task(
        [place = std::move(place), first = std::move(first)] { Write(place, first); });
    writing_ = task.get_future();
    std::thread(std::move(task)).detach();
}

void RowQueue::Finish() {
    if (!writing_.valid()) return;
    const auto done = static_cast<std::ptrdiff_t>(std::exchange(begun_, 0));
    std::exception_ptr failure;
    try {
        writing_.get();
    } catch (const std::exception& error) {
        if (++failures_ < Tries && !IsDamage(error)) return;
        failure = std::current_exception();
    }
    failures_ = 0;
    paths_.erase(paths_.begin(), paths_.begin() + done);
    if (failure) std::rethrow_exception(failure);
}

void RowQueue::StartOver() {
    if (writing_.valid()) writing_.wait();
    writing_ = {};
    begun_ = 0;
}

} // namespace vk
