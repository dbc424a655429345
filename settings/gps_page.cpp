#include "settings/gps_page.h"

#include "hosting/command_line.h"
#include "navigation/engine/map_file.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "settings/file_kinds.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace vk {

namespace {

enum Module : std::int16_t { NoGPS = 0, Internal = 1, External = 2 };
constexpr std::string_view DrivePrefix = "log:"; // of the receiver's setting

Row Named(Row row, const char* name, int width, std::function<bool()> usable = {}) {
    row.name = name;
    row.width = width;
    row.usable = std::move(usable);
    return row;
}

/// The page's state: what is chosen and not written yet.
class GPSChoice {
  public:
    explicit GPSChoice(GPSPageNeeds needs) : n_(std::move(needs)), store_(n_.base.settings) {}

    void Enter() {
        const Settings& now = store_.values;
        module_ = now.GPSModule;
        threeD_ = now.Use3Dmaps;
        params_ = now.ExtGPSexeParams;
    }
    void Leave() {
        store_.Write({{setting::GPSModule, module_},
                      {setting::Use3Dmaps, threeD_},
                      {setting::ExtGPSexeParams, params_}});
    }

    std::vector<Row> ModuleRows() {
        const auto option = [this](const char* caption, std::int16_t module, const char* name) {
            return Changes(Named(SwitchRow(
                                     caption, [this, module] { module_ = module; },
                                     [this, module] { return module_ == module; }),
                                 name, Row::Whole),
                           setting::GPSModule);
        };
        std::vector<Row> rows = {
            option("No GPS", NoGPS, "opGPSnone"),
            option("Use External GPS Application (MapMonkey, Destinator 3, Routis, Iguidance...",
                   External, "opGPSExt"),
            option("Use Internal Destinator 2 GPS", Internal, "opGPSDest"),
            Named(ProgressRow([this] { return Engine(); }), "lblDetected", Row::Whole)};
        rows.front().sheet = "GPS";
        return rows;
    }
    std::vector<Row> MapRows() {
        const auto dimensions = [this](const char* caption, bool threeD, const char* name) {
            return Changes(Named(SwitchRow(
                                     caption, [this, threeD] { threeD_ = threeD; },
                                     [this, threeD] { return threeD_ == threeD; }),
                                 name, Row::Half, WithModule(Internal)),
                           setting::Use3Dmaps);
        };
        std::vector<Row> rows = {
            dimensions("2D Maps", false, "OP2DMaps"),
            dimensions("3D Maps", true, "OP3DMaps"),
            MapRow(),
            Choice(setting::GPSOrientation, {{"-1", "ahead is up"}, {"0", "north is up"}}),
            Choice(setting::GPSAutoZoom, {{"1", "follows the speed"}, {"0", "as you set it"}}),
            Choice(setting::GPSProfile,
                   {{"car", "the fastest"}, {"car_shortest", "the shortest"}})};
        rows.front().sheet = "Map";
        rows.insert(rows.end(), n_.mapRows.begin(), n_.mapRows.end());
        return rows;
    }
    std::vector<Row> ReceiverRows() {
        std::vector<Row> rows = {
            ChoiceRow(store_, setting::GPSReceiver, [this] { return Receivers(); }), DriveRow(),
            TextRow(store_, n_.base.dialogs, setting::GPSSerial)};
        rows.front().sheet = "Receiver";
        rows.front().width = Row::Whole; // names of devices are long
        return rows;
    }
    std::vector<Row> ProgramRows() {
        const auto external = WithModule(External);
        Row bare = ToggleRow(store_, setting::hideGPSTitleBar);
        bare.text = [this] {
            return OnOff("Hide Application's Title Bar (may cause compatibility issues)",
                         store_.values.hideGPSTitleBar);
        };
        Row params = {.text = [this] { return "Parameters: " + params_; },
                      .use = [this] { AskParams(); },
                      .changes = {&setting::ExtGPSexeParams}};
        std::vector<Row> rows = {
            Named({.text = [this] { return "Program: " + store_.values.EXTGPSexeName; },
                   .use = [this] { BrowseProgram(); },
                   .changes = {&setting::EXTGPSexeName}},
                  "cmdBrowseGPSExe", Row::Whole, external),
            Named(std::move(params), "txGPSParams", Row::Half, external),
            Named(ButtonRow("Clear", [this] { params_.clear(); }), "cmdClear", Row::Half, external),
            Named(std::move(bare), "ckHideTitleBar", Row::Whole, external)};
        rows.front().sheet = "Program";
        return rows;
    }

