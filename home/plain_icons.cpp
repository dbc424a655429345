#include "home/plain_icons.h"

namespace vk {

namespace {

constexpr int Columns = 4;
constexpr const char* Names[] = {"Audio", "Media", "Video", "Apps", "Radio", "GPS", "Exit"};
constexpr int Count = sizeof(Names) / sizeof(*Names);

// By which up and down reach every icon, as a wheel does: column by column.
constexpr int Ring[Count] = {0, 4, 1, 5, 2, 6, 3};

int InRing(int icon, int steps) {
    int place = 0;
    while (Ring[place] != icon)
        ++place;
    return Ring[(place + steps + Count) % Count] + 1;
}

MenuIconData Icon(int index) {
    MenuIconData icon;
    icon.name = Names[index];
    icon.function = std::to_string(index + 1);
    const int column = index % Columns, line = index / Columns;
    icon.iconleft = 0.02 + column * 0.245;
    icon.icontop = 0.03 + line * 0.42;
    icon.iconwidth = 0.225;
    icon.iconheight = 0.39;
    icon.of_right = (index + 1) % Count + 1;
    icon.of_left = (index + Count - 1) % Count + 1;
    icon.of_below = InRing(index, 1);
    icon.of_above = InRing(index, -1);
    return icon;
}

} // namespace

std::vector<MenuIconData> PlainIcons() {
    std::vector<MenuIconData> icons;
    icons.reserve(Count);
    for (int index = 0; index < Count; ++index)
        icons.push_back(Icon(index));
    return icons;
}

} // namespace vk
