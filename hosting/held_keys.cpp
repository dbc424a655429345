#include "hosting/held_keys.h"

#include "core/text.h"

namespace vk {

namespace {

constexpr int Escape = 27, F1 = 112, F24 = 135, FirstMedia = 166, LastMedia = 183;

bool IsFree(std::int64_t key) {
    return key == Escape || (key >= F1 && key <= F24) || (key >= FirstMedia && key <= LastMedia);
}

} // namespace

std::vector<int> KeysHeldBack(const KeyMap& keys) {
    std::vector<int> held = {Escape};
    for (const ActionNames& action : Actions)
        if (const auto key = ParseInteger(keys[action.action]); key && IsFree(*key))
            held.push_back(static_cast<int>(*key));
    return held;
}

} // namespace vk
