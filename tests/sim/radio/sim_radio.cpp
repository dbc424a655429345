// A library of the FM tuner's five calls without a tuner: stations by frequency, no sound.
#include "tests/sim/radio/sim_radio.h"

namespace {

vk::test::SimRadio radio;

} // namespace

extern "C" {

std::int32_t open_radio() {
    ++radio.opened;
    return radio.open = radio.there;
}

std::int32_t close_radio() {
    ++radio.closed;
    radio.open = false;
    return 1;
}

std::int32_t turn_power(std::int32_t on) {
    if (radio.open) radio.on = on != 0;
    return 1;
}

std::int32_t set_freq(std::int32_t units) {
    if (!radio.open) return 0;
    radio.tuned = units;
    return 1;
}

std::int32_t get_stereo() {
    return radio.open && radio.on && radio.stereo.contains(radio.tuned);
}

const char* radio_name() {
    return "Simulated FM radio";
}

vk::test::SimRadio* SimRadioState() {
    return &radio;
}
}
