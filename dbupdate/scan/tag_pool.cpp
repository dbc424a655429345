#include "dbupdate/scan/tag_pool.h"

#include "library/catalogue/date_stamp.h"
#include "platform/no_dialogs.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace vk {

namespace {

constexpr std::size_t FilesAtOnce = 64;
constexpr std::size_t MostReady = 16; // of these, not files

} // namespace

TagPool::TagPool(const TagWork& work) : work_(work) {
    for (unsigned i = std::max(1u, std::thread::hardware_concurrency()); i > 0; --i)
        if (!Start()) break;
}

/// False when the machine gives no further thread; without any at all it throws.
bool TagPool::Start() {
    const std::lock_guard lock(mutex_);
    try {
        threads_.emplace_back([this] { Read(); });
        ++reading_;
        return true;
    } catch (const std::system_error&) {
        if (threads_.empty()) throw;
        return false;
    }
}

TagPool::~TagPool() {
    const std::lock_guard lock(mutex_);
    closing_ = true;
    changed_.notify_all();
}

void TagPool::Read() {
    NoDialogs dialogs;
    ID3 reader({work_.log, dialogs}, work_.decimalSymbol, work_.extendedTags);
    for (bool wanted = true; wanted;) {
        const std::size_t first = next_.fetch_add(FilesAtOnce);
        const std::size_t end = std::min(first + FilesAtOnce, work_.files.size());
        if (first >= end) break;
        Rows rows;
        for (std::size_t i = first; i < end && !work_.stop; ++i) {
            const FoundFile& file = *work_.files[i];
            const std::string path = work_.found.Path(file);
            rows.push_back(
                MakeFileRow(reader, work_.root + path, path, DateStamp(file.date), file.mediaType));
        }
        wanted = Hand(first, std::move(rows));
    }
    const std::lock_guard lock(mutex_);
    --reading_;
    changed_.notify_all();
}

bool TagPool::Hand(std::size_t first, Rows rows) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] {
        return ready_.size() < MostReady || first == taken_ || closing_ || work_.stop;
    });
    ready_[first] = std::move(rows);
    changed_.notify_all();
    return !closing_ && !work_.stop;
}

std::optional<TagPool::Rows> TagPool::Take() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ready_.contains(taken_) || reading_ == 0 || work_.stop; });
    auto next = ready_.extract(taken_);
    if (next.empty() || work_.stop) return std::nullopt;
    taken_ += next.mapped().size();
    changed_.notify_all();
    return std::move(next.mapped());
}

} // namespace vk
