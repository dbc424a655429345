#include "tuners/xm/signal_level.h"

#include <cmath>

namespace vk {

namespace {

constexpr double Full = 99.9;

// Halves go to the even number, as the receiver's scale was made.
int Rounded(double value) {
    return static_cast<int>(std::nearbyint(value));
}

} // namespace

double TerrestrialPercent(int level) {
    const double percent = 100.0 - level / 68.0 * 10;
    return percent < 0 ? 0 : percent >= 100 ? Full : percent;
}

double SatellitePercent(std::uint8_t level) {
    const int v = level - 6;
    if (v < 0) return 0;
    const int q = Rounded(v / 4.0);
    if (q < 12) return v * 80 / 12.0 / 4;
    if (q < 16) return (v - 48) * 20 / 4.0 / 4 + 80;
    return Full;
}

int SignalPercent(double a, double b, double t) {
    if (a > b && a > t) return Rounded(a);
    if (b > a && b > t) return Rounded(b);
    if (t > a && t > b) return Rounded(t);
    return 0;
}

} // namespace vk
