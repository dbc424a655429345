// The two skins that ship, as the build rendered them.
#include "skin/controls/looks.h"
#include "tests/paths.h"
#include "tests/support/core_fixture.h"

#include <QDir>
#include <QImage>
#include <QRectF>

#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace vk::test {

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

static std::vector<std::string> Words(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

class ShippedSkin : public testing::TestWithParam<const char*> {
  protected:
    std::string Text(const std::string& section, const std::string& key) {
        return core_.ini.ReadText(SkinsFile(".skn"), section, key);
    }
    double Number(const std::string& section, const std::string& key) {
        return core_.ini.ReadINI(SkinsFile(".skn"), section, key, IniType::Double).Double();
    }
    QColor Colour(const std::string& key) {
        return ToQColor({static_cast<int>(Number("Colors", key))});
    }
    QImage Picture(const std::string& name) const {
        return QImage(QString::fromStdString(SkinsFile("/" + name)));
    }
    /// The worst contrast of a colour to any spot of a background.
    double WorstContrast(const QColor& colour, const QImage& ground) const {
        const QImage spots = ground.scaled(64, 36);
        double worst = 21;
        for (int y = 0; y < spots.height(); ++y)
            for (int x = 0; x < spots.width(); ++x)
                worst = std::min(worst, Contrast(colour, spots.pixelColor(x, y)));
        return worst;
    }
    std::vector<std::string> Icons() { return Words(Text("IconNames", "Names")); }
    QRectF Place(const std::string& icon) {
        return {Number(icon, "iconleft"), Number(icon, "icontop"), Number(icon, "iconwidth"),
                Number(icon, "iconheight")};
    }
    /// How many icons the named move leads through, from the first until one comes again.
    std::size_t Reached(const char* move) {
        std::set<double> reached;
        for (double icon = 1; reached.insert(icon).second;)
            icon = Number(Icons().at(static_cast<std::size_t>(icon) - 1), move);
        return reached.size();
    }
    static std::string SkinsFile(const std::string& tail) {
        return std::string(VK_RENDERED_SKINS) + "/" + GetParam() + tail;
    }

    CoreFixture core_;
};

TEST_P(ShippedSkin, HasEveryPictureAndBackgroundThatTheScreensLoad) {
    for (const auto& name : Words(PictureNames))
        EXPECT_FALSE(Picture(name).isNull()) << name;
    for (const auto* key : {"mainmenu", "playlist", "playmp3", "FM", "GPSSTD", "GPSMUSIC"})
        EXPECT_EQ(Picture(Text("BGimages", key)).size(), QSize(1280, 720)) << key;
    for (const auto* name : {"menu.gif", "pausesel.gif", "quit.gif", "eject.gif"}) {
        const QImage picture = Picture(name);
        EXPECT_EQ(picture.width(), picture.height()) << name;
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << name;
        EXPECT_EQ(qAlpha(picture.pixel(picture.rect().center())), 255) << name;
    }
}

TEST_P(ShippedSkin, IconsHaveTheSevenFunctionsAndTheChosenOneStandsOut) {
    std::set<int> functions;
    for (const auto& icon : Icons()) {
        const QImage plain = Picture(Text(icon, "iconpictureunsel"));
        const QImage chosen = Picture(Text(icon, "iconpicturesel"));
        ASSERT_FALSE(plain.isNull() || chosen.isNull()) << icon;
        const QPoint plate(plain.width() / 10, plain.height() / 2);
        EXPECT_GE(Contrast(plain.pixelColor(plate), chosen.pixelColor(plate)), 3.0) << icon;
        functions.insert(static_cast<int>(Number(icon, "function")));
    }
    EXPECT_EQ(functions, (std::set<int>{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Number("NumberofIcons", "count"), double(Icons().size()));
}

TEST_P(ShippedSkin, IconsAreLargeApartAboveTheClockBarAndReachedByArrows) {
    const auto icons = Icons();
    for (std::size_t i = 0; i < icons.size(); ++i) {
        SCOPED_TRACE(icons[i]);
        for (const char* move : {"of_above", "of_below", "of_right", "of_left"}) {
            const double neighbour = Number(icons[i], move);
            ASSERT_TRUE(neighbour >= 1 && neighbour <= double(icons.size())) << move;
            EXPECT_NE(neighbour, double(i + 1)) << move;
        }
        const auto below = static_cast<std::size_t>(Number(icons[i], "of_below"));
        EXPECT_EQ(Number(icons.at(below - 1), "of_above"), double(i + 1)) << "taken back";
        const QRectF place = Place(icons[i]);
        EXPECT_TRUE(QRectF(0, 0, 1, 0.95).contains(place));
        EXPECT_GE(place.width() * 800, 105);
        EXPECT_GE(place.height() * 480, 105);
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_FALSE(place.intersects(Place(icons[k]))) << icons[k];
    }
    for (const char* move : {"of_below", "of_above"}) // a wheel knows one direction
        EXPECT_EQ(Reached(move), icons.size());
}

TEST_P(ShippedSkin, TextIsReadableOnItsGround) {
    for (const auto* ground : {"playlist", "playmp3", "FM"})
        for (const auto& key : TextColours)
            EXPECT_GE(WorstContrast(Colour(key), Picture(Text("BGimages", ground))), 4.5)
                << key << " on " << ground;
    for (const auto& [text, ground] : {std::pair{"ClockForegroundClr", "ClockBackgroundClr"},
                                       {"HeadingBarForegroundClr", "HeadingBarBackgroundClr"},
                                       {"OSKTextClr", "OSKBGClr"},
                                       {"OSKTextClr", "OSKSelBoxClr"},
                                       {"OSKSearchTextClr", "OSKBGClr"}})
        EXPECT_GE(Contrast(Colour(text), Colour(ground)), 4.5) << text << " on " << ground;
    EXPECT_GE(Contrast(Colour("OSKSelBoxClr"), Colour("OSKBGClr")), 3.0);
    for (const std::string font :
         {"clockfont", "headingbarfont", "Listtextfont", "Titlefont", "artistfont"}) {
        EXPECT_EQ(Text("FONTS", font + "name"), "DejaVu Sans") << font;
        EXPECT_GE(Number("FONTS", font + "size"), 10) << font << " would be replaced";
    }
}

TEST_P(ShippedSkin, NothingDazzlesAtNight) {
    if (GetParam() == std::string("Torque")) return; // the day's
    std::vector<std::string> keys = TextColours;
    keys.insert(keys.end(), {"ClockForegroundClr", "HeadingBarForegroundClr", "OSKTextClr",
                             "OSKSelBoxClr", "OSKSearchTextClr"});
    for (const auto& key : keys) {
        EXPECT_NE(Number("Colors", key), 0) << key << " would turn white";
        EXPECT_LT(Contrast(Colour(key), Qt::black), 17) << key;
    }
    const QDir folder(QString::fromStdString(SkinsFile("")));
    for (const QString& name : folder.entryList(QDir::Files)) {
        const QImage picture = QImage(folder.filePath(name)).convertToFormat(QImage::Format_ARGB32);
        double brightest = 0;
        for (int y = 0; y < picture.height(); y += 4)
            for (int x = 0; x < picture.width(); x += 4)
                if (qAlpha(picture.pixel(x, y)) == 255)
                    brightest = std::max(brightest, Contrast(picture.pixelColor(x, y), Qt::black));
        EXPECT_LT(brightest, 13.4) << name.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(DayAndNight, ShippedSkin, testing::Values("Torque", "TorqueNight"));

} // namespace vk::test
