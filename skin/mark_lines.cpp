#include "skin/mark_lines.h"

#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <set>

namespace vk {

namespace {

int NearestInLine(const std::vector<LineSpot>& spots, int line, int centre) {
    int best = -1, least = 0;
    for (std::size_t i = 0; i < spots.size(); ++i) {
        const int aside = std::abs(spots[i].centre - centre);
        if (!spots[i].usable || spots[i].line != line || (best >= 0 && aside >= least)) continue;
        best = static_cast<int>(i);
        least = aside;
    }
    return best;
}

std::set<int> AllOf(const std::vector<LineSpot>& spots, int LineSpot::*member) {
    std::set<int> all;
    for (const LineSpot& spot : spots)
        if (spot.usable) all.insert(spot.*member);
    return all;
}

// As few as lead through every spot.
std::set<int> Columns(const std::vector<LineSpot>& spots, const std::set<int>& lines) {
    std::set<int> columns, reached;
    for (const int centre : AllOf(spots, &LineSpot::centre))
        for (const int line : lines)
            if (reached.insert(NearestInLine(spots, line, centre)).second) columns.insert(centre);
    return columns;
}

/// The next one, or the first from the other end.
struct Following {
    int value = 0;
    bool round = false;
};

Following After(const std::set<int>& all, int value, int way) {
    if (way > 0) {
        const auto next = all.upper_bound(value);
        return next == all.end() ? Following{*all.begin(), true} : Following{*next};
    }
    const auto at = all.lower_bound(value);
    return at == all.begin() ? Following{*all.rbegin(), true} : Following{*std::prev(at)};
}

} // namespace

int NextInLines(const std::vector<LineSpot>& spots, int from, int way, int& centre) {
    const std::set<int> lines = AllOf(spots, &LineSpot::line);
    if (lines.empty()) return from;
    const Following next = After(lines, spots[static_cast<std::size_t>(from)].line, way);
    if (next.round) centre = After(Columns(spots, lines), centre, way).value;
    return NearestInLine(spots, next.value, centre);
}

} // namespace vk
