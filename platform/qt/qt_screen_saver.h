// The display server's screen saver.
#pragma once

#include "platform/screen_saver.h"

namespace vk {

/// On Qt's own connection to an X11 display; does nothing on others, and without one.
class QtScreenSaver : public ScreenSaver {
  public:
    void Reset() override;
};

} // namespace vk
