// The films of a run, in their order.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

class MovieList {
  public:
    /// Takes the entries of a list file that exist; `select`, one-based, counts all of them. False,
    /// with no films, when the list cannot be read.
    bool LoadPlaylist(const std::string& file, std::int32_t select);
    /// Takes `path` where the list has it; the same film may have moved since.
    void Find(const std::string& path);
    void Clear();

    /// `SelectedMovie`, "" for none.
    std::string Selected() const;
    std::int32_t Index() const { return MovieIndex; }
    std::int32_t Count() const { return static_cast<std::int32_t>(MovieList_.size()); }
    bool AtEnd() const { return MovieIndex + 1 >= Count(); }
    void First() { MovieIndex = 0; }
    /// The next one, after the last the first; and back.
    void Next();
    void Previous();

  private:
    std::vector<std::string> MovieList_; ///< full paths
    std::int32_t MovieIndex = 0;
};

} // namespace vk
