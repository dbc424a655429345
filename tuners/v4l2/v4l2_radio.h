// An FM tuner of Video4Linux, /dev/radioN.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

/// The calls of the system that it is worked by; tests have their own.
struct DeviceCalls {
    int (*open)(const char* path);
    void (*close)(int device);
    int (*ioctl)(int device, unsigned long request, void* argument); ///< negative: it failed
};
extern const DeviceCalls SystemCalls;

/// Many tuners fall silent when the last who has them open closes them: it stays open for as long
/// as it is on.
class V4l2Radio {
  public:
    /// `device` is "/dev/radio0", and may be followed by ":" and the index of the tuner; "" is the
    /// first tuner that there is.
    V4l2Radio(const DeviceCalls& calls, std::string device);
    ~V4l2Radio() { Shut(); }
    V4l2Radio(const V4l2Radio&) = delete;
    V4l2Radio& operator=(const V4l2Radio&) = delete;

    /// False when there is no tuner; one that was pulled out is looked for again.
    bool Open();
    /// Closes it, unless it is on.
    void Close();
    void TurnPower(bool on);
    /// In units of 50 kHz; false outside of the tuner's range.
    bool SetFreq(std::int32_t units);
    /// True for a station in stereo that is strong enough to be heard.
    bool Stereo();
    /// What the card calls itself, "" when there is none.
    std::string Name();

  private:
    template<class Argument> bool Ask(unsigned long request, Argument& argument);
    bool Find();
    bool OpenAt(const std::string& path);
    void Shut();

    const DeviceCalls calls_;
    std::string device_;
    std::uint32_t tuner_ = 0;
    int open_ = -1;
    bool fine_ = false; ///< its frequencies are in units of 62.5 Hz, not kHz
    bool on_ = false;
    std::string name_;
};

} // namespace vk
