// The control of a video disc, what notices that a medium goes, and what is chosen of a film.
#include "platform/dvd/disc_index.h"
#include "tests/support/core_fixture.h"
#include "tests/support/fake_media_player.h"
#include "tests/support/machine_fakes.h"
#include "tests/support/sound_card.h"
#include "video/disc/disc_place.h"
#include "video/disc/dvd_control.h"
#include "video/disc/medium_watch.h"
#include "video/tracks/track_menu.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>
#include <thread>

namespace vk::test {
namespace {

using testing::ElementsAre;

const std::string Films = VK_TEST_FILMS;

struct DiscTest : testing::Test, CoreFixture {
    DiscTest() {
        app.MakeFolder("cd/video_ts");
        control.directory(app.File("cd"));
        control.onRefused = [this] { ++refused; };
        control.DVDStatusCode = [this](const DvdStatus& status) {
            told.push_back(status.text + " " + std::to_string(status.value));
        };
    }
    SoundCard sound{*this};
    FakeFilm film;
    FakeMediaPlayer disc{film};
    DVD control{{disc, sound.loudness, volumes}};
    std::vector<std::string> told;
    int refused = 0;
};

TEST_F(DiscTest, NotificationsAreToldInTheirWords) {
    for (int code = 250; code < 290; ++code)
        disc.Notify(code, code == 257 ? 9 : code == 258 ? 12 : 4);
    EXPECT_THAT(told, ElementsAre("12 7", "CD_STOPPED 5", "CD_EJECTED 2", "CD_INSERTED 3"));
    told.clear();
    for (int domain = 0; domain < 7; ++domain)
        disc.Notify(257, domain);
    EXPECT_THAT(told,
                ElementsAre("DVDPLAY 1", "DVDPLAY 2", "DVDMENU 3", "DVDSELECTED 4", "DVDSTOP 5"));
    EXPECT_EQ(control.StatusText(), "DVDSTOP");
}

TEST_F(DiscTest, WhatTheDiscForbidsIsNotTried) {
    ASSERT_TRUE(control.Play());
    EXPECT_EQ(film.path, app.File("cd"));
    EXPECT_TRUE(control.DisableScreenSaver());
    for (const int forbidden : {0, ~0}) {
        film.forbidden = forbidden;
        control.nextchapter();
        control.prevchapter();
        control.menu();
        control.uparrow();
        control.downarrow();
        control.leftarrow();
        control.rightarrow();
        control.enterbutton();
        control.ffwd();
        control.rwnd();
        control.pause();
    }
    EXPECT_THAT(film.done, ElementsAre("next", "previous", "menu", "key 0", "key 1", "key 2",
                                       "key 3", "key 4"));
    EXPECT_EQ(refused, 10 + 0) << "it was paused already";
    EXPECT_EQ(control.state(), PlayStateValue::Paused);
    EXPECT_TRUE(control.Play());
    EXPECT_THAT(film.opened, ElementsAre("cd@0")) << "after a pause it only goes on";
    film.position = 95;
    film.forbidden = 0;
    control.ffwd();
    EXPECT_EQ(film.position, 95) << "not beyond the end";
    film.position = 4;
    control.rwnd();
    EXPECT_EQ(film.position, 0);
    control.eject();
    EXPECT_THAT(volumes.ejected, ElementsAre(volumes.DriveOf(app.File("cd"))));
    EXPECT_FALSE(control.DisableScreenSaver());
    control.directory(app.Path());
    EXPECT_FALSE(control.Play()) << "no disc";
}

TEST_F(DiscTest, ATouchPressesTheButtonUnderItInAMenuAlone) {
    control.Play();
    control.setwnd(100, 0, 600, 480);
    disc.Enter(1);
    EXPECT_FALSE(control.touch(400, 240));
    disc.Enter(0);
    EXPECT_TRUE(control.touch(400, 240));
    EXPECT_FALSE(control.touch(50, 240));
    EXPECT_THAT(film.done, ElementsAre("touch 50 50"));
    control.stopdvd();
    EXPECT_FALSE(control.touch(400, 240));
}

TEST_F(DiscTest, ItsLoudnessIsThatOfTheSystem) {
    control.Volume(50);
    EXPECT_EQ(control.Volume(), 50);
    control.incvolume(2);
    control.volumedown();
    EXPECT_EQ(control.Volume(), 52);
    control.Mute(true);
    clock.Advance(10'000);
    EXPECT_TRUE(control.Mute());
    control.Volume(90);
    control.Mute(false);
    clock.Advance(10'000);
    EXPECT_EQ(control.Volume(), 52) << "nothing is louder behind a mute";
}

TEST(DiscPlace, DiscsAreFoldersAndImages) {
    EXPECT_TRUE(IsDisc(Films + "/disc") && IsDisc(Films + "/disc/VIDEO_TS"));
    EXPECT_TRUE(IsDisc(Films + "/disc.iso"));
    EXPECT_FALSE(IsDisc(Films) || IsDisc(Films + "/none.iso") || IsDisc(Films + "/h264.mp4"));
    EXPECT_EQ(DiscOfFile("/a/b.ISO"), "/a/b.ISO");
    EXPECT_EQ(DiscOfFile("/a/video_ts/VIDEO_TS.IFO"), "/a/video_ts");
    EXPECT_EQ(DiscOfFile("/a/b.mpg") + DiscOfFile("/a/b.ifo"), "");
}

TEST(DiscIndexTest, TheDiscSaysWhatItHasAndForbids) {
    for (const char* disc : {"/disc", "/disc.iso", "/disc/VIDEO_TS"}) {
        const DiscIndex index = ReadDiscIndex(Films + disc);
        EXPECT_EQ(index.titles.size(), 2u) << disc;
        EXPECT_TRUE(index.Of(1).rootMenu && index.Of(1).forbidden == 0) << disc;
        EXPECT_EQ(index.Of(0).shape, 4.0 / 3) << disc;
        EXPECT_EQ(index.Of(2).shape, 4.0 / 3) << disc;
    }
    const DiscIndex strict = ReadDiscIndex(Films + "/strict");
    EXPECT_EQ(strict.Of(1).forbidden, uop::NextChapter | uop::Forwards | uop::PauseOn);
    EXPECT_EQ(strict.Of(2).forbidden, 0);
    EXPECT_EQ(strict.Of(1).angles * 10 + strict.Of(2).angles, 21);
    EXPECT_FALSE(ReadDiscIndex(Films + "/plain.iso").AnyMenu());
    for (const char* none : {"", "/none", "/noise.avi"})
        EXPECT_TRUE(ReadDiscIndex(Films + none).AnyMenu()) << "nothing is known, all may be tried";
}

// Whatever bytes an index has been left with, it is read to an end.
TEST(DiscIndexTest, TornAndHostileIndexesAreRead) {
    const TempFolder folder;
    std::filesystem::copy(Films + "/disc/VIDEO_TS", folder.MakeFolder("VIDEO_TS"));
    for (const char* name : {"VIDEO_TS.IFO", "VTS_01_0.IFO"}) {
        const std::string file = folder.File("VIDEO_TS/") + name;
        std::stringstream whole;
        whole << std::ifstream(file).rdbuf();
        const std::string bytes = whole.str();
        for (std::size_t at = 0xC0; at < 0xD4; ++at) {
            std::string wild = bytes;
            wild[at] = '\xFF';
            folder.Write("VIDEO_TS/" + std::string(name), wild);
            EXPECT_LE(ReadDiscIndex(folder.Path()).titles.size(), 99u);
        }
        folder.Write("VIDEO_TS/" + std::string(name), bytes.substr(0, 0xC6));
        EXPECT_LE(ReadDiscIndex(folder.Path()).titles.size(), 2u);
        folder.Write("VIDEO_TS/" + std::string(name), bytes);
    }
}

struct WatchTest : testing::Test, CoreFixture {
    FakeMediumProbe probe;
    int gone = 0;
    MediumWatch watch{{clock, volumes, probe, [this] { ++gone; }}};
};

TEST_F(WatchTest, AMediumThatGoesOrHangsIsNoticedOnceAndInTime) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"deleted", [this] { probe.answer = false; }},
        {"hangs", [this] { probe.answer.reset(); }},
        {"pulled", [this] { volumes.ready.clear(); }}};
    volumes.drives = {{"/stick", DriveType::Removable}};
    for (const auto& [what, goes] : ways) {
        probe.answer = true;
        volumes.ready = {"/stick"};
        gone = 0;
        watch.Watch("/stick/a.mkv");
        clock.Advance(60'000);
        EXPECT_EQ(gone, 0) << what;
        goes();
        clock.Advance(3000);
        EXPECT_EQ(gone, 1) << what;
        clock.Advance(60'000);
        EXPECT_EQ(gone, 1) << what;
    }
    for (const char* path : {"", "http://radio/live"}) {
        watch.Watch(path);
        clock.Advance(60'000);
        EXPECT_EQ(gone, 1);
    }
}

TEST(MediumProbeTest, TheFileSystemAnswers) {
    const auto probe = MakeMediumProbe();
    EXPECT_FALSE(probe->Answer());
    for (const auto& [path, there] : {std::pair{Films + "/disc", true}, {Films + "/none", false}}) {
        probe->Ask(path);
        while (!probe->Answer())
            std::this_thread::yield();
        EXPECT_EQ(*probe->Answer(), there) << path;
    }
}

struct TracksTest : testing::Test, CoreFixture {
    TracksTest() {
        film.tracks[TrackKind::Audio] = {{7, "German"}, {8, "English"}};
        film.tracks[TrackKind::Subtitles] = {{9, "French"}};
        film.track = Untouched;
    }
    void Ask(int row) {
        dialogs.choices = {row};
        menu.Ask(player, other, [] { return true; });
    }
    std::pair<int, int> Chosen() const {
        return {player.Track(TrackKind::Audio), player.Track(TrackKind::Subtitles)};
    }
    const std::map<TrackKind, int> Untouched = {{TrackKind::Audio, 7}, {TrackKind::Subtitles, -1}};
    FakeFilm film;
    FakeMediaPlayer player{film};
    TrackMenu menu{base};
    TrackMenu::Other other;
};

TEST_F(TracksTest, WhatIsChosenOfAFilmIsKeptForIt) {
    menu.Enter("/a film");
    Ask(1);
    Ask(3);
    EXPECT_EQ(dialogs.shown.front(),
              "\u2713 Sound: German |     Sound: English | \u2713 Subtitles: none |     "
              "Subtitles: French | *0");
    EXPECT_EQ(Chosen(), std::pair(8, 9));
    EXPECT_EQ(app.Read(TrackMenu::FileName), "2 1 /a film\n");
    film.track = Untouched;
    menu.Enter("/another");
    menu.Apply(player);
    EXPECT_EQ(Chosen(), std::pair(7, -1));
    menu.Enter("/a film");
    menu.Apply(player);
    EXPECT_EQ(Chosen(), std::pair(8, 9));
    film.track[TrackKind::Audio] = 7; // the disc's own menu chose it
    menu.Apply(player);
    EXPECT_EQ(Chosen(), std::pair(7, 9)) << "it is given once";
    int led = 0;
    other = {"Menu of the disc", [&] { ++led; }};
    Ask(0);
    EXPECT_EQ(led, 1);
    other = {};
    film.tracks = {{TrackKind::Angle, {{1, "1"}, {2, "2"}}}};
    Ask(1);
    EXPECT_EQ(player.Track(TrackKind::Angle), 2);
    EXPECT_EQ(app.Read(TrackMenu::FileName), "2 1/2 /a film\n");
    film.track[TrackKind::Angle] = 1; // as another run begins
    menu.Enter("/a film");
    menu.Apply(player);
    EXPECT_EQ(player.Track(TrackKind::Angle), 2);
    film.tracks.clear();
    Ask(0);
    EXPECT_EQ(dialogs.shown.back(), "This film leaves nothing to choose.");
}

TEST_F(TracksTest, ABrokenFileOfChoicesCostsWhatIsBroken) {
    std::string lines = "2 1 /a film\nx y z\n5\n9999999999 1 /b\n-7 1 /c\n1 0 /d\n";
    for (std::size_t each = 0; each < TrackChoices::Most - 2; ++each)
        lines += "1 0 /film " + std::to_string(each) + "\n";
    const TrackChoices choices(app.Write("choices", lines));
    EXPECT_EQ(choices.Of("/a film"), (TrackChoice{2, 1}));
    EXPECT_EQ(choices.Of("/b"), TrackChoice{});
    EXPECT_FALSE(choices.Keep("/two\nlines", {1, 1}));
    EXPECT_TRUE(choices.Keep("/one more", {1, 0}));
    EXPECT_EQ(choices.Of("/a film"), TrackChoice{}) << "the film longest untouched went";
    EXPECT_EQ(choices.Of("/d"), (TrackChoice{1, 0}));
}

} // namespace
} // namespace vk::test
