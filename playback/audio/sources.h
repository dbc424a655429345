// The sources of the audio player, and the change from one to another.
#pragma once

#include "playback/audio/source_context.h"

#include <cstdint>
#include <map>
#include <memory>

namespace vk {

class Sources {
  public:
    /// All of it outlives this object.
    Sources(const SourceContext& context, cWinamp& winamp, const SourceMakers& makers);

    /// What plays that `PlayMode`, null when there is nothing.
    PlayerSource* Find(std::int32_t mode) const;
    /// What plays the present one.
    PlayerSource* Current() const { return Find(c_.audio.PlayMode); }

    /// Goes to the next source in the rotation; where that cannot play, the present one goes on.
    /// False when what it played last has gone, and the player is to be quit.
    bool SwitchToNext();
    /// The present source is about to start a list that was chosen elsewhere.
    void SilenceOthers();
    /// Shows on the change button the source that a press selects.
    void SetPlayerButton();
    void SetMediaTypeIcon();
    /// Adds the selected entry of the source to its list of favourites, and says so for a moment.
    /// What is on a disc is not added.
    void AddToFavorites();

  private:
    PlayModeValue Next() const;
    bool CanSwitchTo(PlayModeValue mode);

    const SourceContext c_;
    cWinamp& winamp_;
    std::map<std::int32_t, std::unique_ptr<PlayerSource>> sources_;
};

} // namespace vk
