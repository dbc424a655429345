// Key pictures of films that are packets one behind the other, without an index.
#pragma once

#include "platform/mpeg/film_bytes.h"
#include "platform/mpeg/key_pictures.h"
#include "platform/mpeg/program_stream.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vk {

/// The file's times are taken as they are: one that begins anew on its way is not followed.
class StreamKeys : public KeyPictures {
  public:
    /// Makes the packets of a piece of the file.
    using Open = std::unique_ptr<Packets> (*)(std::string_view bytes);

    StreamKeys(const std::string& file, Open open);
    std::optional<double> Near(double seconds) override;

  private:
    std::optional<double> FirstShown(const std::string& bytes) const;
    std::optional<double> LastDecoded(const std::string& bytes) const;
    std::optional<double> TimeAt(std::int64_t place);
    std::optional<std::int64_t> PlaceOf(double wanted);
    struct Key {
        double decoded;             ///< seconds of the file's own clock
        std::optional<double> next; ///< when the picture after it is decoded
    };
    std::optional<Key> KeyAround(std::int64_t place, double wanted);

    FilmBytes file_;
    const Open open_;
    std::optional<double> begin_; ///< seconds of the file's own clock
    double rate_ = 0;             ///< bytes a second; 0: what can be entered is not known
};

} // namespace vk
