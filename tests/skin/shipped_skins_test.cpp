// The two skins that ship, as the build rendered them.
#include "tests/support/core_fixture.h"

#include <QDir>
#include <QImage>
#include <QRectF>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace vk {
namespace {

const char* const PictureNames =
    "loading.jpg arrowup.gif arrowdown.gif cpl.jpg watermark.gif quit.gif addfav.gif addfavsel.gif "
    "audiocd.gif bottombar.jpg ff.gif ffsel.gif fm.gif gps.gif gpsactual.gif lists.gif main.gif "
    "menu.gif menusel.gif mp3.gif pause.gif pausesel.gif play.gif playsel.gif player.gif rw.gif "
    "rwsel.gif shuffle.gif shufflesel.gif vdown.gif vdownsel.gif vis.gif vup.gif vupsel.gif "
    "wmafile.gif xm.gif cdicon.gif mp3icon.gif radio.gif back.gif folder.gif hdd_icon.gif "
    "cdimage.gif dvd.gif search.gif movie.gif playlist.gif xm_default.gif alert.gif recurse.gif "
    "recursesel.gif closeapp.gif moveme.gif movietopbar.jpg eject.gif resume.gif moveback.gif "
    "movebacksel.gif moveahead.gif moveaheadsel.gif pgup.gif pgupsel.gif pgdn.gif pgdnsel.gif "
    "add.gif addsel.gif remove.gif removesel.gif save.gif home.gif logo.gif";

const std::vector<std::string> TextColours = {"ListForegroundClr",    "ListTextSelectedClr",
                                              "PlayListFolderClr",    "currentsongclr",
                                              "ListTitleSelectedClr", "ListTitleClr"};

std::vector<std::string> Words(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// Relative luminance of a colour, 0 to 1.
double Luminance(QRgb colour) {
    const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

double Contrast(QRgb a, QRgb b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

class ShippedSkin : public testing::TestWithParam<const char*> {
  protected:
    std::string Text(const std::string& section, const std::string& key) {
        return core_.ini.ReadText(SkinsFile(".skn"), section, key);
    }
    double Number(const std::string& section, const std::string& key) {
        return core_.ini.ReadINI(SkinsFile(".skn"), section, key, IniType::Double).Double();
    }
    /// A colour of the skin file, whose red is the lowest byte.
    QRgb Colour(const std::string& key) {
        const auto value = static_cast<unsigned>(Number("Colors", key));
        return qRgb(value & 255U, value >> 8U & 255U, value >> 16U & 255U);
    }
    QImage Picture(const std::string& name) const {
        return QImage(QString::fromStdString(SkinsFile("/" + name)));
    }
    /// The worst contrast of a colour to any spot of a background.
    double WorstContrast(QRgb colour, const QImage& ground) const {
        const QImage spots = ground.scaled(64, 36);
        double worst = 21;
        for (int y = 0; y < spots.height(); ++y)
            for (int x = 0; x < spots.width(); ++x)
                worst = std::min(worst, Contrast(colour, spots.pixel(x, y)));
        return worst;
    }
    std::vector<std::string> Icons() { return Words(Text("IconNames", "Names")); }
    QRectF Place(const std::string& icon) {
        return {Number(icon, "iconleft"), Number(icon, "icontop"), Number(icon, "iconwidth"),
                Number(icon, "iconheight")};
    }
    /// The icons, counted from 1, that the named moves reach from the first.
    std::set<int> Reached(const std::vector<std::string>& moves);

    static std::string SkinsFile(const std::string& tail) {
        return std::string(VK_RENDERED_SKINS) + "/" + GetParam() + tail;
    }

    test::CoreFixture core_;
};

std::set<int> ShippedSkin::Reached(const std::vector<std::string>& moves) {
    const auto icons = Icons();
    std::set<int> reached;
    std::vector<int> open = {1};
    while (!open.empty()) {
        const int icon = open.back();
        open.pop_back();
        if (icon < 1 || !reached.insert(icon).second) continue;
        for (const auto& move : moves)
            open.push_back(static_cast<int>(Number(icons.at(std::size_t(icon) - 1), move)));
    }
    return reached;
}

TEST_P(ShippedSkin, HasEveryPictureThatTheScreensLoad) {
    for (const auto& name : Words(PictureNames))
        EXPECT_FALSE(Picture(name).isNull()) << name;
}

TEST_P(ShippedSkin, ButtonsAreSquareAndClearAtTheCorners) {
    for (const auto* name : {"menu.gif", "pausesel.gif", "quit.gif", "eject.gif"}) {
        const QImage picture = Picture(name);
        EXPECT_EQ(picture.width(), picture.height()) << name;
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << name;
        EXPECT_EQ(qAlpha(picture.pixel(picture.rect().center())), 255) << name;
    }
}

TEST_P(ShippedSkin, HasEveryBackground) {
    for (const auto* key : {"mainmenu", "playlist", "playmp3", "FM", "GPSSTD", "GPSMUSIC"})
        EXPECT_EQ(Picture(Text("BGimages", key)).size(), QSize(1280, 720)) << key;
}

TEST_P(ShippedSkin, IconsHavePicturesAndTheSevenFunctions) {
    std::set<int> functions;
    for (const auto& icon : Icons()) {
        EXPECT_FALSE(Picture(Text(icon, "iconpictureunsel")).isNull()) << icon;
        EXPECT_FALSE(Picture(Text(icon, "iconpicturesel")).isNull()) << icon;
        functions.insert(static_cast<int>(Number(icon, "function")));
    }
    EXPECT_EQ(functions, (std::set<int>{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Number("NumberofIcons", "count"), double(Icons().size()));
}

TEST_P(ShippedSkin, NeighboursAreIconsAndAMoveCanBeTakenBack) {
    const auto icons = Icons();
    for (std::size_t i = 0; i < icons.size(); ++i)
        for (const auto* move : {"of_above", "of_below", "of_right", "of_left"}) {
            const double neighbour = Number(icons[i], move);
            EXPECT_GE(neighbour, 1) << icons[i] << " " << move;
            EXPECT_LE(neighbour, double(icons.size())) << icons[i] << " " << move;
            EXPECT_NE(neighbour, double(i + 1)) << icons[i] << " " << move;
        }
    for (const auto& icon : icons)
        EXPECT_EQ(icons.at(std::size_t(Number(icons.at(std::size_t(Number(icon, "of_below")) - 1),
                                              "of_above")) -
                           1),
                  icon);
}

TEST_P(ShippedSkin, ArrowsReachEveryIconAndSoDoesAWheel) {
    EXPECT_EQ(Reached({"of_above", "of_below", "of_right", "of_left"}).size(), Icons().size());
    EXPECT_EQ(Reached({"of_below"}).size(), Icons().size());
    EXPECT_EQ(Reached({"of_above"}).size(), Icons().size());
}

TEST_P(ShippedSkin, IconsAreLargeApartAndAboveTheClockBar) {
    const auto icons = Icons();
    for (std::size_t i = 0; i < icons.size(); ++i) {
        const QRectF place = Place(icons[i]);
        EXPECT_TRUE(QRectF(0, 0, 1, 0.95).contains(place)) << icons[i];
        EXPECT_GE(place.width() * 800, 105) << icons[i];
        EXPECT_GE(place.height() * 480, 105) << icons[i];
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_FALSE(place.intersects(Place(icons[k]))) << icons[i] << " " << icons[k];
    }
}

TEST_P(ShippedSkin, TheChosenIconStandsOut) {
    for (const auto& icon : Icons()) {
        const QImage plain = Picture(Text(icon, "iconpictureunsel"));
        const QImage chosen = Picture(Text(icon, "iconpicturesel"));
        const QPoint plate(plain.width() / 10, plain.height() / 2);
        EXPECT_GE(Contrast(plain.pixel(plate), chosen.pixel(plate)), 3.0) << icon;
    }
}

TEST_P(ShippedSkin, ListTextIsReadableOnItsBackground) {
    for (const auto* ground : {"playlist", "playmp3", "FM"})
        for (const auto& key : TextColours)
            EXPECT_GE(WorstContrast(Colour(key), Picture(Text("BGimages", ground))), 4.5)
                << key << " on " << ground;
}

TEST_P(ShippedSkin, BarsAndKeyboardAreReadable) {
    EXPECT_GE(Contrast(Colour("ClockForegroundClr"), Colour("ClockBackgroundClr")), 4.5);
    EXPECT_GE(Contrast(Colour("HeadingBarForegroundClr"), Colour("HeadingBarBackgroundClr")), 4.5);
    EXPECT_GE(Contrast(Colour("OSKTextClr"), Colour("OSKBGClr")), 4.5);
    EXPECT_GE(Contrast(Colour("OSKTextClr"), Colour("OSKSelBoxClr")), 4.5);
    EXPECT_GE(Contrast(Colour("OSKSelBoxClr"), Colour("OSKBGClr")), 3.0);
    EXPECT_GE(Contrast(Colour("OSKSearchTextClr"), Colour("OSKBGClr")), 4.5);
}

TEST_P(ShippedSkin, FontsAreLargeEnoughToBeKept) {
    for (const std::string font :
         {"clockfont", "headingbarfont", "Listtextfont", "Titlefont", "artistfont"}) {
        EXPECT_EQ(Text("FONTS", font + "name"), "DejaVu Sans") << font;
        EXPECT_GE(Number("FONTS", font + "size"), 10) << font;
    }
}

INSTANTIATE_TEST_SUITE_P(DayAndNight, ShippedSkin, testing::Values("Torque", "TorqueNight"));

/// The night skin alone.
class NightSkin : public ShippedSkin {};

TEST_P(NightSkin, NoTextColourTurnsWhite) {
    std::vector<std::string> keys = TextColours;
    keys.insert(keys.end(), {"ClockForegroundClr", "HeadingBarForegroundClr", "OSKTextClr",
                             "OSKSelBoxClr", "OSKSearchTextClr"});
    for (const auto& key : keys) {
        EXPECT_NE(Number("Colors", key), 0) << key;
        EXPECT_LT(Luminance(Colour(key)), 0.8) << key;
    }
}

TEST_P(NightSkin, NoPictureDazzles) {
    const QDir folder(QString::fromStdString(SkinsFile("")));
    const QStringList names = folder.entryList(QDir::Files);
    ASSERT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        const QImage picture = QImage(folder.filePath(name)).convertToFormat(QImage::Format_ARGB32);
        double brightest = 0;
        for (int y = 0; y < picture.height(); y += 4)
            for (int x = 0; x < picture.width(); x += 4)
                if (qAlpha(picture.pixel(x, y)) == 255)
                    brightest = std::max(brightest, Luminance(picture.pixel(x, y)));
        EXPECT_LT(brightest, 0.62) << name.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Night, NightSkin, testing::Values("TorqueNight"));

} // namespace
} // namespace vk
