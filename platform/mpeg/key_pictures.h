// Where a film of the MPEG kind can be entered.
#pragma once

#include <optional>
#include <string>

namespace vk {

/// A moment near `seconds` behind which the next picture needs no earlier one, so that it can be
/// shown at once: players go to moments by the times of the packets, and wait for such a picture
/// with the sound already running. Seconds from the film's beginning. Nothing where the file is no
/// program stream, or has no such picture near. May wait for the medium.
std::optional<double> NearKeyPicture(const std::string& file, double seconds);

/// The shape of the pictures of a program stream, width over height as they are to be seen, before
/// it is opened; 0 where it is not told, or the file is none. May wait for the medium.
double ShapeOfFilm(const std::string& file);

} // namespace vk
