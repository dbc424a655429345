// The way that the user has gone since the top, and its place in the settings.
#pragma once

#include "browser/browse_history.h"
#include "core/settings.h"
#include "library/descriptor.h"

#include <string>

namespace vk {

/// Kept in the settings only when something was played at its end.
class BrowseTrail {
  public:
    /// The screen is entered anew.
    void Begin() { played_ = false; }
    void Clear() { history_.clear(); }
    void Push(const Descriptor& chosen) { PushHistory(history_, chosen.Text()); }
    /// The last step, which is taken back; "" of none.
    std::string Pop() { return PopHistory(history_); }
    bool Empty() const { return history_.empty(); }
    const std::string& Text() const { return history_; }
    void Set(const std::string& history) { history_ = history; }
    /// Something is played from here.
    void Played() { played_ = true; }
    /// Writes the way if it is worth it; `setting` is that of the tuner or of everything else.
    void Store(SettingsStore& settings, const Setting<std::string>& setting);

  private:
    std::string history_;
    bool played_ = false;
};

} // namespace vk
