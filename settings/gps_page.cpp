#include "settings/gps_page.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

namespace vk {

namespace {

enum Module : std::int16_t { NoGPS = 0, Internal = 1, External = 2 };

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
            FileRow("Map", setting::GPSMap, ""),
            ChoiceRow(store_, setting::GPSReceiver, [this] { return Receivers(); }),
            FileRow("Recorded drive", setting::GPSReceiver, "log:"),
            TextRow(store_, n_.base.dialogs, setting::GPSSerial)};
        rows.front().sheet = "Map";
        rows.insert(rows.end(), n_.mapRows.begin(), n_.mapRows.end());
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
        if (!known) all.emplace_back(now, now);
        return all;
    }
    Row FileRow(const char* caption, const Setting<std::string>& setting, std::string prefix) {
        const auto value = [this, &setting, prefix] {
            const std::string text = store_.Get(setting);
            return text.starts_with(prefix) ? text.substr(prefix.size()) : "";
        };
        return {.text = [caption, value] { return caption + (": " + FileNameOf(value())); },
                .use =
                    [this, caption, &setting, prefix, value] {
                        if (const auto file = AskFile(caption, value()))
                            store_.Set(setting, prefix + *file);
                    },
                .name = setting.name,
                .changes = {&setting}};
    }
    /// A path that was typed; nothing when that was left, or no file is there.
    std::optional<std::string> AskFile(const std::string& caption, const std::string& now) {
        const auto typed = n_.base.dialogs.InputBox(caption + ", with its folder:", {}, now);
        if (!typed || *typed == now) return std::nullopt;
        if (FileExists(*typed)) return typed;
        n_.base.dialogs.ShowMessage("There is no file " + *typed);
        return std::nullopt;
    }
    void BrowseProgram() {
        if (const auto file = AskFile("Navigation program", store_.values.EXTGPSexeName))
            store_.Set(setting::EXTGPSexeName, *file);
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
    for (const auto& more : {page->MapRows(), page->ProgramRows()})
        rows.insert(rows.end(), more.begin(), more.end());
    return {.name = "settingsGPS",
            .tab = "GPS",
            .rows = std::move(rows),
            .heading = [page] { return std::string("   - GPS Setup - "); },
            .enter = [page] { page->Enter(); },
            .leave = [page] { page->Leave(); }};
}

} // namespace vk
