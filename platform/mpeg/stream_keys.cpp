#include "platform/mpeg/stream_keys.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace vk {

namespace {

constexpr double TicksASecond = 90'000;
constexpr std::int64_t EdgeBytes = 1 << 20; // what is read of the beginning and the end
constexpr std::int64_t LookBytes = 1 << 18; // to find out where in the film a place is
constexpr std::int64_t MostBytes = 4 << 20; // to look for the picture in
constexpr double NearEnough = 0.2;          // seconds
constexpr int MostLooks = 8;

double Seconds(std::int64_t ticks) {
    return static_cast<double>(ticks) / TicksASecond;
}

} // namespace

StreamKeys::StreamKeys(const std::string& file, Open open) : file_(file), open_(open) {
    begin_ = FirstShown(file_.Read(0, EdgeBytes));
    const auto last = std::max<std::int64_t>(0, file_.Size() - EdgeBytes);
    const auto end = LastDecoded(file_.Read(last, EdgeBytes));
    if (begin_ && end && *end > *begin_)
        rate_ = static_cast<double>(file_.Size()) / (*end - *begin_);
}

std::optional<double> StreamKeys::Near(double seconds) {
    if (rate_ <= 0) return std::nullopt;
    const double wanted = *begin_ + seconds;
    const auto place = PlaceOf(wanted);
    const auto key = place ? KeyAround(*place, wanted) : std::nullopt;
    if (!key) return std::nullopt;
    // A search for the beginning finds the last picture that is decoded by then.
    const bool first = key->decoded < *begin_ && !(key->next && *key->next <= *begin_);
    return first ? 0 : key->decoded - *begin_ + Behind;
}

// The film begins with what is shown or heard first of all its streams.
std::optional<double> StreamKeys::FirstShown(const std::string& bytes) const {
    std::map<int, std::int64_t> first;
    const auto packets = open_(bytes);
    while (const auto packet = packets->Next())
        if (packet->shown && (packet->IsVideo() || packet->IsAudio()))
            first.try_emplace(packet->stream, *packet->shown);
    const auto least =
        std::ranges::min_element(first, {}, [](const auto& stream) { return stream.second; });
    return least == first.end() ? std::nullopt : std::optional(Seconds(least->second));
}

std::optional<double> StreamKeys::LastDecoded(const std::string& bytes) const {
    std::optional<double> last;
    const auto packets = open_(bytes);
    while (const auto packet = packets->Next())
        if (packet->IsVideo() && packet->decoded) last = Seconds(*packet->decoded);
    return last;
}

std::optional<double> StreamKeys::TimeAt(std::int64_t place) {
    const std::string bytes = file_.Read(place, LookBytes);
    const auto packets = open_(bytes);
    while (const auto packet = packets->Next())
        if (packet->IsVideo() && packet->decoded) return Seconds(*packet->decoded);
    return std::nullopt;
}

// Bytes stand for time evenly enough to come near in a few steps.
std::optional<std::int64_t> StreamKeys::PlaceOf(double wanted) {
    const auto last = std::max<std::int64_t>(0, file_.Size() - LookBytes);
    auto place = static_cast<std::int64_t>((wanted - *begin_) * rate_);
    for (int look = 0; look < MostLooks; ++look) {
        place = std::clamp<std::int64_t>(place, 0, last);
        const auto time = TimeAt(place);
        if (!time) return std::nullopt;
        if (std::abs(wanted - *time) < NearEnough) break;
        place += static_cast<std::int64_t>((wanted - *time) * rate_);
    }
    return std::max<std::int64_t>(0, place);
}

// A packet may tell no time: then that of the one before is the last that leads to it.
std::optional<StreamKeys::Key> StreamKeys::KeyAround(std::int64_t place, double wanted) {
    const auto reach = std::min(MostBytes / 2, static_cast<std::int64_t>(rate_ * Around));
    const auto from = std::max<std::int64_t>(0, place - reach);
    const std::string bytes = file_.Read(from, place + reach - from);
    const auto distance = [&](double time) { return std::abs(time - wanted); };
    std::optional<double> time;
    std::optional<Key> nearest;
    const auto packets = open_(bytes);
    while (const auto packet = packets->Next()) {
        if (packet->IsVideo() && packet->decoded) time = Seconds(*packet->decoded);
        if (!time) continue;
        if (nearest && !nearest->next && *time > nearest->decoded) nearest->next = time;
        if (!packet->HasKeyPicture()) continue;
        if (!nearest || distance(*time) < distance(nearest->decoded)) nearest = Key{*time, {}};
    }
    const bool near = nearest && distance(nearest->decoded) <= Around;
    return near ? nearest : std::nullopt;
}

} // namespace vk
