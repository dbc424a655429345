// Where a film can be entered.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace vk {

/// Of one film. What was found out of it is kept from one question to the next.
class KeyPictures {
  public:
    /// How far from the moment that is wanted a picture may be, seconds.
    static constexpr double Around = 1.2;
    /// Behind the moment of a picture that is told, seconds: where times are rounded on the way
    /// it is still that picture.
    static constexpr double Behind = 0.005;

    virtual ~KeyPictures() = default;
    /// A moment near `seconds` behind which the next picture needs no earlier one, so that it can
    /// be shown at once: players either decode all from the last such picture on before they show
    /// one, or go to moments by the times of packets and wait for such a picture with the sound
    /// already running. Seconds from the film's beginning; nothing where none is near. Less than
    /// 0 is the first picture of a film whose sound begins before that can be decoded: no search
    /// leads there, only opening the film. May wait for the medium.
    virtual std::optional<double> Near(double seconds) = 0;
};

/// Of program and transport streams and of MP4 files whose index tells it; null for all others.
/// May wait for the medium.
std::unique_ptr<KeyPictures> KeyPicturesOf(const std::string& file);

/// The shape of the pictures of a program stream, width over height as they are to be seen, before
/// it is opened; 0 where it is not told, or the file is none. May wait for the medium.
double ShapeOfFilm(const std::string& file);

} // namespace vk
