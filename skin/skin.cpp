#include "skin/skin.h"

#include "core/find_file.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace vk {

namespace {

constexpr char SafeSkin[] = "Torque.skn";
constexpr std::int32_t White = 0xFFFFFF;
constexpr std::size_t EndingSize = 4; // ".skn"
constexpr int SmallestSize = 10;
constexpr int LargestFont = 144; // points
constexpr double LargestScale = 4;
constexpr int LargestScreen = 32767;
constexpr int LargestFunction = 32767;
constexpr int MostIcons = 100;

struct SizeRow {
    int screenWidth;
    std::int16_t clock, heading, list, title, artist;
};

// Sizes that stand in for those below the smallest, by the width of the real screen.
constexpr SizeRow Sizes[] = {{640, 10, 13, 18, 20, 16},
                             {800, 12, 15, 20, 22, 18},
                             {1024, 14, 17, 22, 24, 20},
                             {1152, 16, 19, 24, 28, 24}};

// The row of this width, or for a size that is missing the one that is nearest to it.
const SizeRow* SizesFor(int screenWidth, bool missing) {
    const auto distance = [&](const SizeRow& row) {
        return std::abs(row.screenWidth - screenWidth);
    };
    const SizeRow& nearest = *std::ranges::min_element(Sizes, {}, distance);
    return missing || nearest.screenWidth == screenWidth ? &nearest : nullptr;
}

double OrOne(float factor) {
    return factor > 0 ? static_cast<double>(factor) : 1;
}

} // namespace

double SkinData::FontScale() const {
    return std::clamp(OrOne(FontScaleX) * OrOne(FontScaleY), 1 / LargestScale, LargestScale);
}

std::string SkinStore::FileOf(const std::string& skinFile) const {
    return FindFile(n_.settings.Shipped("skins"), skinFile);
}

bool SkinStore::IsThere(const std::string& skinFile) const {
    return FileExists(FileOf(skinFile));
}

std::string SkinStore::PicturePath(const std::string& name) const {
    if (IsAbsolutePath(name)) return name;
    const std::string& skin = n_.state.CurrentSkinFile;
    return FindFile(FileOf(skin.substr(0, skin.size() - std::min(skin.size(), EndingSize))), name);
}

void SkinStore::TellLacking(const std::string& picture) const {
    const std::string path = PicturePath(picture);
    n_.report.Log(FileExists(path) ? "The picture " + path + " cannot be shown"
                                   : "The skin " + n_.state.CurrentSkinFile + " lacks " + picture);
}

void SkinStore::LoadSkin() {
    refused_.clear();
    if (ReadSkin()) {
        ++generation_;
        return;
    }
    const std::string broken = File();
    refused_ = n_.state.CurrentSkinFile;
    n_.report.ReportError("An error occured in modSkin.LoadSkin " + broken + " ", "Skin Error", 5);
    n_.state.CurrentSkinFile = SafeSkin;
    // Loading the safe skin again and again would never end.
    if (File() == broken || !ReadSkin()) {
        n_.report.Log("No usable skin: " + File() + "; using built-in colours");
        UseBuiltInLook();
    }
    ++generation_;
    // What is drawn while the message stands there is drawn in the skin that is in use now.
    n_.dialogs.ShowMessage("Skin Error.  Using Safe Mode Skin");
}

bool SkinStore::ReadSkin() {
    const auto contents = ReadWholeFile(File());
    if (!contents) return false;
    SkinFile file(*contents, n_.state.DecimalSymbol);
    if (!file.IsSkin()) return false;
    file_ = std::move(file);
    data_.X = Whole("NativeRes", "X", 0, LargestScreen);
    data_.Y = Whole("NativeRes", "Y", 0, LargestScreen);
    ReadScale();
    ReadBackgrounds();
    ReadColours();
    ReadFonts();
    ReplaceSmallSizes();
    data_.itemindex = static_cast<std::int16_t>(Whole("DMFS", "itemindex", 0, MostIcons));
    ReadIcons();
    if (const std::string faults = file_.Faults(); !faults.empty())
        n_.report.Log("The skin " + n_.state.CurrentSkinFile + ": " + faults);
    file_ = {};
    return true;
}

