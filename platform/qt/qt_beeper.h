// The desktop's beep.
#pragma once

#include "platform/beeper.h"

namespace vk {

/// Needs a QApplication.
class QtBeeper : public Beeper {
  public:
    void Beep() override;
};

} // namespace vk
