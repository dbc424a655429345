// Which sound, subtitles and angle were chosen for which film, kept over the runs.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// Places in the film's own order, from 1. 0: none; `Untouched`: as the film comes.
struct TrackChoice {
    static constexpr int Untouched = -1;
    int sound = Untouched;
    int subtitles = Untouched;
    int angle = Untouched;
    bool operator==(const TrackChoice&) const = default;
};

/// A line a film, "<sound> <subtitles> <path>" or "<sound> <subtitles>/<angle> <path>", the film
/// that was chosen for last at the end. A file that cannot be read is empty, and a line that cannot
/// be is left out.
class TrackChoices {
  public:
    /// The films that are kept; those longest untouched go.
    static constexpr std::size_t Most = 300;

    /// The file's full path.
    explicit TrackChoices(std::string file) : file_(std::move(file)) {}

    /// Of a film by its path, of a disc by what it is called.
    TrackChoice Of(const std::string& film) const;
    /// Keeps it; false when the file could not be written.
    bool Keep(const std::string& film, const TrackChoice& choice) const;

  private:
    struct Entry {
        std::string film;
        TrackChoice choice;
    };
    static std::optional<Entry> Parse(std::string_view line);
    std::vector<Entry> Read() const;

    std::string file_;
};

} // namespace vk
