#include "navigation/gps_screen.h"

#include "core/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vk {

namespace {

constexpr int SecondMs = 1000;
constexpr int HeldMs = 100;         // between two steps of a held volume button
constexpr int VolumeShownMs = 4000; // since the last change
constexpr int AnswerSeconds = 6;    // an engine has answered by then
constexpr const char* NoAddress = "Could not acquire an address!";
constexpr const char* GPSIcon = "gpsicon.gif"; // `GPSicon`, of a row
// Those that lead here, and how each is gone back to.
constexpr std::array Openers = {"velkorandum", "playlists", "playmp3", "playmovie"};

std::string ErrorIn(const char* operation) {
    return std::string("There has been an error in frmGPS.") + operation + " ";
}

/// The fields of `ReverseGeoCode`.
std::vector<std::string> AddressFields(const std::string& address) {
    auto fields = Split(address, '|');
    fields.resize(4);
    return fields;
}

std::string Spoken(const std::vector<std::string>& a) {
    return a[2] + " " + a[1] + " " + a[0] + " " + a[3];
}

} // namespace

GPSScreen::GPSScreen(const Needs& needs, const Parts& parts)
    : n_(needs), base_(n_.base), view_(parts.view), list_(parts.list), text_(parts.text),
      messages_(view_), music_(view_, n_.audio, n_.transport),
      entry_(text_,
             [this](const std::string& city, const std::string& street, const std::string& number) {
                 CalculateRoute(city, street, number, "Could Not Locate Address");
             }),
      places_(base_.settings.File("gps.lst"), base_.log),
      volume_(n_.loudness, [this](const std::string& level) { ShowVolume(level); }),
      Timer1_(base_.clock.MakeTimer([this] { EverySecond(); })),
      Timer2_(base_.clock.MakeTimer(
          [this] { base_.commands.Run([this] { statusMode_ == 1 ? VolUp() : VolDown(); }); })) {
    n_.map.onChanged = [this] { RefreshMap(); };
    if (!n_.dest) return;
    n_.dest->onEvent = [this](DestEvent event, const std::string& text) { TakeEvent(event, text); };
}

GPSScreen::~GPSScreen() {
    n_.map.onChanged = {};
    n_.map.Window().SetFront(false);
    if (!n_.dest) return;
    n_.dest->onEvent = {};
    n_.dest->DropAnswers();
}

// Coming and going --------------------------------------------------------------------------------

void GPSScreen::ReShow() {
    TrapAndLog(base_.report, ErrorIn("ReShow"), [this] {
        const std::string from = base_.screens.CurrentForm.Text();
        if (std::ranges::find(Openers, from) != Openers.end()) opener_ = from;
        const ScreenOperations* front = base_.screens.Current();
        if (front && !InFront()) front->switchingform();
        Enter();
    });
}

void GPSScreen::Enter() {
    base_.screens.CurrentForm = GPSName;
    music_.Forget();
    music_.Refresh();
    status_ = {};
    statusMode_ = 0;
    ReDrawStatus();
    ShowList(false);
    view_.ShowAtFront();
    base_.screens.HideOthers(GPSName);
    Timer1_->Start(SecondMs);
    PlaceMap();
    n_.map.Window().SetFront(true);
    n_.map.Enter();
    RefreshMap();
}

void GPSScreen::switchingform() {
    text_.Close();
    Timer1_->Stop();
    Timer2_->Stop();
    messages_.Clear();
    ShowList(false);
    n_.map.Window().SetFront(false);
    n_.map.Leave();
}

void GPSScreen::doquit() {
    TrapAndLog(base_.report, ErrorIn("DoQuit"), [this] {
        if (!InFront()) return;
        switchingform();
        GoBack();
    });
}

// What the players play goes on: they are come back to, not entered. The browser is to stand where
// it stood.
void GPSScreen::GoBack() {
    const Screens& screens = base_.screens;
    const bool player = opener_ == "playmp3" || opener_ == "playmovie";
    if (opener_ == "playlists") n_.browser.RestoreHistory = true;
    if (player ? screens.ReDisplay(opener_) : screens.Show(opener_)) return;
    screens.Show(HomeScreen);
}

// What is shown -----------------------------------------------------------------------------------

void GPSScreen::TakeEvent(DestEvent event, const std::string& text) {
    if (InFront() && status_.Take(event, text)) ReDrawStatus();
}

void GPSScreen::ReDrawStatus() {
    if (base_.settings.values.GPSModule == 2) return;
    view_.ShowVolume(statusMode_ != 0);
    if (statusMode_ != 0) return view_.SetLabel(GPSLabel::Volume, n_.loudness.Text());
    view_.SetLabel(GPSLabel::Status, status_.Status());
    view_.SetLabel(GPSLabel::Speed, status_.Speed());
    view_.SetLabel(GPSLabel::Heading, status_.Heading());
}

void GPSScreen::EverySecond() {
    messages_.Tick();
    HideOldVolume();
    if (n_.checkDaylight) n_.checkDaylight();
    if (music_.Refresh()) PlaceMap();
    if (n_.map.EverySecond()) return RefreshMap();
    base_.commands.Run(Commands::When::Queue, [this] { doquit(); });
}

