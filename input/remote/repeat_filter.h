// Held buttons: a remote sends the code of a held button again and again, many times a second.
#pragma once

#include <string>

namespace vk {

/// In seconds. Single precision, as are the times of day that are compared with them.
struct RepeatBounds {
    float speed = 0; ///< between two repeats of a held button
    float delay = 0; ///< how long a button is held before it repeats; 0 repeats at once
};

/// What a code is.
enum class Heard {
    Dropped, ///< too soon: not to be carried out
    Press,
    Repeat ///< of a button that is still held
};

/// Lets the first code of a press through, then, while the same code keeps coming, repeats at the
/// pace `speed` from `delay` on. A code that comes back after a pause, or later than 1.4 times the
/// delay, is a new press, and so is any other code; but nothing comes faster than `speed`.
class RepeatFilter {
  public:
    /// The same code within this time is that of a button still held, whatever the bounds let
    /// through; seconds. Receivers send about ten a second.
    static constexpr float HeldSeconds = 0.25F;

    /// What `code`, received at `secondsOfDay`, is.
    Heard Accept(const std::string& code, double secondsOfDay, const RepeatBounds& bounds);
    /// Takes note of a code that is carried out without being filtered: `Press` or `Repeat`.
    Heard Note(const std::string& code, double secondsOfDay);
    /// Time that passed without codes being heard does not count as a release of the button.
    void Resume(double secondsOfDay) { heardTime_ = static_cast<float>(secondsOfDay); }

  private:
    /// Hears a code; true when its button is still held.
    bool StillHeld(const std::string& code, float now);
    void LetThrough(const std::string& code, float now);

    std::string lastIRCode;    ///< the last code
    float lastIRTime = 0;      ///< seconds of the day of the last code let through
    bool repeatActive = false; ///< a code was let through: what follows may be its repeats
    bool firstCode = false;    ///< of the press only the first code was let through so far
    float heardTime_ = 0;      ///< of the last code, let through or not
};

} // namespace vk
