// Notices that the disc, stick or folder that a film comes from has gone. The player itself shows
// its last picture for ever then.
#pragma once

#include "platform/clock.h"
#include "platform/medium_probe.h"
#include "platform/volumes.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vk {

class MediumWatch {
  public:
    /// How often the medium is looked for, and how long it may take to answer; milliseconds.
    static constexpr int IntervalMs = 500;
    static constexpr int PatienceMs = 2000;

    /// All of it outlives this object; `onGone` is called once a `Watch`.
    struct Needs {
        Clock& clock;
        const Volumes& volumes;
        MediumProbe& probe;
        std::function<void()> onGone;
    };
    explicit MediumWatch(Needs needs);

    /// From now on this path, as long as it plays; what is no path of a file system is not looked
    /// for.
    void Watch(const std::string& path);
    void Leave() { timer_->Stop(); }

  private:
    void Look();
    void Ask();
    bool Gone() const;

    Needs n_;
    std::string path_, drive_;
    std::int64_t askedMs_ = 0; ///< of the clock's ticks
    std::unique_ptr<Timer> timer_;
};

} // namespace vk
