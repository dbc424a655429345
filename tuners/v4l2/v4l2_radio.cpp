#include "tuners/v4l2/v4l2_radio.h"

#include <fcntl.h>
#include <linux/videodev2.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <utility>

namespace vk {

namespace {

constexpr int MostDevices = 8;
constexpr std::int64_t UnitHz = 50000;
constexpr int LeastSignal = 0x2000; // of 0xFFFF: below it a pilot tone is noise

int OpenDevice(const char* path) {
    return ::open(path, O_RDWR | O_NONBLOCK | O_CLOEXEC);
}

void CloseDevice(int device) {
    ::close(device);
}

int AskDevice(int device, unsigned long request, void* argument) {
    return ::ioctl(device, request, argument);
}

} // namespace

const DeviceCalls SystemCalls = {OpenDevice, CloseDevice, AskDevice};

V4l2Radio::V4l2Radio(const DeviceCalls& calls, std::string device)
    : calls_(calls), device_(std::move(device)) {
    const auto colon = device_.rfind(':');
    if (colon == std::string::npos) return;
    tuner_ = static_cast<std::uint32_t>(std::atoi(device_.c_str() + colon + 1));
    device_.resize(colon);
}

template<class Argument> bool V4l2Radio::Ask(unsigned long request, Argument& argument) {
    return open_ >= 0 && calls_.ioctl(open_, request, &argument) >= 0;
}

bool V4l2Radio::Open() {
    v4l2_capability capability = {};
    if (Ask(VIDIOC_QUERYCAP, capability)) return true;
    Shut(); // it may have been pulled out
    return Find();
}

bool V4l2Radio::Find() {
    if (!device_.empty()) return OpenAt(device_);
    for (int number = 0; number < MostDevices; ++number)
        if (OpenAt("/dev/radio" + std::to_string(number))) return true;
    return false;
}

bool V4l2Radio::OpenAt(const std::string& path) {
    open_ = calls_.open(path.c_str());
    v4l2_capability capability = {};
    v4l2_tuner tuner = {};
    tuner.index = tuner_;
    if (!Ask(VIDIOC_QUERYCAP, capability) || !Ask(VIDIOC_G_TUNER, tuner) ||
        tuner.type != V4L2_TUNER_RADIO) {
        Shut();
        return false;
    }
    fine_ = (tuner.capability & V4L2_TUNER_CAP_LOW) != 0;
    const auto* card = reinterpret_cast<const char*>(capability.card);
    name_.assign(card, strnlen(card, sizeof capability.card));
    return true;
}

void V4l2Radio::Shut() {
    if (open_ >= 0) calls_.close(open_);
    open_ = -1;
    on_ = false;
    name_.clear();
}

void V4l2Radio::Close() {
    if (!on_) Shut();
}

void V4l2Radio::TurnPower(bool on) {
    v4l2_control mute = {};
    mute.id = V4L2_CID_AUDIO_MUTE;
    mute.value = on ? 0 : 1;
    Ask(VIDIOC_S_CTRL, mute); // not every tuner has it
    on_ = on && open_ >= 0;
    v4l2_tuner tuner = {};
    tuner.index = tuner_;
    if (!on || !Ask(VIDIOC_G_TUNER, tuner)) return;
    tuner.audmode = V4L2_TUNER_MODE_STEREO;
    Ask(VIDIOC_S_TUNER, tuner);
}

bool V4l2Radio::SetFreq(std::int32_t units) {
    v4l2_frequency frequency = {};
    frequency.tuner = tuner_;
    frequency.type = V4L2_TUNER_RADIO;
    const std::int64_t hertz = units * UnitHz;
    frequency.frequency = static_cast<std::uint32_t>(fine_ ? hertz * 2 / 125 : hertz * 2 / 125000);
    return Ask(VIDIOC_S_FREQUENCY, frequency);
}

bool V4l2Radio::Stereo() {
    v4l2_tuner tuner = {};
    tuner.index = tuner_;
    return Ask(VIDIOC_G_TUNER, tuner) && (tuner.rxsubchans & V4L2_TUNER_SUB_STEREO) != 0 &&
           tuner.signal >= LeastSignal;
}

std::string V4l2Radio::Name() {
    if (!name_.empty() || !Open()) return name_;
    std::string name = name_;
    Close();
    return name;
}

} // namespace vk
