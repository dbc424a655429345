// The log: one line an event, date and time first.
#pragma once

#include "platform/clock.h"

#include <string>

namespace vk {

class DebugLog {
  public:
    /// Writes into `folder`, the application directory.
    DebugLog(std::string folder, const Clock& clock) : folder_(std::move(folder)), clock_(clock) {}

    /// Appends one line to debug.log, which is opened and closed for it and made when it is
    /// missing. Line ends in `text` become blanks; failures are swallowed.
    void WriteDebugLog(const std::string& text) const;
    /// The same into the synchronisation's log of today, vk_sync_ and the date as MMDDYYYY.
    void WriteSyncLog(const std::string& text) const;
    /// Makes debug.log anew with its header line.
    void MakeLogFile() const;
    /// Full path of debug.log.
    std::string FileName() const;

  private:
    void Append(const std::string& file, const std::string& text) const;

    std::string folder_;
    const Clock& clock_;
};

/// "11/21/2026 3:04:05 PM": how the log writes a moment.
std::string GeneralDate(const DateTime& when);

} // namespace vk
