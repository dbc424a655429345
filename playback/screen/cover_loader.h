// Pictures looked for and decoded on a thread of their own: neither a slow disk nor a large picture
// holds the screen up.
#pragma once

#include "playback/audio/cover_files.h"

#include <QImage>
#include <QObject>
#include <QSize>
#include <QThread>

#include <functional>
#include <mutex>
#include <optional>

namespace vk {

/// Used on the user-interface thread. One picture at a time: a newer request replaces one that
/// waits, and the result of one under way is dropped.
class CoverLoader {
  public:
    /// The image is null when none was found or when it could not be decoded.
    using Done = std::function<void(const CoverOutcome& outcome, const QImage& image)>;

    CoverLoader() = default;
    /// Waits for the picture under way.
    ~CoverLoader();
    CoverLoader(const CoverLoader&) = delete;
    CoverLoader& operator=(const CoverLoader&) = delete;

    /// Decodes into `box` (pixels, aspect kept). `done` is called from the event loop.
    void Load(const CoverRequest& request, QSize box, Done done);
    /// `done` of what was asked for last is not called any more.
    void Cancel();

  private:
    struct Job {
        CoverRequest request;
        QSize box;
        unsigned ticket = 0;
    };
    void Work();
    void Deliver(unsigned ticket, const CoverOutcome& outcome, const QImage& image);

    std::mutex mutex_; ///< guards `waiting_`, the one thing that both threads see
    std::optional<Job> waiting_;
    unsigned ticket_ = 0; ///< of the newest request
    Done done_;
    QThread thread_;
    QObject worker_;   ///< lives on the thread
    QObject receiver_; ///< lives on the user-interface thread; gone first, and late results with it
};

} // namespace vk
