// The skins of the map's screen and the saved places, as they come: torn, huge, foreign.
#include "navigation/isn_file.h"
#include "navigation/saved_places.h"
#include "tests/support/core_test.h"

namespace vk::test {

struct NavigationFiles : CoreTest {
    IsnSkin Parsed(const std::string& text) {
        complaints.clear();
        return ParseIsn(text, [this](const std::string& what) { complaints += what + "; "; });
    }
    std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const SavedPlace& place : places.Read())
            texts.push_back(place.Text() + " > " + place.Tag());
        return texts;
    }

    std::string complaints;
    SkinStore skin{{state, settings, fonts, dialogs, report, [] { return 800; }}};
    IsnFile isn{skin, app.Path(), log};
    SavedPlaces places{app.File("gps.lst"), log};
};

TEST_F(NavigationFiles, EveryRecordOfASkinIsRead) {
    const IsnSkin parsed = Parsed("/ a comment\r\n\r\nNative, 800 ,480\r\nG,audiodeston,on.jpg\r\n"
                                  "A,1,2,3,4,standard\nB,5,6,7,8,Quit\nB,0,0,1,1,x\n"
                                  "L,10,20,30,Verdana,12,True,false,speed\n"
                                  "S,1,1,90,9,Arial,FALSE,true,255\nsecret,1\nZ");
    EXPECT_EQ(complaints, "");
    EXPECT_EQ(parsed.width * 1000 + parsed.height, 800480);
    EXPECT_EQ(parsed.pictures.at("AUDIODESTON"), "on.jpg");
    EXPECT_EQ(parsed.areas.at("STANDARD"), (IsnBox{1, 2, 3, 4}));
    ASSERT_EQ(parsed.buttons.size(), 2u);
    EXPECT_EQ(parsed.buttons[0].name, "QUIT");
    EXPECT_EQ(parsed.buttons[0].place, (IsnBox{5, 6, 7, 8}));
    ASSERT_EQ(parsed.labels.size(), 1u);
    const IsnSkin::Label& label = parsed.labels[0];
    EXPECT_EQ(label.name + label.font.name, "SPEEDVerdana");
    EXPECT_EQ(label.left + label.top + label.width + label.font.size, 72);
    EXPECT_TRUE(label.font.bold && !label.font.italic);
    ASSERT_TRUE(parsed.bar);
    EXPECT_TRUE(parsed.bar->font.italic && !parsed.bar->font.bold && parsed.bar->colour == "255");
}

TEST_F(NavigationFiles, LinesThatAreNoneAreToldAndLeftOut) {
    const IsnSkin parsed = Parsed("N,0,480\nB,1,2,3\nB,1,2,0,4,QUIT\nA,9999999999,1,1,1,x\n"
                                  "L,1,1,1,Arial,big,,,VOLUME\nG,KEY\nS\nB,a,b,c,d,e");
    EXPECT_TRUE(parsed.buttons.empty() && parsed.areas.empty() && parsed.labels.empty() &&
                !parsed.bar);
    EXPECT_EQ(complaints, "line 1 cannot be used: N,0,480; line 2 cannot be used: B,1,2,3; "
                          "line 3 cannot be used: B,1,2,0,4,QUIT; "
                          "line 4 cannot be used: A,9999999999,1,1,1,x; "
                          "line 5 cannot be used: L,1,1,1,Arial,big,,,VOLUME; "
                          "3 more lines cannot be used; "
                          "it has no line N with its size: nothing of it can be placed; ");
    std::string many = "N,1,1\n";
    for (int i = 0; i < 5000; ++i)
        many += "B,1,1,1,1,A\nL,1,1,1,f,1,,,A\n";
    EXPECT_EQ(Parsed(many).buttons.size() + Parsed(many).labels.size(), 2 * MostIsnParts);
}

TEST_F(NavigationFiles, TheSkinsOwnIsMeantThenTheCommonOneThenNone) {
    state.CurrentSkinFile = "My.skn";
    isn.Load();
    EXPECT_TRUE(Logged("Current skin does not contain GPS information. Using Default GPS skin"));
    EXPECT_TRUE(Logged(R"(Searching for APP.PATH\COMMON\GPSPICS\DEFAULT.isn)"));
    EXPECT_TRUE(Logged("Could not use default GPS skin.. Default GPS skin missing"));
    app.Write("COMMON/GPSPICS/DEFAULT.isn", "N,1,1\nG,AUDIODESTON,a.jpg\n");
    isn.Load();
    EXPECT_EQ(isn.Picture({.audio = true}, true), app.File("COMMON/GPSPICS/a.jpg"));
    app.Write("skins/My/GPSMain.isn", "N,2,2\nG,NOAUDIOEXTOFF,..\\..\\b.jpg\n");
    const std::string own = app.Write("skins/My/b.jpg", "");
    isn.Load();
    EXPECT_EQ(isn.data().width, 2);
    EXPECT_EQ(isn.Picture({.external = true}, false), own);
    EXPECT_EQ(isn.Picture({.audio = true}, true), "");
    app.Write("skins/My/GPSMain.isn", std::string(LongestIsn + 1, 'B'));
    isn.Load();
    EXPECT_TRUE(Logged("GPSMain.isn: it is too large for a GPS skin"));
    EXPECT_EQ(isn.data().width, 0);
}

TEST_F(NavigationFiles, PlacesAreAddedInOneStepAndFoundAgain) {
    EXPECT_FALSE(places.AnySaved());
    EXPECT_EQ(places.Append({"Home|\n1", "Town", "High Street", "12", "State"}), "");
    app.Write("gps.lst", app.Read("gps.lst") + "\r\nforeign\nOld|City|Stra\xDF"
                                               "e|3");
    EXPECT_EQ(places.Append({"Work", "A", "B", "C", ""}), "");
    EXPECT_EQ(app.Read("gps.lst"), "Home  1|Town|High Street|12|State\r\n\r\nforeign\n"
                                   "Old|City|Stra\xDF"
                                   "e|3\r\nWork|A|B|C|\r\n");
    EXPECT_EQ(Texts(), (std::vector<std::string>{
                           "Home  1 - Town High Street 12 > Town|High Street|12",
                           "Old - City Straße 3 > City|Straße|3", "Work - A B C > A|B|C"}));
    EXPECT_EQ(LinesLogged("gps.lst: 1 lines are no places"), 1);
}

TEST_F(NavigationFiles, AForeignListOfPlacesIsNeverOverwritten) {
    const std::string huge(SavedPlaces::LongestFile + 1, 'x');
    app.Write("gps.lst", huge);
    EXPECT_TRUE(places.Read().empty());
    EXPECT_TRUE(Logged("gps.lst is too large for a list of places"));
    EXPECT_EQ(places.Append({"a", "b", "c", "d", "e"}), "gps.lst is full");
    EXPECT_EQ(app.Read("gps.lst"), huge);
    app.Write("gps.lst", std::string("\0a|b|c|d\n||||\n", 14));
    EXPECT_EQ(Texts(), std::vector<std::string>{" -    > ||"});
}

} // namespace vk::test
