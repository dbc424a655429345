#include "tests/browser/browser_fixture.h"
#include "tests/support/action_table.h"

namespace vk::test {
namespace {

using BrowserKeysTest = BrowserTest;

TEST_F(BrowserKeysTest, EveryActionReachesItsOperationAndNoOther) {
    RecordingScreen gps;
    core.screens.Add("frmGPS", gps);
    for (char folder = 'a'; folder <= 'z'; ++folder)
        disk.Write("media/m/" + std::string(1, folder) + "/x.mp3", "x");
    core.settings.values.dlink_enabled = true;
    UseCatalogue();
    audio.PlayMode = PlayAudio;
    const std::string start = media + "/m";
    const auto effect = [&] {
        std::string text = view.title == " m" ? "" : view.title;
        if (view.title == " m" && list.iSelected != 10)
            text += "row " + std::to_string(list.iSelected);
        for (const auto& [name, screen] :
             {std::pair<const char*, RecordingScreen*>{"player.", &player},
              {"menu.", &menu},
              {"gps.", &gps}}) {
            for (const std::string& call : screen->calls)
                if (call != "Hide") text += name + call;
            screen->calls.clear();
        }
        if (view.keyboard) text += " keyboard";
        if (view.loading.starts_with("Volume")) text += view.loading;
        sound.mixer.Level(MixerLine::Master) = 500;
        core.clock.Advance(10'000);
        Enter(start);
        list.SelectItem(10);
        player.calls.clear();
        menu.calls.clear();
        gps.calls.clear();
        return text;
    };
    effect();
    ExpectTable(browser(), keys,
                {{Action::ok, " j"},
                 {Action::up, "row 9"},
                 {Action::down, "row 11"},
                 {Action::pageup, "row 0"},
                 {Action::pagedown, "row 24"},
                 {Action::back, "Browse By Directory "},
                 {Action::forward, "Recurse Folder: j"},
                 {Action::quit, "menu.ReShow"},
                 {Action::SWMP, "player.ReDisplay"},
                 {Action::vup, "Volume : 52%"},
                 {Action::Vdown, "Volume : 48%"},
                 {Action::Search, "Text Search Options "},
                 {Action::gps, "gps.ReShow"},
                 {Action::MP3toRadio, "player.ReShow"},
                 {Action::mute, "player.DoAction"},
                 {Action::shuffle, "player.DoAction"},
                 {Action::play, "player.DoAction"},
                 {Action::pause, "player.DoAction"},
                 {Action::FF, "player.DoAction"},
                 {Action::REW, "player.DoAction"},
                 {Action::addfav, "player.DoAction"}},
                effect);
}

} // namespace
} // namespace vk::test
