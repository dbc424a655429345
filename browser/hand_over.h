// What is handed to the players, and the way over to them.
#pragma once

#include "browser/list_building.h"
#include "browser/lists.h"

#include <cstdint>
#include <functional>
#include <string>

namespace vk {

/// What is given outlives it.
class HandOver {
  public:
    /// `leave` is called before another screen is shown.
    HandOver(BrowserLists& lists, ListBuilding& building, std::function<void()> leave)
        : lists_(lists), desk_(lists.desk), building_(building), leave_(std::move(leave)) {}

    /// The film disc.
    void PlayDisc();
    /// The selected row, with all others of its kind.
    void PlayAudioFiles();
    void PlayVideoFiles();
    /// The selected channel, with all others on show.
    void TuneChannel(const Descriptor& row);
    /// The FM radio, on a preset's frequency.
    void TunePreset(const std::string& frequency);
    /// Goes on with the list that was last played, or shows what plays.
    void Resume();

  private:
    std::int32_t WritePlayList(int mediaType, const std::string& file);
    bool WriteChannels(std::int32_t& position);
    bool DiscIsGone();
    void FallBackWithoutDisc();
    void SaveChannel(std::int64_t channel);
    void ResumeSaved();
    void EnterPlayer();
    void EnterMoviePlayer();
    void Enter(const std::function<void()>& show);

    BrowserLists& lists_;
    ListDesk& desk_;
    ListBuilding& building_;
    std::function<void()> leave_;
};

} // namespace vk
