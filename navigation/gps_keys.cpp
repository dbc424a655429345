// The keys of the map's screen, the remote's, its wheel and its touch areas.
#include "navigation/gps_screen.h"

#include <algorithm>

namespace vk {

namespace {

// In the order in which codes of the remote are compared.
constexpr ActionRow<GPSScreen> Rows[] = {
    {Action::FF, &GPSScreen::DoFF},
    {Action::REW, &GPSScreen::DoRW},
    {Action::Search, &GPSScreen::FindRouteNow},
    {Action::up, &GPSScreen::MoveUp},
    {Action::down, &GPSScreen::MoveDown},
    {Action::vup, &GPSScreen::VolUp},
    {Action::Vdown, &GPSScreen::VolDown},
    {Action::back, &GPSScreen::MoveBack},
    {Action::forward, &GPSScreen::MoveAhead},
    {Action::SWMP, &GPSScreen::PopulateGPSList},
    {Action::ok, &GPSScreen::runok},
    {Action::pause, &GPSScreen::DoPause},
    {Action::mute, &GPSScreen::domute},
    {Action::gps, &GPSScreen::doquit},
    {Action::quit, &GPSScreen::doquit},
    {Action::addfav, &GPSScreen::SaveCurrentPosition},
};

// While the list of places is shown.
constexpr ActionRow<ListModel> ListRows[] = {
    {Action::up, &ListModel::MoveUp},     {Action::down, &ListModel::MoveDown},
    {Action::pageup, &ListModel::PageUp}, {Action::pagedown, &ListModel::PageDown},
    {Action::back, &ListModel::PageUp},   {Action::forward, &ListModel::PageDown},
};

struct AreaRow {
    std::string_view name;
    void (GPSScreen::*click)();
};

constexpr AreaRow Areas[] = {{"BACK", &GPSScreen::MoveBack},
                             {"PAUSE", &GPSScreen::DoPause},
                             {"FORWARD", &GPSScreen::MoveAhead},
                             {"MUTE", &GPSScreen::domute},
                             {"GPSLIST", &GPSScreen::PopulateGPSList},
                             {"CANCELROUTE", &GPSScreen::CancelRoute},
                             {"SHOWROUTE", &GPSScreen::ShowRoute},
                             {"ZOOMIN", &GPSScreen::ZoomIn},
                             {"ZOOMOUT", &GPSScreen::ZoomOut},
                             {"SEARCH", &GPSScreen::FindRouteNow},
                             {"ADDFAV", &GPSScreen::SaveCurrentPosition},
                             {"QUIT", &GPSScreen::doquit}};

} // namespace

bool GPSScreen::Form_KeyDown(const std::string& code) {
    return DoAction(InputCode(code, n_.keys));
}

bool GPSScreen::DoAction(const InputCode& code) {
    if (text_.Key(code)) return true;
    if (!listShown_) return RunAction(*this, Rows, code);
    if (RunAction(list_, ListRows, code)) {
        view_.ReDrawList();
        return true;
    }
    if (code.Means(Action::quit)) return ShowList(false), true;
    return RunAction(*this, Rows, code);
}

// A held key must not run through the list of songs.
bool GPSScreen::Repeats(const InputCode& key) const {
    if (text_.IsOpen()) return TextEntry::Repeats(key);
    const bool skips = key.Means(Action::forward) || key.Means(Action::back);
    return (listShown_ || !skips) && GoesOnWhileHeld(key);
}

void GPSScreen::Wheel(int delta) {
    if (delta == 0) return;
    TrapAndLog(base_.report, "There has been an error in frmGPS.MouseHelper ", [&] {
        if (text_.IsOpen()) return text_.Wheel(delta);
        const bool up = delta > 0;
        const bool volume = base_.settings.values.MouseFunction == 1;
        const std::int32_t steps = volume ? base_.settings.values.WheelSteps() : 1;
        for (std::int32_t i = 0; i < steps; ++i)
            volume ? (up ? VolUp() : VolDown()) : Move(up);
    });
}

void GPSScreen::Move(bool up) {
    if (!listShown_) return up ? ZoomIn() : ZoomOut();
    up ? list_.MoveUp() : list_.MoveDown();
    view_.ReDrawList();
}

void GPSScreen::runok() {
    TrapAndLog(base_.report, "There has been an error in frmGPS.RunOK ", [this] {
        if (text_.IsOpen())
            text_.Keyboard().ClickIt();
        else if (listShown_)
            ChoosePlace();
    });
}

void GPSScreen::PressArea(std::string_view name) {
    if (name == "VOLUP") HoldVolume(1);
    if (name == "VOLDOWN") HoldVolume(2);
}

void GPSScreen::ReleaseArea() {
    Timer2_->Stop();
}

void GPSScreen::ClickArea(std::string_view name) {
    const auto row = std::ranges::find(Areas, name, &AreaRow::name);
    if (row != std::end(Areas)) (this->*row->click)();
}

} // namespace vk
