#include "tuners/fm/fm_source.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <cmath>

namespace vk {

namespace {

constexpr double LowestFrequency = 87.7; // MHz, where there is no other

bool Same(const Preset& preset, double frequency) {
    const auto number = ParseDecimal(preset.frequency);
    return number && std::abs(*number - frequency) < 0.005;
}

} // namespace

FMSource::FMSource(const SourceContext& context, FMTuner& tuner, SoundRoute& route)
    : TunerSource(context, FMKind), tuner_(tuner), route_(route) {
    tuner_.listener = {.frequency = [this] { UpdateScreen(); },
                       .stereo = [this](bool on) { c_.view.ShowBitRate(on ? "Stereo" : ""); }};
}

FMSource::~FMSource() {
    tuner_.listener = {};
}

bool FMSource::CanPlay() {
    if (!tuner_.Name().empty()) return true;
    c_.clockLine.ShowProblem(NoRadio);
    return false;
}

double FMSource::SavedFrequency() {
    const Settings& s = c_.base.settings.values;
    const double saved = c_.base.settings.Get(setting::currentfreq);
    if (saved >= s.minfreq && saved <= s.maxfreq) return saved;
    c_.base.settings.Set(setting::currentfreq, LowestFrequency);
    return LowestFrequency;
}

Waited FMSource::Start() {
    pictured_ = 0;
    if (!tuner_.TurnOn(SavedFrequency())) return Waited::TimedOut;
    const std::string& capture = c_.base.settings.values.capture;
    if (!capture.empty()) route_.Start(capture);
    return Waited::Done;
}

bool FMSource::PowerDown() {
    route_.Stop();
    if (!tuner_.On()) return true;
    tuner_.TurnOff();
    Save();
    return true;
}

void FMSource::Save() {
    if (tuner_.Frequency() > 0) c_.base.settings.Set(setting::currentfreq, tuner_.Frequency());
}

void FMSource::LoadRows() {
    TrapAndLog(c_.base.report, "Error occured in Playmp3.LoadPlaylist ",
               [&] { presets_ = ReadPresetFile(c_.base.settings.File(PresetsName)); });
    std::vector<Track> rows;
    for (const Preset& preset : presets_)
        rows.push_back({.path = preset.frequency,
                        .artist = preset.label.empty() ? preset.frequency : preset.label,
                        .title = preset.label.empty() ? "" : preset.frequency,
                        .tagged = true,
                        .station = true});
    c_.rows.LoadStations(std::move(rows), 0);
    UpdateScreen();
}

const Preset* FMSource::Tuned() const {
    const auto at = std::ranges::find_if(
        presets_, [&](const Preset& preset) { return Same(preset, tuner_.Frequency()); });
    return at == presets_.end() ? nullptr : &*at;
}

std::string FMSource::Station() const {
    return "FM " + FrequencyText(tuner_.Frequency()) + " MHz";
}

void FMSource::UpdateScreen() {
    const Preset* tuned = Tuned();
    c_.view.ShowArtist(Station());
    c_.view.ShowTitle(tuned ? tuned->label : "");
    c_.rows.Select(tuned ? static_cast<std::int32_t>(tuned - presets_.data()) : -1);
    c_.view.ReDrawList();
}

// Not at each step of a seek.
void FMSource::EverySecond() {
    if (pictured_ == tuner_.Frequency() || tuner_.State() == SeekUp || tuner_.State() == SeekDown)
        return;
    pictured_ = tuner_.Frequency();
    const std::string picture = Picture();
    picture.empty() ? c_.cover.Hide() : c_.cover.ShowPicture(picture);
}

// By the preset's name, else by the frequency.
std::string FMSource::Picture() const {
    const std::string folder = JoinPath(JoinPath(c_.base.settings.AppDir(), "COMMON"), "FMPICS");
    const Preset* tuned = Tuned();
    for (const std::string& name :
         {tuned ? tuned->label : std::string(), FrequencyText(tuner_.Frequency())})
        for (const char* extension : {".jpg", ".gif", ".png", ".bmp"})
            if (std::string file = JoinPath(folder, name + extension);
                !name.empty() && name.find('/') == std::string::npos && FileExists(file))
                return file;
    return {};
}

void FMSource::runok() {
    const auto selected = static_cast<std::size_t>(c_.rows.Selected());
    if (selected >= presets_.size()) return;
    if (const auto frequency = ParseDecimal(presets_[selected].frequency)) tuner_.Tune(*frequency);
}

// A short touch right after a station was found goes on by hand.
void FMSource::ShortPress(bool ahead) {
    if (tuner_.State() == SeekHolds) return ahead ? DoFF() : DoRW();
    ahead ? MoveAhead() : MoveBack();
}

void FMSource::Held(bool ahead) {
    ahead ? DoFF() : DoRW();
    tuner_.Hold();
}

Favorite FMSource::SelectedFavorite() {
    return FMFavorite(FrequencyText(tuner_.Frequency()));
}

NowPlaying FMSource::Now() {
    const Preset* tuned = Tuned();
    return {.title = tuned ? tuned->label : "", .artist = Station(), .playing = tuner_.On()};
}

} // namespace vk
