#include "platform/dvd/disc_index.h"

#include "platform/dvd/disc_bytes.h"
#include "platform/dvd/disc_files.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <utility>

namespace vk {

namespace {

constexpr std::uint32_t MostTitles = 99;
constexpr std::uint32_t RootMenuExists = 0x80;
constexpr std::size_t MenuPictures = 0x100, TitlePictures = 0x200; // how they are coded
constexpr std::size_t FirstMenuSector = 0xC0;

double ShapeAt(const std::string& bytes, std::size_t at) {
    const std::uint32_t coding = ByteAt(bytes, at) >> 6, ratio = ByteAt(bytes, at) >> 2 & 3;
    if (at >= bytes.size() || coding > 1) return 0; // neither of the two kinds of MPEG
    return ratio == 0 ? 4.0 / 3 : ratio == 3 ? 16.0 / 9 : 0;
}

/// A title set's file.
class TitleSet {
  public:
    explicit TitleSet(std::string bytes) : bytes_(std::move(bytes)) {}

    bool IsOne() const { return bytes_.starts_with("DVDVIDEO-VTS"); }
    const std::string& Bytes() const { return bytes_; }
    double Shape() const { return ShapeAt(bytes_, TitlePictures); }
    bool HasRootMenu() const {
        const std::size_t menus = Table(0xD0);
        if (menus == 0) return false;
        const std::uint32_t languages = std::min(BigAt(bytes_, menus, 2), MostTitles);
        for (std::uint32_t i = 0; i < languages; ++i)
            if (ByteAt(bytes_, menus + 8 + i * 8 + 3) & RootMenuExists) return true;
        return false;
    }
    /// Of the program chain that the set's title (from 1) begins with.
    int Forbidden(std::uint32_t title) const {
        const std::size_t parts = Table(0xC8), chains = Table(0xCC);
        if (parts == 0 || chains == 0 || title == 0) return 0;
        const std::size_t part = parts + BigAt(bytes_, parts + 8 + (title - 1) * 4);
        const std::uint32_t chain = BigAt(bytes_, part, 2);
        if (chain == 0) return 0;
        const std::size_t at = chains + BigAt(bytes_, chains + 8 + (chain - 1) * 8 + 4);
        return static_cast<int>(BigAt(bytes_, at + 8) & 0x7FFFFFFF);
    }

  private:
    std::size_t Table(std::size_t pointer) const { return BigAt(bytes_, pointer) * DiscSector; }

    std::string bytes_;
};

TitleSet ReadTitleSet(const std::string& disc, std::uint32_t number) {
    char name[16];
    std::snprintf(name, sizeof name, "VTS_%02u_0.IFO", number);
    return TitleSet(ReadDiscFile(disc, name).value_or(""));
}

double MenuShape(const std::string& manager, const std::map<std::uint32_t, TitleSet>& sets) {
    std::set<double> shapes;
    const auto add = [&](const std::string& bytes) {
        const double shape = ShapeAt(bytes, MenuPictures);
        if (shape > 0 && BigAt(bytes, FirstMenuSector) != 0) shapes.insert(shape);
    };
    add(manager);
    for (const auto& [number, set] : sets)
        add(set.Bytes());
    return shapes.size() == 1 ? *shapes.begin() : 0;
}

} // namespace

DiscTitle DiscIndex::Of(int title) const {
    const bool known = title > 0 && title <= static_cast<int>(titles.size());
    if (known) return titles[static_cast<std::size_t>(title - 1)];
    return {.rootMenu = AnyMenu(), .shape = title == 0 ? menuShape : 0};
}

bool DiscIndex::AnyMenu() const {
    return titles.empty() || std::ranges::any_of(titles, &DiscTitle::rootMenu);
}

DiscIndex ReadDiscIndex(const std::string& disc) {
    DiscIndex index;
    const std::string manager = ReadDiscFile(disc, "VIDEO_TS.IFO").value_or("");
    if (!manager.starts_with("DVDVIDEO-VMG")) return index;
    const std::size_t table = BigAt(manager, 0xC4) * DiscSector;
    if (table == 0) return index;
    std::map<std::uint32_t, TitleSet> sets;
    for (std::uint32_t i = 0; i < std::min(BigAt(manager, table, 2), MostTitles); ++i) {
        const std::size_t entry = table + 8 + i * 12;
        const std::uint32_t number = ByteAt(manager, entry + 6);
        if (!sets.contains(number)) sets.emplace(number, ReadTitleSet(disc, number));
        const TitleSet& set = sets.at(number);
        DiscTitle title{.angles = static_cast<int>(ByteAt(manager, entry + 1))};
        if (set.IsOne()) {
            title.rootMenu = set.HasRootMenu();
            title.shape = set.Shape();
            title.forbidden = set.Forbidden(ByteAt(manager, entry + 7));
        }
        index.titles.push_back(title);
    }
    index.menuShape = MenuShape(manager, sets);
    return index;
}

} // namespace vk
