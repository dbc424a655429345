#include "skin/controls/nearest_box.h"

#include <cstdlib>

namespace vk {

namespace {

// -1 when `to` does not lie in the direction.
int Distance(const QRect& from, const QRect& to, int dx, int dy) {
    const QPoint way = to.center() - from.center();
    const int along = way.x() * dx + way.y() * dy;
    const bool beyond = dx != 0 ? (dx > 0 ? to.left() > from.right() : to.right() < from.left())
                                : (dy > 0 ? to.top() > from.bottom() : to.bottom() < from.top());
    if (!beyond) return -1;
    const int aside = std::abs(dx != 0 ? way.y() : way.x());
    return along * 4 + aside;
}

} // namespace

int NearestBox(const QRect& from, const std::vector<QRect>& to, int dx, int dy) {
    int best = -1;
    int bestDistance = 0;
    for (std::size_t i = 0; i < to.size(); ++i) {
        const int distance = to[i].isEmpty() ? -1 : Distance(from, to[i], dx, dy);
        if (distance < 0 || (best >= 0 && distance >= bestDistance)) continue;
        best = static_cast<int>(i);
        bestDistance = distance;
    }
    return best;
}

} // namespace vk
