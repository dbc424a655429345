#include "settings/tuner_page.h"

#include "library/lists/presets.h"
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <utility>

namespace vk {

namespace {

constexpr const char* PageName = "settingsFMXM";
constexpr int RefreshMs = 200; // while a search or a signal is looked at
constexpr std::array Inputs = {"None", "Line In", "CD Line In", "Microphone", "Main volume"};
constexpr std::array<std::int16_t, 8> Intervals = {60, 80, 100, 120, 140, 160, 200, 250}; // ms
constexpr std::int16_t DefaultInterval = Intervals[4];
constexpr std::array<std::int16_t, 7> Timeouts = {1, 2, 3, 4, 5, 8, 10}; // seconds
constexpr std::int16_t DefaultTimeout = 4;

template<class Values> auto Stepped(const Values& all, std::int64_t now, int step) {
    auto at = std::ranges::find(all, now);
    if (at == all.end()) return all.front();
    const auto count = static_cast<std::ptrdiff_t>(all.size());
    return all[static_cast<std::size_t>((at - all.begin() + step + count) % count)];
}

Row Named(Row row, const char* name, int width = Row::Half) {
    row.name = name;
    row.width = width;
    return row;
}

/// The page's state and what its controls do.
class Tuners {
  public:
    explicit Tuners(const TunerPageNeeds& needs) : n_(needs), store_(needs.base.settings) {}

    std::vector<Row> FMRows() {
        Row enabled = ToggleRow(store_, setting::dlink_enabled);
        enabled.text = [this] { return OnOff("FM tuner", Values().dlink_enabled); };
        enabled.sheet = "FM";
        Row name = ProgressRow([this] { return "D-Link USB FM Tuner\n" + FMName(); });
        Row lowest = StepperRow(store_, setting::minfreq);
        Row highest = StepperRow(store_, setting::maxfreq);
        lowest.sheet = "Band";
        lowest.width = highest.width = Row::Whole;
        // What devices call themselves is long.
        Row capture = ChoiceRow(store_, setting::capture, n_.captureDevices);
        capture.width = Row::Whole;
        return {Named(std::move(enabled), "ckFM_Enabled"),
                Named(std::move(name), "frmFM"),
                InputRow(setting::dlink_audio_input, "cboDLinkInput"),
                Named(StepperRow(store_, setting::frequencyincr), "cmbFreqIncr"),
                std::move(capture),
                std::move(lowest),
                std::move(highest),
                Named(ProgressRow([this] { return Presets(); }), "lstFMPresets", Row::Whole),
                ButtonRow(
                    "Clear All Preset Stations", [this] { ClearPresets(); }, Row::Half,
                    "btnClearFMPresets")};
    }
    std::vector<Row> XMRows() {
        Row enabled = ToggleRow(store_, setting::xmpcr_enabled);
        enabled.text = [this] { return OnOff("XM receiver", Values().xmpcr_enabled); };
        enabled.use = [this] { EnableXM(!Values().xmpcr_enabled); };
        enabled.sheet = "XM";
        Row signal = ProgressRow([this] { return Signal(); }, [this] { return Percent(); });
        const auto text = [this](std::string XMPageTexts::*label) {
            return ProgressRow([this, label] { return n_.xm.page.*label; });
        };
        return {
            Named(std::move(enabled), "ckXM_Enabled"),
            Named(ProgressRow([this] { return n_.xm.page.lbXMStatus + XMName(); }), "lbXMStatus"),
            Named(text(&XMPageTexts::lblXMID), "lblXMID", Row::Third),
            Named(text(&XMPageTexts::lbXMPort), "lbXMPort", Row::Third),
            Named(std::move(signal), "pbXMSignal", Row::Third),
            InputRow(setting::xmpcr_audio_input, "cboXMInput"),
            IntervalRow(),
            TimeoutRow(),
            Named(ToggleRow(store_, setting::hideXMChanNo), "ckHideChanNo")};
    }
    std::vector<Row> ButtonRows() {
        Row caption = ProgressRow([] { return std::string("Main Menu Button Function"); });
        caption.sheet = "Button";
        return {Named(std::move(caption), "frmMainMenuBtn", Row::Whole),
                RadioRow("D-Link USB FM Radio", 0, "opFM"),
                RadioRow("XM-PCR Satellite Radio", 1, "opXM"),
                Named(ToggleRow(store_, setting::XMDataLogging), "ckXMDataLogging"),
                ToggleRow(store_, setting::showXMTime)};
    }

    void Enter() {
        XMPageTexts& page = n_.xm.page;
        name_ = n_.fm.Name();
        n_.xm.searchEnded = [this](bool found) { SearchEnded(found); };
        if (n_.xm.Searching()) return;
        if (n_.xm.On()) {
            page.ShowId(n_.xm.State().receiverId);
            page.ShowPort(std::to_string(n_.xm.State().comPort));
            page.ShowStatus("Found XMPCR");
        } else if (n_.xm.Dead()) {
            page.ShowStatus("XMPCR does not answer: turn it off and on");
        } else {
            Disabled();
        }
    }
    void Leave() { n_.xm.searchEnded = {}; }

