// A short sound of the machine itself.
#pragma once

namespace vk {

class Beeper {
  public:
    virtual ~Beeper() = default;
    /// Returns at once; silent where the machine has no such sound.
    virtual void Beep() = 0;
};

} // namespace vk
