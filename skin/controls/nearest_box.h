// Moving a mark over boxes by the arrows.
#pragma once

#include <QRect>

#include <vector>

namespace vk {

/// The number of the box in `to` that is nearest to `from` in a direction (-1, 0, 1 each), what
/// lies aside counting more; -1 when there is none. Empty boxes are never reached.
int NearestBox(const QRect& from, const std::vector<QRect>& to, int dx, int dy);

} // namespace vk
