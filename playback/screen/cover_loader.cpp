#include "playback/screen/cover_loader.h"

#include "skin/controls/picture_loader.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>

namespace vk {

/// What both threads see.
struct CoverLoader::Shared {
    Options options;
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<Job> waiting;
    CoverLoader* owner = nullptr; ///< null once it is gone
    bool ended = false;           ///< the thread is past its last use of this
};

namespace {

struct Loaded {
    CoverOutcome outcome;
    QImage image;
};

Loaded LoadInto(QSize box, const CoverRequest& request, const CoverLoader::Decoder& decode) {
    Loaded loaded;
    try {
        loaded.outcome = LoadCover(request, [&](const std::string& path) {
            loaded.image = decode(path, box);
            return !loaded.image.isNull();
        });
    } catch (const std::exception& failure) { // as memory that does not suffice
        loaded.outcome = {true, {}, failure.what()};
    }
    return loaded;
}

} // namespace

CoverLoader::CoverLoader(Options options) : shared_(std::make_shared<Shared>()) {
    shared_->options = std::move(options);
    if (!shared_->options.decode)
        shared_->options.decode = [](const std::string& path, QSize box) {
            return LoadPicture(path, box, PictureFit::Keep);
        };
    shared_->owner = this;
}

CoverLoader::~CoverLoader() {
    std::unique_lock lock(shared_->mutex);
    shared_->owner = nullptr;
    shared_->changed.notify_all();
    if (!thread_.joinable()) return;
    const auto patience = std::chrono::milliseconds(shared_->options.patienceMs);
    const bool ended = shared_->changed.wait_for(lock, patience, [this] { return shared_->ended; });
    lock.unlock();
    ended ? thread_.join() : thread_.detach();
}

void CoverLoader::Load(const CoverRequest& request, QSize box, Done done) {
    done_ = std::move(done);
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->waiting = Job{request, box, ++ticket_};
        shared_->changed.notify_all();
    }
    if (!thread_.joinable()) thread_ = std::thread([shared = shared_] { Work(*shared); });
}

void CoverLoader::Cancel() {
    done_ = nullptr;
    ++ticket_;
    const std::lock_guard lock(shared_->mutex);
    shared_->waiting.reset();
}

// The lock is held but for the loading itself, so that the owner is there when it is told.
void CoverLoader::Work(Shared& shared) {
    std::unique_lock lock(shared.mutex);
    for (;;) {
        shared.changed.wait(lock, [&] { return shared.waiting || !shared.owner; });
        if (!shared.owner) break;
        const Job job = *std::exchange(shared.waiting, std::nullopt);
        lock.unlock();
        const Loaded loaded = LoadInto(job.box, job.request, shared.options.decode);
        lock.lock();
        if (CoverLoader* owner = shared.owner)
            QMetaObject::invokeMethod(
                &owner->receiver_,
                [=] { owner->Deliver(job.ticket, loaded.outcome, loaded.image); },
                Qt::QueuedConnection);
    }
    shared.ended = true;
    shared.changed.notify_all();
}

void CoverLoader::Deliver(unsigned ticket, const CoverOutcome& outcome, const QImage& image) {
    if (ticket != ticket_ || !done_) return;
    const Done done = std::move(done_);
    done_ = nullptr;
    done(outcome, image);
}

} // namespace vk
