// What a video disc says of its titles in its IFO files: which of them have a menu, their shape and
// angles, and what each forbids. (Offsets: the DVD-Video format as it is described publicly, "IFO"
// at dvd.sourceforge.net.)
#pragma once

#include <string>
#include <vector>

namespace vk {

struct DiscTitle {
    bool rootMenu = true;
    double shape = 0; ///< width over height, as it is to be seen; 0: not known
    int angles = 1;
    int forbidden = 0; ///< flags of `uop`, as the title's first program chain has them
};

struct DiscIndex {
    std::vector<DiscTitle> titles; ///< empty for what cannot be read: everything may be tried
    double menuShape = 0;          ///< of all its menus; 0: they differ, or it is not known

    /// Of a title, from 1; for 0 (a menu) and unknown ones nothing is forbidden.
    DiscTitle Of(int title) const;
    /// Some title has a menu, or nothing is known.
    bool AnyMenu() const;
};

/// Torn and hostile files give what could be read of them. May wait for the medium.
DiscIndex ReadDiscIndex(const std::string& disc);

} // namespace vk