void GPSScreen::PlaceMap() {
    n_.map.Window().Place(view_.MapArea());
}

// What the keyboard asks stands where messages do.
void GPSScreen::CoverMap(bool covered) {
    keyboard_ = covered;
    if (covered) messages_.Clear();
    RefreshMap();
}

void GPSScreen::RefreshMap() {
    const std::string complaint = n_.map.Complaint();
    view_.ShowComplaint(complaint);
    n_.map.Window().Cover(listShown_ || keyboard_ || !complaint.empty());
}

// The volume --------------------------------------------------------------------------------------

void GPSScreen::ShowVolume(const std::string& level) {
    if (!InFront()) return;
    if (statusMode_ == 0) statusMode_ = 1;
    volumeShownMs_ = base_.clock.TickMs();
    view_.ShowVolume(true);
    view_.SetLabel(GPSLabel::Volume, level);
}

void GPSScreen::HideOldVolume() {
    if (statusMode_ == 0 || Timer2_->Enabled() ||
        base_.clock.TickMs() - volumeShownMs_ < VolumeShownMs)
        return;
    statusMode_ = 0;
    view_.ShowVolume(false);
    ReDrawStatus();
}

void GPSScreen::HoldVolume(int mode) {
    statusMode_ = mode;
    mode == 1 ? VolUp() : VolDown();
    Timer2_->Start(HeldMs);
}

// Routes ------------------------------------------------------------------------------------------

void GPSScreen::FindRouteNow() {
    if (text_.IsOpen()) return;
    ShowList(false);
    entry_.FindRouteNow();
}

// Behind another program's map the questions lead nowhere.
void GPSScreen::CalculateRoute(const std::string& city, const std::string& street,
                               const std::string& houseNumber, const char* notFound) {
    if (!n_.dest) return;
    messages_.Say("Creating Route", AnswerSeconds);
    n_.dest->CalculateRouteToAddress(city, street, houseNumber, [=, this](std::int32_t status) {
        if (status == RouteFound) return messages_.Say("Creating Route", MessageBar::ShortSeconds);
        messages_.Say(status == AddressNotFound ? notFound : "Could not complete task");
    });
}

void GPSScreen::CancelRoute() {
    if (!n_.dest) return;
    n_.dest->CancelRoute();
    messages_.Say("Route Cancelled", MessageBar::ShortSeconds);
}

void GPSScreen::ShowRoute() {
    if (n_.dest && !n_.dest->ShowCurrentRoute()) messages_.Say("There is no route");
}

// Saved places ------------------------------------------------------------------------------------

void GPSScreen::SaveCurrentPosition() {
    TrapAndLog(base_.report, ErrorIn("SaveCurrentPosition"), [this] {
        if (text_.IsOpen()) return;
        if (!n_.dest) return messages_.Say(NoAddress);
        n_.dest->ReverseGeoCode([this](const std::string& address) {
            if (!InFront()) return;
            if (address.empty()) return messages_.Say(NoAddress);
            base_.commands.Run(Commands::When::Queue, [this, address] { AskName(address); });
        });
    });
}

void GPSScreen::AskName(const std::string& pendingAddress) {
    if (text_.IsOpen()) return;
    ShowList(false);
    TextQuestion question;
    question.caption = "Enter a name for :" + Spoken(AddressFields(pendingAddress));
    question.answer = [this, pendingAddress](const std::optional<std::string>& name) {
        if (name) SavePlace(*name, pendingAddress);
    };
    text_.Open(std::move(question));
}

void GPSScreen::SavePlace(const std::string& name, const std::string& pendingAddress) {
    const auto a = AddressFields(pendingAddress);
    messages_.Say("Saving: " + name + " - " + Spoken(a));
    const std::string problem = places_.Append({name, a[2], a[1], a[0], a[3]});
    if (problem.empty()) return;
    base_.log.WriteDebugLog(problem);
    messages_.Say(problem);
}

void GPSScreen::PopulateGPSList() {
    TrapAndLog(base_.report, ErrorIn("PopulateGPSList"), [this] {
        if (text_.IsOpen()) return;
        if (listShown_) return ShowList(false);
        const auto places = places_.AnySaved() ? places_.Read() : std::vector<SavedPlace>();
        if (places.empty()) return messages_.Say("There are no saved GPS Locations");
        list_.ClearAllArrays();
        for (const SavedPlace& place : places)
            list_.AddItem(place.Text(), "", place.Tag(), GPSIcon);
        list_.LoadList();
        ShowList(true);
    });
}

void GPSScreen::ShowList(bool shown) {
    listShown_ = shown;
    view_.ShowList(shown);
    RefreshMap();
}

void GPSScreen::ChoosePlace() {
    auto fields = Split(list_.GetSelectedFileName(), '|');
    fields.resize(3);
    ShowList(false);
    CalculateRoute(fields[0], fields[1], fields[2], "Could not create route");
}

} // namespace vk
