#include "platform/key_place.h"

namespace vk {

// The system itself numbers typing keys by their place where a layout has no Latin letters.
int KeyAtPlace(std::uint32_t, std::uint32_t virtualKey) {
    const bool types = (virtualKey >= '0' && virtualKey <= 'Z') ||
                       (virtualKey >= 186 && virtualKey <= 192) ||
                       (virtualKey >= 219 && virtualKey <= 222) || virtualKey == 226;
    return types ? static_cast<int>(virtualKey) : 0;
}

} // namespace vk
