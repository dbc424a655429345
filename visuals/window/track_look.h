// From a cover and two texts to what a scene draws of a track.
#pragma once

#include "visuals/scenes/scene.h"

#include <QImage>
#include <QString>

namespace vk {

/// What is known of the track that plays.
struct TrackFactsShown {
    QImage cover; ///< null: there is none, and a drawn disc stands for it
    QString title, artist;
};

/// `width` and `height` are the canvas's.
TrackLook MakeTrackLook(const TrackFactsShown& track, const LookSizes& sizes, int width,
                        int height);

} // namespace vk
