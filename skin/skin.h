// The skin in use: colours, fonts and picture names of one .skn file, with the rules for what is
// missing.
#pragma once

#include "core/app_state.h"
#include "core/error_report.h"
#include "core/settings.h"
#include "platform/dialogs.h"
#include "platform/fonts.h"
#include "skin/skin_file.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vk {

/// A colour in blue-green-red order: blue * 65536 + green * 256 + red.
struct SkinColour {
    std::int32_t value = 0;
    int Red() const { return value & 0xFF; }
    int Green() const { return (value >> 8) & 0xFF; }
    int Blue() const { return (value >> 16) & 0xFF; }
};

/// Sizes are points at 96 dots an inch, before `FontScaleX` and `FontScaleY`.
struct SkinFont {
    std::string name = "Verdana";
    bool bold = false;
    bool italic = false;
    std::int16_t size = 0;
};

/// What one .skn file says, under the names of its keys.
struct SkinData {
    std::int32_t X = 0; ///< NativeRes, pixels
    std::int32_t Y = 0;
    std::string mainmenu, playlist, playmp3, FM, GPSSTD, GPSMUSIC; ///< backgrounds
    SkinColour ClockForegroundClr, ClockBackgroundClr, HeadingBarForegroundClr,
        HeadingBarBackgroundClr, ListForegroundClr, ListSelectedBackgroundClr, ListTextSelectedClr,
        OutlineBoxClr, PlayListFolderClr, currentsongclr, LineClr, OSKBGClr, OSKTextClr,
        OSKSelBoxClr, OSKSearchTextClr, ListTitleClr, ListTitleSelectedClr;
    SkinFont clockfont, headingbarfont, Listtextfont, Titlefont, artistfont;
    std::int16_t itemindex = 0; ///< icon selected when none is stored
    float FontScaleX = 0;       ///< a factor that is not computed keeps its value
    float FontScaleY = 0;

    /// What every font size is multiplied with: both factors, where one that was never computed
    /// counts as 1, and in all no more than fourfold either way.
    double FontScale() const;
};

/// One icon of the main menu.
struct MenuIconData {
    std::string name;
    /// Fractions of the screen; no icon is larger than that or begins beyond it.
    double icontop = 0, iconleft = 0, iconheight = 0, iconwidth = 0;
    std::string iconpictureunsel, iconpicturesel;              ///< files in the skin's folder
    std::string function;                                      ///< number as text, "" for none
    int of_above = 0, of_below = 0, of_right = 0, of_left = 0; ///< neighbours from 1; 0 for none
};

class SkinStore {
  public:
    struct Needs {
        AppState& state;
        SettingsStore& settings;
        const Fonts& fonts;
        Dialogs& dialogs;
        ErrorReport& report;
        std::function<int()> screenWidth; ///< of the real screen, pixels
    };
    explicit SkinStore(Needs needs) : n_(std::move(needs)) {}

    /// Reads `CurrentSkinFile`. A file that cannot be read, or is no skin, is answered with a
    /// message and Torque.skn; when that is broken as well, built-in colours are used. What a skin
    /// lacks is told in the log.
    void LoadSkin();
    /// The icons of the skin in use, in the order of their names; none for a skin that names only
    /// one, or describes none of them.
    const std::vector<MenuIconData>& ReadMenuIcons() const { return icons_; }
    /// Whether there is a skin file of this name, in any case.
    bool IsThere(const std::string& skinFile) const;
    /// Full path of a picture of the skin in use, found in any case; the file need not exist. An
    /// absolute path, of a picture that belongs to no skin, stays as it is.
    std::string PicturePath(const std::string& name) const;
    /// Tells in the log of a picture that the skin in use lacks or that cannot be shown.
    void TellLacking(const std::string& picture) const;

    const SkinData& data() const { return data_; }
    /// The skin that was asked for last, when it could not be loaded; else "".
    const std::string& Refused() const { return refused_; }
    /// Counts the loads, so that kept pictures can tell that they are old.
    int Generation() const { return generation_; }

  private:
    bool ReadSkin();
    void ReadScale();
    void ReadBackgrounds();
    void ReadColours();
    void ReadFonts();
    SkinFont ReadFont(const std::string& name);
    void ReplaceSmallSizes();
    void UseBuiltInLook();
    void ReadIcons();
    MenuIconData ReadIcon(const std::string& name, int count);
    int Whole(const std::string& section, const std::string& key, int low, int high);
    std::string File() const { return FileOf(n_.state.CurrentSkinFile); }
    std::string FileOf(const std::string& skinFile) const;

    Needs n_;
    SkinFile file_; ///< while it is read
    SkinData data_;
    std::vector<MenuIconData> icons_;
    std::string refused_;
    int generation_ = 0;
};

} // namespace vk
