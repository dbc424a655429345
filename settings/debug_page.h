// The settings page of the log: its end, as it grows; cleared, and carried away on a stick.
#pragma once

#include "core/base.h"
#include "platform/file_state.h"
#include "settings/pages/page.h"

#include <string>

namespace vk {

class DebugPage {
  public:
    /// `base` outlives this object.
    explicit DebugPage(Base& base) : base_(base) {}

    /// The page may be asked as long as this object lives.
    Page Describe();
    void btnClearLog_Click();
    /// Copies log and settings, and nothing else of the user's, to the first removable drive, into
    /// a folder named after the moment.
    void CopyToDrive();

  private:
    const std::string& LogEnd();
    std::string ReadEnd() const;

    Base& base_;
    FileStamp read_;   ///< of the log when `end_` was read
    std::string end_;  ///< its last lines
    std::string told_; ///< how the last press came out
};

} // namespace vk
