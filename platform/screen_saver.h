// The display's own saver, which blanks and locks a screen that nobody touches.
#pragma once

namespace vk {

class ScreenSaver {
  public:
    virtual ~ScreenSaver() = default;
    /// Somebody watches: its time begins anew. To be called every half minute for as long as that
    /// is so; never waits.
    virtual void Reset() = 0;
};

} // namespace vk
