// Choosing a film's sound, subtitles and angle, and keeping the choice a film.
#pragma once

#include "core/base.h"
#include "platform/media_player.h"
#include "video/tracks/track_choices.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vk {

class TrackMenu {
  public:
    /// The file of the application directory that keeps it.
    static constexpr const char* FileName = "film_tracks.lst";

    /// `base` outlives this object.
    explicit TrackMenu(Base& base) : base_(base), choices_(base.settings.File(FileName)) {}

    /// A film begins; a path, or what a disc is called.
    void Enter(const std::string& film);
    /// The film has told what there is: chooses what was chosen the last time, once.
    void Apply(MediaPlayer& player);
    /// What is asked for besides tracks leads, in the same dialog.
    struct Other {
        std::string row; ///< "" for none
        std::function<void()> act;
    };
    /// Asks by a dialog. `playing` tells, after it, whether the film is still open.
    void Ask(MediaPlayer& player, const Other& other, const std::function<bool()>& playing);

  private:
    struct Row {
        std::string text;
        TrackKind kind = TrackKind::Audio;
        int place = 0; ///< from 1; 0: none
    };
    static std::vector<Row> Rows(const MediaPlayer& player);
    void Choose(MediaPlayer& player, const Row& row);
    int& Wanted(TrackKind kind);
    void Apply(MediaPlayer& player, TrackKind kind);

    Base& base_;
    TrackChoices choices_;
    std::string film_;
    TrackChoice wanted_;
    std::map<TrackKind, int> given_; ///< ids that were chosen
};

} // namespace vk