int SkinStore::Whole(const std::string& section, const std::string& key, int low, int high) {
    return static_cast<int>(file_.Number(section, key, IniType::Long, low, high));
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
    const auto picture = [&](const char* key) { return file_.Text("BGimages", key); };
    data_.mainmenu = picture("mainmenu");
    data_.playlist = picture("playlist");
    data_.playmp3 = picture("playmp3");
    data_.FM = picture("FM");
    data_.GPSSTD = picture("GPSSTD");
    data_.GPSMUSIC = picture("GPSMUSIC");
}

void SkinStore::ReadColours() {
    const auto plain = [&](const char* key) {
        return SkinColour{Whole("Colors", key, INT32_MIN, INT32_MAX) & White};
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
    font.name = file_.Text("FONTS", name + "name");
    if (!font.name.empty() && !n_.fonts.FontExists(font.name))
        file_.AddFault("the font " + font.name + " is not installed");
    if (!n_.fonts.FontExists(font.name)) font.name = "Verdana";
    font.bold = file_.Flag("FONTS", name + "bold");
    font.italic = file_.Flag("FONTS", name + "italic");
    font.size = static_cast<std::int16_t>(Whole("FONTS", name + "size", 0, LargestFont));
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
    const auto replace = [&](SkinFont& font, std::int16_t SizeRow::*size) {
        const SizeRow* row = SizesFor(width, font.size == 0);
        if (font.size < SmallestSize && row) font.size = row->*size;
    };
    replace(data_.clockfont, &SizeRow::clock);
    replace(data_.headingbarfont, &SizeRow::heading);
    replace(data_.Listtextfont, &SizeRow::list);
    replace(data_.Titlefont, &SizeRow::title);
    replace(data_.artistfont, &SizeRow::artist);
}

// Light text on dark grounds, in the sizes of a small in-dash screen.
void SkinStore::UseBuiltInLook() {
    data_ = {};
    icons_.clear();
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

void SkinStore::ReadIcons() {
    auto names = Split(Trim(file_.Text("IconNames", "Names")), ' ');
    names.resize(std::min<std::size_t>(names.size(), MostIcons));
    const auto described = [&](const std::string& name) { return file_.HasSection(name); };
    icons_.clear();
    if (names.size() < 2 || std::ranges::none_of(names, described))
        return file_.AddFault("no icons for the menu");
    for (const std::string& name : names)
        icons_.push_back(ReadIcon(name, static_cast<int>(names.size())));
}

MenuIconData SkinStore::ReadIcon(const std::string& name, int count) {
    const auto fraction = [&](const char* key, double low) {
        return file_.Number(name, key, IniType::Decimal, low, 1);
    };
    const auto neighbour = [&](const char* key) {
        return file_.Has(name, key) ? Whole(name, key, 0, count) : 0;
    };
    MenuIconData icon;
    icon.name = name;
    icon.icontop = fraction("icontop", -1);
    icon.iconleft = fraction("iconleft", -1);
    icon.iconheight = fraction("iconheight", 0);
    icon.iconwidth = fraction("iconwidth", 0);
    icon.iconpictureunsel = file_.Text(name, "iconpictureunsel");
    icon.iconpicturesel = file_.Text(name, "iconpicturesel");
    const auto function = static_cast<int>(
        file_.Number(name, "function", IniType::Single, -LargestFunction, LargestFunction));
    if (function != 0) icon.function = std::to_string(function);
    icon.of_above = neighbour("of_above");
    icon.of_below = neighbour("of_below");
    icon.of_right = neighbour("of_right");
    icon.of_left = neighbour("of_left");
    return icon;
}

} // namespace vk
