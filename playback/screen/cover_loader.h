// Pictures looked for and decoded on a thread of their own: neither a slow disk nor a large picture
// holds the screen up.
#pragma once

#include "playback/audio/cover_files.h"

#include <QImage>
#include <QObject>
#include <QSize>

#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace vk {

/// Used on the user-interface thread. One picture at a time: a newer request replaces one that
/// waits, and the result of one under way is dropped.
class CoverLoader {
  public:
    /// The image is null when none was found or when it could not be decoded.
    using Done = std::function<void(const CoverOutcome& outcome, const QImage& image)>;
    /// Reads a picture file into a box (pixels, aspect kept); null when that fails.
    using Decoder = std::function<QImage(const std::string& path, QSize box)>;

    struct Options {
        Decoder decode = {};   ///< empty: as pictures are read everywhere
        int patienceMs = 1000; ///< for the picture under way at the end
    };
    CoverLoader() : CoverLoader(Options{}) {}
    explicit CoverLoader(Options options);
    /// Waits for the picture under way, but not for a disk that does not answer: the thread is then
    /// left behind.
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
    struct Shared;
    static void Work(Shared& shared);
    void Deliver(unsigned ticket, const CoverOutcome& outcome, const QImage& image);

    std::shared_ptr<Shared> shared_; ///< with the thread, which may outlive this object
    std::thread thread_;             ///< from the first request on
    unsigned ticket_ = 0;            ///< of the newest request
    Done done_;
    QObject receiver_; ///< gone first, and late results with it
};

} // namespace vk
