// libvkradio.so: the five calls of the FM tuner's library over Video4Linux. VK_RADIO names the
// device where the first one is not meant, see `V4l2Radio`.
#include "tuners/v4l2/v4l2_radio.h"

#include <cstdlib>

namespace {

vk::V4l2Radio& TheRadio() {
    const char* device = std::getenv("VK_RADIO");
    static vk::V4l2Radio radio(vk::SystemCalls, device ? device : "");
    return radio;
}

} // namespace

extern "C" {

std::int32_t open_radio() {
    return TheRadio().Open();
}

std::int32_t close_radio() {
    TheRadio().Close();
    return 1;
}

std::int32_t turn_power(std::int32_t on) {
    TheRadio().TurnPower(on != 0);
    return 1;
}

std::int32_t set_freq(std::int32_t units) {
    return TheRadio().SetFreq(units);
}

std::int32_t get_stereo() {
    return TheRadio().Stereo();
}

const char* radio_name() {
    static std::string name;
    name = TheRadio().Name();
    return name.c_str();
}
}
