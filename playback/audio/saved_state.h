// What the next start resumes from, written while the music plays.
#pragma once

#include "core/settings.h"
#include "platform/clock.h"
#include "playback/audio/position_clock.h"
#include "playback/audio_state.h"
#include "playback/c_winamp.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace vk {

/// Writes list, track, position and disc. In a car the power goes without a word, so the track and
/// the position are also written soon after they change and not only when the player is left; what
/// has not changed is not written again.
class SavedState {
  public:
    struct Needs {
        AudioState& audio;
        cWinamp& winamp;
        SettingsStore& settings;
        Clock& clock;
        const PositionClock& position;
    };
    explicit SavedState(Needs needs);

    /// A list is on its way: until it has been started it is to be resumed at `position` (seconds)
    /// of the present track, whatever the player process says.
    void Loading(std::int32_t position);
    /// It has not been started. Should it come by itself, then from the beginning of the track:
    /// what the player process says counts again once it is past the wanted position.
    void NotStarted();
    /// It came by itself: writes the list and what was wanted of it.
    void StartedLate();
    /// A list has been started: writes all of it and keeps writing every 15 seconds, whichever
    /// screen is in front. `position` is in seconds.
    void Started(std::int32_t position);
    void Stop();
    /// Another track plays.
    void TrackChanged();
    /// Track and position as the player process tells them; nothing when it has stopped or gone.
    void SaveProgress();
    /// Everything, shuffle included; track and position stay as they are when nothing is known.
    void SaveAll();

  private:
    struct Progress {
        std::int32_t track = 0;
        std::int32_t position = 0;
        bool operator==(const Progress&) const = default;
    };
    std::optional<Progress> Asked();
    std::optional<Progress> Now();
    void WriteProgress(const Progress& progress);
    void WriteAll(const std::optional<Progress>& progress);
    static std::vector<SettingChange> ChangesTo(const Progress& progress);

    Needs n_;
    std::unique_ptr<Timer> timer_;
    std::optional<Progress> wanted_; ///< of a list that has not been started
    std::optional<Progress> written_;
    bool loading_ = false;
};

} // namespace vk
