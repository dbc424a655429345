// The settings page of the log: its end, as it grows; cleared, and carried away on a stick.
#pragma once

#include "core/base.h"
#include "settings/log_view.h"
#include "settings/pages/page.h"

#include <memory>
#include <optional>
#include <string>

namespace vk {

class DebugPage {
  public:
    /// `base` outlives this object.
    explicit DebugPage(Base& base) : base_(base), log_(base.log.FileName()) {}

    /// The page may be asked as long as this object lives.
    Page Describe();
    void btnClearLog_Click();
    /// Copies log and settings, and nothing else of the user's, to a removable drive, into a folder
    /// named after the moment. A thread of its own waits for the drive, however slow that is.
    void CopyToDrive();

  private:
    struct Copy;
    std::optional<std::string> ChosenDrive();
    std::string Told();

    Base& base_;
    LogView log_;
    std::string told_;           ///< how the last press came out
    std::shared_ptr<Copy> copy_; ///< that is under way; shared with its thread
};

} // namespace vk
