#include "skin/skin.h"

#include "core/ini_document.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace vk {

namespace {

constexpr char SafeSkin[] = "Torque.skn";
constexpr std::int32_t White = 0xFFFFFF;
constexpr int SmallestSize = 10;

struct SizeRow {
    int screenWidth;
    std::int16_t clock, heading, list, title, artist;
};

// Sizes that stand in for those below the smallest, by the width of the real screen.
constexpr SizeRow Sizes[] = {{640, 10, 13, 18, 20, 16},
                             {800, 12, 15, 20, 22, 18},
                             {1024, 14, 17, 22, 24, 20},
                             {1152, 16, 19, 24, 28, 24}};

// Any one section of a skin makes it one: what is missing has its defaults.
bool IsSkin(const IniDocument& document) {
    const char* const sections[] = {"NativeRes", "BGimages", "Colors", "FONTS", "IconNames"};
    return std::any_of(std::begin(sections), std::end(sections),
                       [&](const char* section) { return document.HasSection(section); });
}

} // namespace

std::string SkinStore::File() const {
    return JoinPath(n_.settings.File("skins"), n_.state.CurrentSkinFile);
}

std::string SkinStore::PicturePath(const std::string& name) const {
    return IsAbsolutePath(name) ? name : n_.settings.SkinPicture(n_.state.CurrentSkinFile, name);
}

std::string SkinStore::Text(const char* section, const std::string& key) {
    return n_.settings.ini().ReadText(File(), section, key);
}

IniValue SkinStore::Value(const char* section, const std::string& key, IniType type) {
    return n_.settings.ini().ReadINI(File(), section, key, type);
}

void SkinStore::LoadSkin() {
    ++generation_;
    if (ReadSkin()) return;
    const std::string broken = File();
    n_.report.ReportError("An error occured in modSkin.LoadSkin " + broken + " ", "Skin Error", 5);
    n_.dialogs.ShowMessage("Skin Error.  Using Safe Mode Skin");
    n_.state.CurrentSkinFile = SafeSkin;
    if (File() != broken && ReadSkin()) return;
    // Loading the safe skin again and again would never end.
    n_.report.Log("No usable skin: " + File() + "; using built-in colours");
    UseBuiltInLook();
}

bool SkinStore::ReadSkin() {
    const auto contents = ReadWholeFile(File());
    if (!contents) return false;
    if (!IsSkin(IniDocument(*contents))) return false;
    data_.X = Value("NativeRes", "X", IniType::Long).Long();
    data_.Y = Value("NativeRes", "Y", IniType::Long).Long();
    ReadScale();
    ReadBackgrounds();
    ReadColours();
    ReadFonts();
    ReplaceSmallSizes();
    data_.itemindex = Value("DMFS", "itemindex", IniType::Integer).Integer();
    return true;
}

void SkinStore::ReadScale() {
    const double width = n_.state.ScreenWidth;
    const double height = n_.state.ScreenHeight;
    if (!n_.settings.values.UseScaling) {
        data_.FontScaleX = data_.FontScaleY = 1;
        return;
    }
    if (data_.X != n_.state.ScreenWidth && data_.X > 0)
        data_.FontScaleX = static_cast<float>(std::pow(width / data_.X, 0.4));
    // Compared with the width on purpose: skins were drawn to this.
    if (data_.Y != n_.state.ScreenWidth && data_.Y > 0)
        data_.FontScaleY = static_cast<float>(std::pow(height / data_.Y, 0.04));
}

void SkinStore::ReadBackgrounds() {
    data_.mainmenu = Text("BGimages", "mainmenu");
    data_.playlist = Text("BGimages", "playlist");
    data_.playmp3 = Text("BGimages", "playmp3");
    data_.FM = Text("BGimages", "FM");
    data_.GPSSTD = Text("BGimages", "GPSSTD");
    data_.GPSMUSIC = Text("BGimages", "GPSMUSIC");
}

