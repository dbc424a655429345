#include "platform/mpeg/mp4_keys.h"

#include "platform/mpeg/film_bytes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace vk {

namespace {

constexpr std::int64_t MostIndexBytes = 32 << 20;
constexpr std::size_t BoxHeader = 8, LongBoxHeader = 16;
constexpr int MostBoxes = 1000; // of the file itself

// What lies behind the end is 0.
std::uint64_t Number(std::string_view bytes, std::size_t at, std::size_t count = 4) {
    std::uint64_t number = 0;
    for (std::size_t i = at; i < at + count; ++i)
        number = number << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u);
    return number;
}

struct Box {
    std::string_view kind;
    std::uint64_t header = 0, size = 0; ///< bytes; the size is that of the whole
};

// A box of 0 bytes goes to the end of what it is in.
Box ReadBox(std::string_view bytes, std::uint64_t room) {
    Box box{bytes.substr(std::min<std::size_t>(4, bytes.size()), 4), BoxHeader, Number(bytes, 0)};
    if (box.size == 1) box = {box.kind, LongBoxHeader, Number(bytes, BoxHeader, 8)};
    if (box.size == 0) box.size = room;
    return box;
}

// What the first box of that kind holds, "" without one; the way leads into boxes in it.
std::string_view Find(std::string_view bytes, std::initializer_list<std::string_view> way) {
    for (const std::string_view kind : way) {
        std::string_view found;
        while (bytes.size() >= BoxHeader && found.empty()) {
            const Box box = ReadBox(bytes, bytes.size());
            if (box.size < box.header || box.size > bytes.size()) return {};
            if (box.kind == kind) found = bytes.substr(box.header, box.size - box.header);
            bytes.remove_prefix(box.size);
        }
        bytes = found;
    }
    return bytes;
}

std::string ReadIndex(FilmBytes& file) {
    std::int64_t at = 0;
    for (int count = 0; count < MostBoxes && at < file.Size(); ++count) {
        const std::string head = file.Read(at, LongBoxHeader);
        const Box box = ReadBox(head, static_cast<std::uint64_t>(file.Size() - at));
        const auto room = static_cast<std::uint64_t>(file.Size() - at);
        if (head.size() < BoxHeader || box.size < box.header || box.size > room) return {};
        const auto size = static_cast<std::int64_t>(box.size);
        if (box.kind == "moov" && size <= MostIndexBytes) {
            const auto header = static_cast<std::int64_t>(box.header);
            return file.Read(at + header, size - header);
        }
        at += size;
    }
    return {};
}

// The numbers of a table, rows of `columns` behind the count of rows.
std::vector<std::uint64_t> Table(std::string_view box, std::size_t columns) {
    constexpr std::size_t Rows = 8;
    const std::size_t there = box.size() > Rows ? (box.size() - Rows) / (4 * columns) : 0;
    const auto rows = std::min<std::uint64_t>(Number(box, 4), there);
    std::vector<std::uint64_t> numbers;
    for (std::size_t i = 0; i < rows * columns; ++i)
        numbers.push_back(Number(box, Rows + 4 * i));
    return numbers;
}

// Ticks of the track that the film leaves out at its beginning; an empty edit delays it instead.
double LeftOut(std::string_view track) {
    const std::string_view edits = Find(track, {"edts", "elst"});
    constexpr auto None = std::numeric_limits<std::uint32_t>::max();
    const bool wide = Number(edits, 0, 1) == 1;
    const std::uint64_t from = wide ? Number(edits, 16, 8) : Number(edits, 12);
    return edits.empty() || from >= None ? 0 : static_cast<double>(from);
}

double TicksASecond(std::string_view media) {
    const std::string_view header = Find(media, {"mdhd"});
    return static_cast<double>(Number(header, Number(header, 0, 1) == 1 ? 20 : 12));
}

// Pictures are numbered from 1, and come in runs of the same length each.
std::vector<double> Moments(std::string_view track) {
    const std::string_view media = Find(track, {"mdia"});
    const std::string_view table = Find(media, {"minf", "stbl"});
    const auto runs = Table(Find(table, {"stts"}), 2), keys = Table(Find(table, {"stss"}), 1);
    const double second = TicksASecond(media), leftOut = LeftOut(track);
    std::vector<double> moments;
    std::uint64_t passed = 0, begun = 0; // pictures and ticks before the run
    std::size_t run = 0;
    for (const std::uint64_t key : keys) {
        while (run + 1 < runs.size() && key > passed + runs[run]) {
            begun += runs[run] * runs[run + 1];
            passed += runs[run];
            run += 2;
        }
        if (run + 1 >= runs.size() || key <= passed || second <= 0) break;
        const auto ticks = static_cast<double>(begun + (key - 1 - passed) * runs[run + 1]);
        moments.push_back(std::max(0.0, (ticks - leftOut) / second));
    }
    return moments;
}

} // namespace

std::unique_ptr<KeyPictures> Mp4Keys::Of(const std::string& path) {
    FilmBytes file(path);
    const std::string index = ReadIndex(file);
    std::string_view rest = index;
    while (rest.size() >= BoxHeader) {
        const Box box = ReadBox(rest, rest.size());
        if (box.size < box.header || box.size > rest.size()) break;
        const std::string_view track = rest.substr(box.header, box.size - box.header);
        constexpr std::size_t UpToHandler = 12;
        const bool video = Find(track, {"mdia", "hdlr"}).substr(0, UpToHandler).ends_with("vide");
        if (box.kind == "trak" && video)
            if (auto moments = Moments(track); !moments.empty())
                return std::unique_ptr<KeyPictures>(new Mp4Keys(std::move(moments)));
        rest.remove_prefix(box.size);
    }
    return nullptr;
}

std::optional<double> Mp4Keys::Near(double seconds) {
    const auto nearest = std::ranges::min_element(
        moments_, {}, [&](double moment) { return std::abs(moment - seconds); });
    if (std::abs(*nearest - seconds) > Around) return std::nullopt;
    return *nearest + Behind;
}

} // namespace vk
