#include "playback/screen/cover_loader.h"

#include "skin/controls/picture_loader.h"

namespace vk {

CoverLoader::~CoverLoader() {
    Cancel();
    thread_.quit();
    thread_.wait();
}

void CoverLoader::Load(const CoverRequest& request, QSize box, Done done) {
    if (!thread_.isRunning()) {
        worker_.moveToThread(&thread_);
        thread_.start();
    }
    done_ = std::move(done);
    {
        const std::lock_guard lock(mutex_);
        waiting_ = Job{request, box, ++ticket_};
    }
    QMetaObject::invokeMethod(
        &worker_, [this] { Work(); }, Qt::QueuedConnection);
}

void CoverLoader::Cancel() {
    done_ = nullptr;
    ++ticket_;
    const std::lock_guard lock(mutex_);
    waiting_.reset();
}

void CoverLoader::Work() {
    std::optional<Job> job;
    {
        const std::lock_guard lock(mutex_);
        job.swap(waiting_);
    }
    if (!job) return; // served already, or called off
    QImage image;
    const CoverOutcome outcome = LoadCover(job->request, [&](const std::string& path) {
        image = LoadPicture(path, job->box, PictureFit::Keep);
        return !image.isNull();
    });
    QMetaObject::invokeMethod(
        &receiver_,
        [this, ticket = job->ticket, outcome, image] { Deliver(ticket, outcome, image); },
        Qt::QueuedConnection);
}

void CoverLoader::Deliver(unsigned ticket, const CoverOutcome& outcome, const QImage& image) {
    if (ticket != ticket_ || !done_) return;
    const Done done = std::move(done_);
    done_ = nullptr;
    done(outcome, image);
}

} // namespace vk