  private:
    const Settings& Values() const { return store_.values; }
    std::string FMName() const { return name_.empty() ? "not found" : name_; }
    std::string XMName() const {
        return n_.xm.On() ? "\n" + store_.Get(setting::portname) : std::string();
    }
    void Disabled() {
        n_.xm.page.ShowStatus("XMPCR Disabled");
        n_.xm.page.ShowId("");
        n_.xm.page.ShowPort("");
    }
    // An enabling later on begins with a full search.
    void ForgetXM() {
        store_.Write({{setting::xmpcr_enabled, false}, {setting::portname, ""}});
        store_.Write("xmpcr_tuner", "port", "");
    }
    void EnableXM(bool on) {
        if (on) {
            store_.Set(setting::xmpcr_enabled, true);
            return n_.xm.Form_Load();
        }
        ForgetXM();
        n_.xm.PowerDown();
        Disabled();
    }
    void SearchEnded(bool found) {
        if (!found && Values().xmpcr_enabled && n_.base.screens.CurrentForm == PageName) ForgetXM();
    }
    std::string Signal() const {
        const XMState& state = n_.xm.State();
        if (!n_.xm.On()) return "";
        if (state.signalStatus < 1)
            return state.antennaStatus != 0 ? "No Signal" : "Antenna Disconnected";
        return "Signal Strength: " + std::to_string(state.signalPercent) + "%";
    }
    int Percent() const { return n_.xm.On() ? n_.xm.State().signalPercent : -1; }

    Row InputRow(const Setting<std::int32_t>& setting, const char* name) {
        const auto value = [this, &setting] { return Values().*setting.kept; };
        return Changes(Named(StepRow(
                                 [value] {
                                     const auto at = static_cast<std::size_t>(value());
                                     return std::string("Sound comes by: ") +
                                            (at < Inputs.size() ? Inputs[at] : Inputs[0]);
                                 },
                                 [this, &setting, value](int step) {
                                     constexpr auto count =
                                         static_cast<std::int32_t>(Inputs.size());
                                     store_.Set(setting, (value() + step + count) % count);
                                 },
                                 "<", ">"),
                             name),
                       setting);
    }
    std::int16_t Interval() {
        const std::int16_t kept = store_.Get(setting::commandInterval);
        return kept > 0 ? kept : DefaultInterval;
    }
    Row IntervalRow() {
        return Changes(
            Named(StepRow(
                      [this] { return "Command interval: " + std::to_string(Interval()) + " ms"; },
                      [this](int step) {
                          store_.Set(setting::commandInterval,
                                     Stepped(Intervals, Interval(), step));
                      },
                      "<", ">"),
                  "cboCmdInterval"),
            setting::commandInterval);
    }
    std::int16_t Timeout() {
        const std::int16_t kept = store_.Get(setting::timeout);
        return kept > 0 ? static_cast<std::int16_t>(kept / 1000) : DefaultTimeout;
    }
    Row TimeoutRow() {
        return Changes(
            Named(StepRow([this] { return "Timeout: " + std::to_string(Timeout()) + " s"; },
                          [this](int step) {
                              const int seconds = Stepped(Timeouts, Timeout(), step);
                              store_.Set(setting::timeout,
                                         static_cast<std::int16_t>(seconds * 1000));
                          },
                          "<", ">"),
                  "cboTimeout"),
            setting::timeout);
    }
    Row RadioRow(const char* caption, std::int32_t type, const char* name) {
        Row row = SwitchRow(
            caption,
            [this, type] {
                store_.Set(setting::FirstRadioType, type);
                n_.base.state.FirstRadioType = type;
            },
            [this, type] { return n_.base.state.FirstRadioType == type; });
        row.usable = [this] { return Values().dlink_enabled && Values().xmpcr_enabled; };
        return Changes(Named(std::move(row), name), setting::FirstRadioType);
    }
    std::string Presets() const {
        std::string text;
        try {
            for (const Preset& preset : ReadPresetFile(store_.File(PresetsName)))
                text += (text.empty() ? "" : ", ") + preset.frequency + " " + preset.label;
        } catch (const std::exception& error) {
            text = error.what();
        }
        return text.empty() ? "No preset stations" : text;
    }
    void ClearPresets() {
        const std::string file = store_.File(PresetsName);
        if (!FileExists(file) || !n_.base.dialogs.AskNoYes("Clear all preset stations?")) return;
        if (!DeleteFileAt(file)) n_.base.report.Log("could not delete presets.lst");
    }

    TunerPageNeeds n_;
    SettingsStore& store_;
    std::string name_; ///< of the FM tuner
};

} // namespace

Page TunerPage(const TunerPageNeeds& needs) {
    const auto page = std::make_shared<Tuners>(needs);
    std::vector<Row> rows = page->FMRows();
    for (const auto& more : {page->XMRows(), page->ButtonRows()})
        rows.insert(rows.end(), more.begin(), more.end());
    return {.name = PageName,
            .tab = "FM / XM",
            .rows = std::move(rows),
            .heading = [page] { return std::string("   - FM / XM Radio Setup -"); },
            .enter = [page] { page->Enter(); },
            .leave = [page] { page->Leave(); },
            .refreshMs = RefreshMs};
}

} // namespace vk
