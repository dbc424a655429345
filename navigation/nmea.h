// Sentences of a satellite receiver, out of raw bytes. Format: NMEA 0183, RMC (recommended
// minimum).
#pragma once

#include "navigation/dest_events.h"

#include <string>
#include <string_view>

namespace vk {

/// Raises what an RMC sentence says. `fields` is what follows the sentence's name, from the comma
/// on. No checksum is looked at: what is mangled gives empty or short texts, and is raised all the
/// same.
void RaiseRMC(std::string_view fields, const DestEvents& raise);

/// Puts sentences together, byte by byte, and has those of type RMC parsed, whichever
/// constellation sends them.
class SentenceAssembler {
  public:
    /// What of one sentence is kept, bytes: a line without an end must not grow for hours. NMEA's
    /// own sentences have 82 at most.
    static constexpr std::size_t LongestSentence = 16384;

    explicit SentenceAssembler(DestEvents raise) : raise_(std::move(raise)) {}
    void Feed(std::string_view bytes);
    /// Forgets the sentence that has begun, as when another receiver is opened.
    void Clear() { nmeaBuffer_.clear(); }

  private:
    void EndSentence();

    DestEvents raise_;
    std::string nmeaBuffer_; ///< the current sentence
};

} // namespace vk
