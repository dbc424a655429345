// Moving a mark over what lies in lines, by up and down alone.
#pragma once

#include <vector>

namespace vk {

/// Something that can be marked: its line, and twice its middle across, in any unit.
struct LineSpot {
    int line = 0, centre = 0;
    bool usable = true; ///< else the mark passes over it
};

/// The number of the spot that comes next up (`way` -1) or down (1) from `from`: in the next line
/// the one that is nearest to the column `centre`. Behind the last line it goes on at the other
/// end, in the column beside this one, which `centre` becomes: whoever has no keys for left and
/// right comes to every spot. `from` when none can be marked.
int NextInLines(const std::vector<LineSpot>& spots, int from, int way, int& centre);

} // namespace vk
