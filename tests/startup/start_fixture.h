// Start-up wired on fakes, with screens that only tell what was called.
#pragma once

#include "core/file_registry.h"
#include "core/version.h"
#include "library/catalogue/updates.h"
#include "startup/astart.h"
#include "tests/sim/recording_player.h"
#include "tests/sim/recording_programs.h"
#include "tests/support/core_fixture.h"
#include "tests/support/machine_fakes.h"
#include "tests/support/recording_screen.h"

namespace vk::test {

struct ToldLoading : LoadingScreen {
    void Load() override { told.push_back("loading.Load"); }
    void InitProgress(int from, int to) override {
        told.push_back("loading.Init " + std::to_string(from) + " " + std::to_string(to));
    }
    void SetProgress(int) override {}
    void SetProgressToMax() override { told.push_back("loading.Max"); }
    void ClearScreen() override { told.push_back("loading.Clear"); }
    void ReBlit() override {}
    std::vector<std::string> told;
};

struct StartFixture : CoreFixture {
    StartFixture() {
        app.MakeFolder("skins");
        app.Write("skins/Torque.skn", "[Colors]\n");
        app.Write("DB_UPDATE", "");
        registry.SetStringValue(Hive::ClassesRoot, "DB_UPDATE.clsDB", "", app.File("DB_UPDATE"));
        report.unloadAll = [] {};
    }

    std::unique_ptr<astart> Make() {
        const auto server = [this](const std::string& program) {
            told.push_back("server " + program);
            state.DBState = DBStateValue::Offline;
        };
        const auto steps = [this] {
            return std::vector<LoadStep>{{{3, 1}, "", "", [this] { MakeScreen("playmp3"); }},
                                         {{2, 3}, "", "", {}},
                                         {{1, 2}, "", "", [this] { MakeScreen("velkorandum"); }}};
        };
        return std::make_unique<astart>(
            astart::Needs{base,
                          {instance, programs, registry, player, [this] { return metrics; },
                           [](const std::string&) { return std::string(); }},
                          loading,
                          skin,
                          {keys, remoteKeys, extensions},
                          control,
                          {steps, Telling("unload screens"), [this] { updates.Supervise(); },
                           Telling("session ends"), Telling("release")},
                          {[this] { loadSettings(); }, [this] { screens.Remove("settings"); }},
                          {.learnText = [] { return std::string("171"); }},
                          {server, [this] { updates.Open(); }}});
    }
    std::function<void()> Telling(const char* what) {
        return [this, what] { told.push_back(what); };
    }
    /// An application directory that has been through its first run.
    void SetUpApp() {
        const std::string media = app.MakeFolder("media");
        app.Write("settings.ini", "[main]\nVersion=" + std::string(Version) +
                                      "\nSetup=true\nMediaDir=" + media +
                                      "\nPlaylistDir=" + app.MakeFolder("media/lists") +
                                      "\nTime1=8:00:00 AM\nTime2=9:00:00 PM\n");
    }
    /// Makes a screen that tells its calls; its ReShow brings it to the front.
    void MakeScreen(const std::string& name) {
        made[name].onCall = [this, name](const std::string& call) {
            told.push_back(name + "." + call);
            if (call == "ReShow") screens.CurrentForm = name;
        };
        screens.Add(name, made[name]);
        told.push_back("load " + name);
    }
    bool Told(const std::string& what) const { return std::ranges::find(told, what) != told.end(); }

    ToldLoading loading;
    std::vector<std::string>& told = loading.told;
    std::map<std::string, RecordingScreen> made;
    FakeInstance instance;
    RecordingPrograms programs;
    FileRegistry registry{app.File("registry.ini")};
    RecordingPlayer player;
    ScreenMetrics metrics{800, 480, 96, 96};
    SkinStore skin{{state, settings, fonts, dialogs, report, [this] { return metrics.width; }}};
    KeyMap keys;
    RemoteMap remoteKeys;
    MediaExtensions extensions;
    std::unique_ptr<cWinamp> control;
    std::function<void()> loadSettings = [this] { MakeScreen("settings"); };

    ID3 reader{{log, dialogs}, state.DecimalSymbol};
    modDB db{{state, extensions, settings, report, reader}};
    int scans = 0, stops = 0;
    CatalogueUpdates updates{{state, settings, screens, report, db,
                              [this](const ScanRequest&) { ++scans; }, [this] { ++stops; }}};
};

} // namespace vk::test
