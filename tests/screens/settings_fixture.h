// The settings screen on fakes, with all its pages.
#pragma once

#include "settings/screen/settings_screen.h"
#include "tests/settings/shell_fixture.h"
#include "tests/support/widgets.h"

#include <memory>

namespace vk::test {

struct SettingsFixture : ShellFixture {
    SettingsFixture() {
        SetUpApp();
        app.Write("kb.ini", "[keyboard]\nmute=77\n");
        app.Write("keys.ini", RemoteKeys());
        start->Form_Load();
        host.resize(800, 480);
        MakeScreen();
        host.show();
        screens.Show("settings");
    }
    void MakeScreen() {
        screen = std::make_unique<vk::settings>(
            ControlContext{state, settings.values, skin, pictures, clock, pump, commands},
            ShellNeeds(),
            RemoteLearning::Needs{base, beeper, remoteKeys, [] { return true; },
                                  [] { return true; }, [](bool) {}, [](float) {},
                                  [] { return SerialList(); }},
            std::vector<Page>{}, &host);
        screen->AddTo(screens);
    }
    // Every action has its own name for a code.
    static std::string RemoteKeys() {
        std::string text = "[remote_keys]\n";
        for (const ActionNames& names : Actions)
            text += std::string(names.remote) + "=" + names.remote + "\n";
        return text;
    }
    bool Press(const std::string& key) { return screens.Current()->Form_KeyDown(key); }
    bool Send(const std::string& code, bool held = false) {
        return screens.Current()->DoAction(InputCode(code, remoteKeys, held));
    }
    QWidget* Find(const char* name) const { return host.findChild<QWidget*>(name); }
    void TapOn(const char* name) {
        const QWidget* plate = Find(name);
        ASSERT_NE(plate, nullptr) << name;
        Tap(host, plate->mapTo(&host, plate->rect().center()));
    }

    PictureCache pictures{skin};
    QWidget host;
    SilentBeeper beeper;
    std::unique_ptr<vk::settings> screen;
};

} // namespace vk::test
