// The FM tuner's device: the five calls of its library.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vk {

/// Nothing is kept from one use to the next but what the tuner itself keeps: each use opens it,
/// does one thing and closes it.
class Radio {
  public:
    virtual ~Radio() = default;
    /// The first call of every use; false when there is no tuner.
    virtual bool open_radio() = 0;
    /// The last one, also after an `open_radio` that failed.
    virtual void close_radio() = 0;
    virtual void turn_power(bool on) = 0;
    /// In units of 50 kHz; false when it cannot be tuned.
    virtual bool set_freq(std::int32_t units) = 0;
    /// The station is received in stereo.
    virtual bool get_stereo() = 0;
    /// What it calls itself, for the user; "" when it does not.
    virtual std::string Name() const = 0;
};

/// Null when there is no library, with why in `reason`.
using LoadRadio = std::function<std::unique_ptr<Radio>(std::string& reason)>;

/// The library beside the program, else where the system looks: radio.dll, libvkradio.so.
std::unique_ptr<Radio> LoadRadioLibrary(const std::string& appDir, std::string& reason);

} // namespace vk