void SkinStore::ReadColours() {
    const auto plain = [&](const char* key) {
        return SkinColour{Value("Colors", key, IniType::Long).Long() & White};
    };
    const auto neverBlack = [&](const char* key) {
        const SkinColour colour = plain(key);
        return colour.value == 0 ? SkinColour{White} : colour;
    };
    SkinData& d = data_;
    d.ClockForegroundClr = neverBlack("ClockForegroundClr");
    d.ClockBackgroundClr = plain("ClockBackgroundClr");
    d.HeadingBarForegroundClr = neverBlack("HeadingBarForegroundClr");
    d.HeadingBarBackgroundClr = plain("HeadingBarBackgroundClr");
    d.ListForegroundClr = neverBlack("ListForegroundClr");
    d.ListSelectedBackgroundClr = plain("ListSelectedBackgroundClr");
    d.ListTextSelectedClr = neverBlack("ListTextSelectedClr");
    d.OutlineBoxClr = plain("OutlineBoxClr");
    d.PlayListFolderClr = neverBlack("PlayListFolderClr");
    d.currentsongclr = neverBlack("currentsongclr");
    d.LineClr = plain("LineClr");
    d.OSKBGClr = plain("OSKBGClr");
    d.OSKTextClr = neverBlack("OSKTextClr");
    d.OSKSelBoxClr = neverBlack("OSKSelBoxClr");
    d.OSKSearchTextClr = plain("OSKSearchTextClr");
    d.ListTitleClr = neverBlack("ListTitleClr");
    d.ListTitleSelectedClr = neverBlack("ListTitleSelectedClr");
}

SkinFont SkinStore::ReadFont(const std::string& name) {
    SkinFont font;
    font.name = Text("FONTS", name + "name");
    if (!n_.fonts.FontExists(font.name)) font.name = "Verdana";
    font.bold = Value("FONTS", name + "bold", IniType::Boolean).Bool();
    font.italic = Value("FONTS", name + "italic", IniType::Boolean).Bool();
    font.size = Value("FONTS", name + "size", IniType::Integer).Integer();
    return font;
}

void SkinStore::ReadFonts() {
    data_.clockfont = ReadFont("clockfont");
    data_.headingbarfont = ReadFont("headingbarfont");
    data_.Listtextfont = ReadFont("Listtextfont");
    data_.Titlefont = ReadFont("Titlefont");
    data_.artistfont = ReadFont("artistfont");
}

void SkinStore::ReplaceSmallSizes() {
    const int width = n_.screenWidth();
    const auto replace = [](SkinFont& font, std::int16_t size) {
        if (font.size < SmallestSize) font.size = size;
    };
    for (const SizeRow& row : Sizes) {
        if (row.screenWidth != width) continue;
        replace(data_.clockfont, row.clock);
        replace(data_.headingbarfont, row.heading);
        replace(data_.Listtextfont, row.list);
        replace(data_.Titlefont, row.title);
        replace(data_.artistfont, row.artist);
    }
}

// Light text on dark grounds, in the sizes of a small in-dash screen.
void SkinStore::UseBuiltInLook() {
    data_ = {};
    SkinData& d = data_;
    d.FontScaleX = d.FontScaleY = 1;
    for (SkinColour* colour :
         {&d.ClockForegroundClr, &d.HeadingBarForegroundClr, &d.ListForegroundClr,
          &d.PlayListFolderClr, &d.OSKTextClr, &d.ListTitleClr})
        *colour = {0xE0E0E0};
    for (SkinColour* colour : {&d.ListTextSelectedClr, &d.currentsongclr, &d.ListTitleSelectedClr,
                               &d.OSKSelBoxClr, &d.ListSelectedBackgroundClr, &d.LineClr})
        *colour = {0x30A0FF};
    for (SkinColour* colour : {&d.ClockBackgroundClr, &d.HeadingBarBackgroundClr, &d.OSKBGClr})
        *colour = {0x302820};
    d.clockfont.size = 12;
    d.headingbarfont.size = 15;
    d.Listtextfont.size = 20;
    d.Titlefont.size = 22;
    d.artistfont.size = 18;
}

std::vector<MenuIconData> SkinStore::ReadMenuIcons() {
    std::vector<MenuIconData> icons;
    const auto names = Split(Trim(Text("IconNames", "Names")), ' ');
    if (names.size() < 2) return icons;
    for (const std::string& name : names) {
        const char* section = name.c_str();
        const auto fraction = [&](const char* key) {
            return Value(section, key, IniType::Decimal).Double();
        };
        const auto neighbour = [&](const char* key) {
            return static_cast<int>(Value(section, key, IniType::Integer).Integer());
        };
        MenuIconData icon;
        icon.name = name;
        icon.icontop = fraction("icontop");
        icon.iconleft = fraction("iconleft");
        icon.iconheight = fraction("iconheight");
        icon.iconwidth = fraction("iconwidth");
        icon.iconpictureunsel = Text(section, "iconpictureunsel");
        icon.iconpicturesel = Text(section, "iconpicturesel");
        const int function = static_cast<int>(Value(section, "function", IniType::Single).Double());
        if (function != 0) icon.function = std::to_string(function);
        icon.of_above = neighbour("of_above");
        icon.of_below = neighbour("of_below");
        icon.of_right = neighbour("of_right");
        icon.of_left = neighbour("of_left");
        icons.push_back(icon);
    }
    return icons;
}

} // namespace vk
