// Every setting that the system obeys can be changed from the driver's seat.
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
        Make().Start();
        Pass(1000);
        Key(Qt::Key_P);
        Pass(1000);
        for (QWidget* child : host().window.findChildren<QWidget*>())
            if (auto* found = dynamic_cast<settings*>(child)) screen = found;
    }
    settings* screen = nullptr;
};

// What a finger can hit is 12 mm tall and wide on a 7-inch panel.
TEST_F(SettingsPages, AreLargeAndLieOnTheScreenAtEverySize) {
    for (const QSize size : PanelSizes) {
        host().state.ScreenWidth = size.width();
        host().state.ScreenHeight = size.height();
        for (const Page& page : screen->Pages())
            for (int sheet = 0; sheet < 5; ++sheet) {
                host().screens.Show(page.name);
                if (auto* more = screen->findChild<QWidget*>("More"))
                    Tap(*screen, more->geometry().center());
                ExpectChildrenInside(*screen);
                for (const PlateLabel* plate : screen->findChildren<PlateLabel*>()) {
                    if (!plate->isVisible() || !plate->TakesTouches()) continue;
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
