// Every setting that the system obeys can be changed from the driver's seat.
#include "input/button_keys.h"
#include "settings/screen/settings_screen.h"
#include "tests/app/wired_system.h"
#include "tests/support/widgets.h"

#include <gtest/gtest.h>

#include <deque>
#include <set>
#include <string>
#include <vector>

namespace vk::test {
namespace {

std::string NameOf(const SettingRow& row) {
    return std::string(row.section) + ", " + row.Key();
}

// What the system keeps for itself, or what is set where it is used: by a button of a screen.
const std::vector<const SettingRow*> Bookkeeping = {
    &setting::Version, &setting::CurrentForm, &setting::CurrentDTSkin, &setting::AutoPlayByte,
    &setting::Setup, &setting::CurrentSelectID, &setting::BrowseHistory, &setting::ButtonsTold,
    &setting::LastPlayMode, &setting::shuffle, &setting::CurrentTrack, &setting::currentplaylist,
    &setting::AudioVolumeSerial, &setting::CurrentPosition, &setting::AudioVolume,
    &setting::SelectedMovie, &setting::VideoVolumeSerial, &setting::VideoPosition,
    &setting::CurrentMovie, &setting::CurrentTitle, &setting::PlayDVD, &setting::VideoVolume,
    &setting::currentfreq, &setting::port, &setting::portname, &setting::CurrentChannel,
    &setting::XMBrowseHistory, &setting::PresetList, &setting::ListTitle, &setting::learn,
    &setting::PWR,
    // how the map was left; its speech is off, which alone has units
    &setting::GPSZoom, &setting::GPSFollow, &setting::GPSUnits,
    // kept for older files, nothing asks for them
    &setting::debugCheckAged, &setting::creative, &setting::appname};

/// The settings in front.
struct SettingsPages : testing::Test, WiredSystem {
    SettingsPages() {
        dir.Write("skins/Torque.skn",
                  dir.Read("skins/Torque.skn") +
                      "[FONTS]\nListtextfontname=DejaVu Sans\nListtextfontsize=22\n");
        Make().Start();
        Pass(1000);
        Key(Qt::Key_P);
        Pass(1000);
        for (QWidget* child : host().window.findChildren<QWidget*>())
            if (auto* found = dynamic_cast<settings*>(child)) screen = found;
    }
    settings* screen = nullptr;
};

// What a finger can hit is 12 mm tall and wide on a 7-inch panel. A text that does not fit is
// smaller than these.
TEST_F(SettingsPages, AreLargeAndLieOnTheScreenAtEverySize) {
    const std::string path = "/media/stick/My music/" + std::string(60, 'n') + "/and more";
    for (const auto* setting : {&setting::MediaDir, &setting::PlaylistDir, &setting::SyncSource,
                                &setting::SyncDest, &setting::EXTGPSexeName, &setting::GPSReceiver,
                                &setting::capture, &setting::lircsocket, &setting::accSenseLine})
        host().settings.Set(*setting, path);
    for (const QSize size : PanelSizes) {
        host().state.ScreenWidth = size.width();
        host().state.ScreenHeight = size.height();
        for (const Page& page : screen->Pages())
            for (int sheet = 0; sheet < 5; ++sheet) {
                host().screens.Show(page.name);
                if (auto* more = screen->findChild<QWidget*>("More"))
                    Tap(*screen, more->geometry().center());
                ExpectChildrenInside(*screen);
                for (const QWidget* child : screen->findChildren<QWidget*>()) {
                    const auto* plate = dynamic_cast<const PlateLabel*>(child);
                    if (!plate || !plate->isVisible()) continue;
                    EXPECT_TRUE(plate->TextSize() == 0 || // of the log
                                plate->TextSize() >= size.height() / 32)
                        << page.name << plate->Text();
                    if (!plate->TakesTouches()) continue;
                    EXPECT_GE(std::min(plate->width(), plate->height()), 63) << page.name;
                }
            }
    }
}

TEST_F(SettingsPages, ChangeEverySettingThatIsObeyed) {
    ASSERT_NE(screen, nullptr);
    std::set<std::string> changed, kept;
    for (const SettingRow* row : Bookkeeping)
        kept.insert(NameOf(*row));
    for (const Page& page : screen->Pages())
        for (const Row& row : page.rows)
            for (const SettingRow* setting : row.changes)
                changed.insert(NameOf(*setting));
    ForEachSetting([&](const SettingRow& row) {
        EXPECT_TRUE(changed.contains(NameOf(row)) || kept.contains(NameOf(row))) << NameOf(row);
    });
}

// With nothing on the menu that tells of them.
TEST(CleanMenu, LeadsToTheSettingsAndBackByThreeKeysAndByTouchAlone) {
    WiredSystem system;
    system.Make().Start();
    Host& host = system.host();
    host.settings.Write({{setting::CleanMenu, true}, {setting::ShowClock, false}});
    const auto there = [&](const char* where) {
        system.Pass(1000); // a new screen is deaf at first
        EXPECT_EQ(system.Front(), where) << host.state.ScreenWidth;
    };
    const auto keys = [&](std::initializer_list<int> pressed) {
        for (const int key : pressed)
            system.Key(key);
    };
    there(HomeScreen);
    for (const QSize size : {QSize(640, 480), {800, 480}, {1024, 768}}) {
        host.state.ScreenWidth = size.width();
        host.state.ScreenHeight = size.height();
        host.screens.LayOut();
        for (const std::initializer_list<int> back :
             {std::initializer_list<int>{Qt::Key_Up, Qt::Key_Up, Qt::Key_Return}, // Done
              {Qt::Key_Escape}}) {
            system.Key(Qt::Key_Return, ButtonKeys::HoldMs);
            keys({Qt::Key_Up, Qt::Key_Return});
            there("settings");
            keys(back);
            there(HomeScreen);
        }
        Tap(host.window, {1, size.height() - 1});
        there("settings");
        for (const QWidget* done : host.window.findChildren<QWidget*>("donebutton"))
            if (done->isVisible())
                Tap(host.window, done->mapTo(&host.window, done->rect().center()));
        there(HomeScreen);
    }
    EXPECT_EQ(system.exits, 0);
}

TEST(FirstRun, OffersAStickThatIsPluggedInMeanwhile) {
    WiredSystem system;
    system.WriteSettings("false");
    const std::string stick = system.dir.MakeFolder("stick");
    system.dir.Write("stick/Dora - Four.mp3", "no tag");
    constexpr int Look = 0, Plug = -1;
    // The welcome; the stick's row and its folder; the offered folder for lists, two messages.
    std::deque<int> steps = {Qt::Key_Return, Look,           Plug,           Look,
                             Qt::Key_Return, Qt::Key_Up,     Qt::Key_Up,     Qt::Key_Up,
                             Qt::Key_Return, Qt::Key_Return, Qt::Key_Return, Qt::Key_Return};
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
        if (steps.empty() || !system.host().dialogs.Active()) return;
        system.clock.Advance(1000);
        const int step = steps.front();
        steps.pop_front();
        if (step > 0) system.Key(step);
        if (step != Plug) return;
        system.volumes.drives = {{stick, DriveType::Removable}};
        system.volumes.ready = {stick};
    });
    user.start(0);
    EXPECT_TRUE(system.Make().Start());
    EXPECT_EQ(system.Front(), HomeScreen);
    EXPECT_EQ(system.host().settings.values.MediaDir, stick);
    EXPECT_EQ(system.host().settings.values.PlaylistDir, stick + "/Playlists");
}

} // namespace
} // namespace vk::test
