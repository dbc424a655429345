// One open ALSA card: the simple mixer elements that stand for the six lines. For one thread.
#pragma once

#include "platform/mixer.h"

#include <poll.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct _snd_mixer;      // NOLINT(bugprone-reserved-identifier): the library's own
struct _snd_mixer_elem; // NOLINT(bugprone-reserved-identifier): the library's own

namespace vk {

/// A line as it stands. Levels start at 0, whatever the card counts from.
struct AlsaLine {
    bool hasLevel = false;
    bool hasMute = false;
    std::int32_t maximum = 0;
    std::int32_t level = 0;
    bool muted = false;
};

constexpr std::size_t AlsaLineCount = 6;
using AlsaLines = std::array<AlsaLine, AlsaLineCount>;

/// The place of a line in `AlsaLines`.
std::size_t AlsaLineIndex(MixerLine line);
/// What cards call the line at that place, as "Master".
const char* AlsaLineName(std::size_t line);

class AlsaCard {
  public:
    /// Opens the control device of that ALSA name; null when it is not there.
    static std::unique_ptr<AlsaCard> Open(const std::string& device);

    AlsaLines Read() const;
    /// Sets one of them on all channels; false when the card is gone or does not take it. A line
    /// without is no failure.
    bool SetLevel(std::size_t line, std::int32_t level);
    bool SetMute(std::size_t line, bool on);
    /// What to wait for; `HandleEvents` is due when one is ready. It tells false when this object
    /// is of no more use: the card is gone, or its controls are not those of before.
    std::vector<pollfd> Descriptors() const;
    bool HandleEvents();

  private:
    /// An element, and which of its two sides is used.
    struct Element {
        _snd_mixer_elem* element = nullptr;
        bool levelOfCapture = false;
        bool muteOfCapture = false;
        bool hasLevel = false;
        bool hasMute = false;
        long minimum = 0;
        long maximum = 0;
    };
    struct Close {
        void operator()(_snd_mixer* mixer) const;
    };

    static Element Describe(_snd_mixer_elem* element);
    void FindLines();
    void FollowForm();

    bool formChanged_ = false; ///< ALSA writes it, at its closing too
    std::unique_ptr<_snd_mixer, Close> mixer_;
    std::array<Element, AlsaLineCount> lines_;
};

} // namespace vk
