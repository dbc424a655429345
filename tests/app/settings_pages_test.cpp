// Every setting that the system obeys can be changed from the driver's seat.
#include "settings/screen/settings_screen.h"
#include "tests/app/wired_system.h"

#include <gtest/gtest.h>

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
    // kept for older files, nothing asks for them
    &setting::debugCheckAged, &setting::creative, &setting::appname};

TEST(SettingsPages, ChangeEverySettingThatIsObeyed) {
    WiredSystem system;
    system.Make().Start();
    system.Pass(1000);
    system.Key(Qt::Key_P);
    system.Pass(1000);
    const settings* screen = nullptr;
    for (const QWidget* child : system.host().window.findChildren<QWidget*>())
        if (const auto* found = dynamic_cast<const settings*>(child)) screen = found;
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

} // namespace
} // namespace vk::test
