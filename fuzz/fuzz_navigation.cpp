// Feeds any bytes to what the map's screen reads: the receiver's sentences, whole and in pieces,
// GPS skins, and saved places.
#include "navigation/gps_status.h"
#include "navigation/isn_skin.h"
#include "navigation/nmea.h"
#include "navigation/saved_places.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Check(bool holds) {
    if (!holds) std::abort();
}

void CheckSentences(std::string_view bytes) {
    std::string whole, pieces;
    vk::GPSStatus status;
    const auto note = [&status](std::string& into) {
        return [&](vk::DestEvent event, const std::string& text) {
            Check(text.size() <= vk::SentenceAssembler::LongestSentence + 8);
            into += text + "\n";
            status.Take(event, text);
            Check(status.Heading().starts_with("Heading: "));
        };
    };
    vk::SentenceAssembler(note(whole)).Feed(bytes);
    vk::SentenceAssembler assembler(note(pieces));
    for (std::size_t at = 0, step = 1; at < bytes.size(); at += step, step = step % 7 + 1)
        assembler.Feed(bytes.substr(at, step));
    Check(whole == pieces);
}

void CheckSkin(std::string_view text) {
    int complaints = 0;
    const vk::IsnSkin skin = vk::ParseIsn(text, [&](const std::string&) { ++complaints; });
    Check(complaints <= 8 && (skin.width > 0) == (skin.height > 0));
    Check(skin.buttons.size() <= vk::MostIsnParts && skin.labels.size() <= vk::MostIsnParts);
    for (const vk::IsnSkin::Button& button : skin.buttons)
        Check(button.place.width > 0 && button.place.height > 0);
}

void CheckPlaces(std::string_view text) {
    int foreign = 0;
    std::string saved;
    const auto places = vk::ParsePlaces(text, foreign);
    for (const vk::SavedPlace& place : places)
        saved += vk::LineOf(place);
    const auto again = vk::ParsePlaces(saved, foreign = 0);
    Check(foreign == 0 && again.size() == places.size());
    for (std::size_t i = 0; i < again.size(); ++i)
        Check(vk::LineOf(again[i]) == vk::LineOf(places[i]));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckSentences(bytes);
    CheckSkin(bytes);
    CheckPlaces(bytes);
    return 0;
}