  private:
    std::function<bool()> WithModule(std::int16_t module) {
        return [this, module] { return module_ == module; };
    }
    std::string Engine() const {
        const std::string version = n_.engine();
        return version.empty() ? "Destinator: not found"
                               : "Destinator Version: " + version + "\nDetected";
    }
    // What is set stays one of them, a port that is not plugged in just now too.
    std::vector<Option> Receivers() const {
        std::vector<Option> all = {{"", "None"}, {"gpsd", "gpsd"}};
        for (const ListedSerialPort& port : n_.serialPorts())
            if (!port.path.empty()) all.emplace_back(port.path, port.name);
        const std::string now = store_.Get(setting::GPSReceiver);
        const bool known = std::ranges::find(all, now, &Option::first) != all.end();
        if (!known) all.emplace_back(now, Drive().empty() ? now : "Recorded drive");
        return all;
    }
    Row Choice(const Setting<std::string>& setting, std::vector<Option> options) {
        Row row = ChoiceRow(store_, setting, [options = std::move(options)] { return options; });
        row.usable = WithModule(Internal);
        return row;
    }
    Row FileRow(const Setting<std::string>& setting, std::function<std::string()> text,
                std::function<void()> use) {
        return {.text = std::move(text),
                .use = std::move(use),
                .name = setting.name,
                .changes = {&setting}};
    }
    Row MapRow() {
        return FileRow(
            setting::GPSMap, [this] { return "Map: " + FileNameOf(store_.Get(setting::GPSMap)); },
            [this] { ChooseMap(); });
    }
    Row DriveRow() {
        return FileRow(
            setting::GPSReceiver, [this] { return "Recorded drive: " + FileNameOf(Drive()); },
            [this] { ChooseDrive(); });
    }
    /// "" when the sentences come from elsewhere.
    std::string Drive() const {
        const std::string now = store_.Get(setting::GPSReceiver);
        return now.starts_with(DrivePrefix) ? now.substr(DrivePrefix.size()) : "";
    }
    void ChooseMap() {
        const std::string now = store_.Get(setting::GPSMap);
        const std::string file =
            n_.base.dialogs.ChooseFile({.caption = "Map of the navigation engine",
                                        .start = now.empty() ? store_.StateDir() : FolderOf(now),
                                        .accepts = EndsIn("bin")});
        if (file.empty()) return;
        if (IsMapFile(file))
            store_.Set(setting::GPSMap, file);
        else
            n_.base.dialogs.ShowMessage(ToUtf8(FileNameOf(file)) +
                                        " is no map of the navigation engine");
    }
    void ChooseDrive() {
        const std::string file =
            n_.base.dialogs.ChooseFile({.caption = "Recorded drive (NMEA sentences)",
                                        .start = FolderOf(Drive()),
                                        .accepts = EndsIn("nmea nma gps log txt")});
        if (!file.empty()) store_.Set(setting::GPSReceiver, std::string(DrivePrefix) + file);
    }
    // What the machine offers stands beside the files; its arguments become the parameters.
    void BrowseProgram() {
        FileChoice choice{.caption = "Navigation program",
                          .start = FolderOf(store_.values.EXTGPSexeName),
                          .accepts = IsProgramFile,
                          .offersCaption = "Programs of this machine",
                          .offers = {}};
        for (const InstalledProgram& program : n_.installed())
            choice.offers.push_back(
                {program.name, CommandLine{program.program, program.arguments}.Text()});
        const std::string chosen = n_.base.dialogs.ChooseFile(choice);
        if (chosen.empty()) return;
        const CommandLine line = CommandLine::Parse(chosen);
        store_.Set(setting::EXTGPSexeName, line.program);
        if (!line.arguments.empty()) params_ = CommandLine{"", line.arguments}.Text().substr(1);
    }
    void AskParams() {
        const auto typed = n_.base.dialogs.InputBox("Parameters of the program", {}, params_);
        if (typed) params_ = *typed;
    }

    GPSPageNeeds n_;
    SettingsStore& store_;
    std::int16_t module_ = NoGPS;
    bool threeD_ = false;
    std::string params_;
};

} // namespace

Page GPSPage(const GPSPageNeeds& needs) {
    const auto page = std::make_shared<GPSChoice>(needs);
    std::vector<Row> rows = page->ModuleRows();
    for (const auto& more : {page->MapRows(), page->ReceiverRows(), page->ProgramRows()})
        rows.insert(rows.end(), more.begin(), more.end());
    return {.name = "settingsGPS",
            .tab = "GPS",
            .rows = std::move(rows),
            .heading = [page] { return std::string("   - GPS Setup - "); },
            .enter = [page] { page->Enter(); },
            .leave = [page] { page->Leave(); }};
}

} // namespace vk
