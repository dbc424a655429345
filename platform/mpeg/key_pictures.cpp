#include "platform/mpeg/key_pictures.h"

#include "platform/mpeg/program_stream.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <map>
#include <string_view>

namespace vk {

namespace {

constexpr double TicksASecond = 90'000;
constexpr std::int64_t EdgeBytes = 1 << 20; // what is read of the beginning and the end
constexpr std::int64_t LookBytes = 1 << 18; // to find out where in the film a place is
constexpr std::int64_t MostBytes = 4 << 20; // to look for the picture in
constexpr std::size_t BeginBytes = 1 << 15; // with the first packet of video among them
constexpr double Around = 1.2;              // seconds, both ways
constexpr double NearEnough = 0.2;          // seconds
constexpr int MostLooks = 8;
constexpr double Behind = 0.005; // seconds: where times are rounded it is still that packet

/// The file's times are taken as they are: one that begins anew on its way is not followed.
class Film {
  public:
    explicit Film(const std::string& file) : file_(file, std::ios::binary) {
        file_.seekg(0, std::ios::end);
        size_ = static_cast<std::int64_t>(file_.tellg());
        const std::string first = Read(0, EdgeBytes);
        if (!IsProgramStream(first)) return;
        begin_ = FirstShown(first);
        const auto end = LastDecoded(Read(std::max<std::int64_t>(0, size_ - EdgeBytes), EdgeBytes));
        if (begin_ && end && *end > *begin_) rate_ = static_cast<double>(size_) / (*end - *begin_);
    }

    std::optional<double> KeyNear(double seconds) {
        if (rate_ <= 0) return std::nullopt;
        const double wanted = *begin_ + seconds;
        const auto place = PlaceOf(wanted);
        const auto key = place ? KeyAround(*place, wanted) : std::nullopt;
        return key ? std::optional(std::max(0.0, *key - *begin_ + Behind)) : std::nullopt;
    }

  private:
    std::string Read(std::int64_t at, std::int64_t count) {
        std::string bytes(static_cast<std::size_t>(std::clamp(size_ - at, std::int64_t{0}, count)),
                          '\0');
        file_.clear();
        file_.seekg(at);
        file_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(0, file_.gcount())));
        return bytes;
    }
    static double Seconds(std::int64_t ticks) { return static_cast<double>(ticks) / TicksASecond; }

    // The film begins with what is shown or heard first of all its streams.
    static std::optional<double> FirstShown(std::string_view bytes) {
        std::map<int, std::int64_t> first;
        PacketReader packets(bytes);
        while (const auto packet = packets.Next())
            if (packet->shown && (packet->IsVideo() || packet->IsAudio()))
                first.try_emplace(packet->stream, *packet->shown);
        const auto least =
            std::ranges::min_element(first, {}, [](const auto& stream) { return stream.second; });
        return least == first.end() ? std::nullopt : std::optional(Seconds(least->second));
    }
    static std::optional<double> LastDecoded(std::string_view bytes) {
        std::optional<double> last;
        PacketReader packets(bytes);
        while (const auto packet = packets.Next())
            if (packet->IsVideo() && packet->decoded) last = Seconds(*packet->decoded);
        return last;
    }
    std::optional<double> TimeAt(std::int64_t place) {
        const std::string bytes = Read(place, LookBytes);
        PacketReader packets(bytes);
        while (const auto packet = packets.Next())
            if (packet->IsVideo() && packet->decoded) return Seconds(*packet->decoded);
        return std::nullopt;
    }
    // Bytes stand for time evenly enough to come near in a few steps.
    std::optional<std::int64_t> PlaceOf(double wanted) {
        auto place = static_cast<std::int64_t>((wanted - *begin_) * rate_);
        for (int look = 0; look < MostLooks; ++look) {
            place =
                std::clamp<std::int64_t>(place, 0, std::max<std::int64_t>(0, size_ - LookBytes));
            const auto time = TimeAt(place);
            if (!time) return std::nullopt;
            if (std::abs(wanted - *time) < NearEnough) break;
            place += static_cast<std::int64_t>((wanted - *time) * rate_);
        }
        return place;
    }
    // A packet may tell no time: then that of the one before is the last that leads to it.
    std::optional<double> KeyAround(std::int64_t place, double wanted) {
        const auto reach = std::min(MostBytes / 2, static_cast<std::int64_t>(rate_ * Around));
        const auto from = std::max<std::int64_t>(0, place - reach);
        const std::string bytes = Read(from, place + reach - from);
        std::optional<double> time, nearest;
        PacketReader packets(bytes);
        while (const auto packet = packets.Next()) {
            if (packet->IsVideo() && packet->decoded) time = Seconds(*packet->decoded);
            if (!time || !packet->HasKeyPicture()) continue;
            if (!nearest || std::abs(*time - wanted) < std::abs(*nearest - wanted)) nearest = time;
        }
        const bool near = nearest && std::abs(*nearest - wanted) <= Around;
        return near ? nearest : std::nullopt;
    }

    std::ifstream file_;
    std::int64_t size_ = 0;
    std::optional<double> begin_; ///< seconds of the file's own clock
    double rate_ = 0;             ///< bytes a second; 0: what can be entered is not known
};

} // namespace

std::optional<double> NearKeyPicture(const std::string& file, double seconds) {
    return Film(file).KeyNear(seconds);
}

double ShapeOfFilm(const std::string& file) {
    std::ifstream film(file, std::ios::binary);
    std::string first(BeginBytes, '\0');
    film.read(first.data(), static_cast<std::streamsize>(first.size()));
    return ShapeOfStream(first);
}

} // namespace vk
