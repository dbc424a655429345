// The skin in use: colours, fonts and picture names of one .skn file, with the rules for what is
// missing.
#pragma once

#include "core/app_state.h"
#include "core/error_report.h"
#include "core/settings.h"
#include "platform/dialogs.h"
#include "platform/fonts.h"

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
};

/// One icon of the main menu.
struct MenuIconData {
    std::string name;
    double icontop = 0, iconleft = 0, iconheight = 0, iconwidth = 0; ///< fractions of the screen
    std::string iconpictureunsel, iconpicturesel;                    ///< files in the skin's folder
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
    /// message and Torque.skn; when that is broken as well, built-in colours are used.
    void LoadSkin();
    /// The icons of the skin in use, in the order of their names; a skin that names only one has
    /// none.
    std::vector<MenuIconData> ReadMenuIcons();
    /// Full path of a picture of the skin in use; the file need not exist. An absolute path, of a
    /// picture that belongs to no skin, stays as it is.
    std::string PicturePath(const std::string& name) const;

    const SkinData& data() const { return data_; }
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
    std::string Text(const char* section, const std::string& key);
    IniValue Value(const char* section, const std::string& key, IniType type);
    std::string File() const;

    Needs n_;
    SkinData data_;
    int generation_ = 0;
};

} // namespace vk
