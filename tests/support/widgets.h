// Looking at and touching widgets in tests.
#pragma once

#include "skin/controls/touch_button.h"
#include "skin/touch_target.h"
#include "tests/support/mouse.h"

#include <QImage>
#include <QSize>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>

namespace vk::test {

/// The panels that every screen has to fit.
inline constexpr QSize PanelSizes[] = {
    {640, 480}, {800, 480}, {1024, 600}, {1024, 768}, {1280, 720}};

/// Every visible direct and indirect child lies inside the screen, and every button is large enough
/// for a finger.
inline void ExpectChildrenInside(const QWidget& screen) {
    for (const QWidget* child : screen.findChildren<QWidget*>()) {
        if (!child->isVisibleTo(&screen)) continue;
        const QRect place(child->mapTo(&screen, QPoint()), child->size());
        EXPECT_TRUE(screen.rect().contains(place))
            << screen.width() << "x" << screen.height() << ": child at " << place.x() << ","
            << place.y() << " sized " << place.width() << "x" << place.height();
        if (!dynamic_cast<const TouchButton*>(child)) continue;
        EXPECT_GE(std::min(place.width(), place.height()), TouchSide(screen.height()))
            << child->objectName().toStdString();
    }
}

/// How many pixels of two pictures differ; all of them when the sizes do.
inline int DifferingPixels(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return std::max(a.width() * a.height(), b.width() * b.height());
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    return count;
}

/// Presses and releases a finger on what lies at a point of `host`.
inline void Tap(QWidget& host, QPoint at) {
    QWidget* target = host.childAt(at);
    if (!target) target = &host;
    Click(*target, target->mapFrom(&host, at));
}

} // namespace vk::test
