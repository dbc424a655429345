#include "tuners/xm/output_queue.h"

#include "tuners/xm/frames.h"

#include <algorithm>

namespace vk {

namespace {

// A link that stands still is begun anew long before: by then polls of some seconds wait.
constexpr std::size_t MostFrames = 64;

} // namespace

std::string OutputQueue::Bytes() const {
    std::string all;
    for (const std::string& frame : frames_)
        all += frame;
    return Hex(all);
}

template<class Change> void OutputQueue::Traced(const char* what, Change change) {
    if (!trace_.Bytes()) return change();
    trace_.Log(what);
    trace_.Log("before: " + Bytes());
    change();
    trace_.Log("after: " + Bytes());
}

void OutputQueue::Put(const std::string& frame, bool prepend) {
    const char* what = frames_.empty() ? "replacing outputQueue"
                       : prepend       ? "prepending outputQueue"
                                       : "appending outputQueue";
    Traced(what, [&] {
        frames_.insert(prepend ? frames_.begin() : frames_.end(), frame);
        if (frames_.size() > MostFrames) frames_.pop_back();
    });
}

std::string OutputQueue::Take() {
    std::string frame = frames_.front();
    Traced("-truncating outputQueue-", [&] { frames_.pop_front(); });
    return frame;
}

} // namespace vk
