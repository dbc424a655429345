// Skins of the map's screen (.isn): text, a record a line, fields separated by commas.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// Pixels of the skin's own size.
struct IsnBox {
    int left = 0, top = 0, width = 0, height = 0;
    bool operator==(const IsnBox&) const = default;
};

struct IsnFont {
    std::string name;
    int size = 0; ///< points at 96 dots an inch, at the skin's own size; 0: as the place allows
    bool bold = false, italic = false;
};

/// Names are in upper case.
struct IsnSkin {
    struct Button {
        IsnBox place;
        std::string name;
    };
    struct Label {
        int left = 0, top = 0, width = 0;
        IsnFont font;
        std::string name;
    };
    struct Bar {
        IsnBox place;
        IsnFont font;
        std::string colour; ///< a number (blue-green-red), or anything
    };

    int width = 0, height = 0;                   ///< its own size; 0: nothing of it can be placed
    std::map<std::string, std::string> pictures; ///< file names by key
    std::map<std::string, IsnBox> areas;
    std::vector<Button> buttons; ///< of two that overlap the first is meant
    std::vector<Label> labels;
    std::optional<Bar> bar; ///< for search and messages
};

/// What is read of an .isn file; a longer one is none. Bytes.
inline constexpr std::size_t LongestIsn = 1u << 20;
/// How many touch areas and labels are taken of one file: each becomes a control.
inline constexpr std::size_t MostIsnParts = 200;

/// Reads a skin. Lines of unknown records are left out; of those that are not what their record
/// asks for the first few are told to `complain`, a text a line.
IsnSkin ParseIsn(std::string_view text, const std::function<void(const std::string&)>& complain);

} // namespace vk
