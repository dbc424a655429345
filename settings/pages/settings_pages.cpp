#include "settings/pages/settings_pages.h"

#include "settings/pages/page_screen.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr int MostTabs = 5;
constexpr int MoreWidth = 4 * ColumnParts;
constexpr int FirstRows = 1, RowLines = BoardLines - 2;

// The name of a sheet, or of none for one that only goes on.
const char* NameOf(const std::vector<Row>& rows, int sheet) {
    const auto plates = LayOut(rows, FirstRows, RowLines);
    std::size_t plate = 0;
    for (const Row& row : rows) {
        if (plates[plate].sheet == sheet && row.sheet) return row.sheet;
        plate += 1 + row.ends.size();
    }
    return "More";
}

} // namespace

SettingsPages::SettingsPages(Screens& screens, const KeyMap& keys, PageView& view)
    : screens_(screens), keys_(keys), view_(view) {}

SettingsPages::~SettingsPages() = default;

void SettingsPages::Add(Page page) {
    if (page.footer.empty())
        page.footer = {ButtonRow(
            "Done", [this] { Quit(); }, Row::Whole, "donebutton")};
    doors_.push_back(std::make_unique<PageScreen>(*this, pages_.size()));
    pages_.push_back(std::move(page));
    places_.emplace_back();
}

void SettingsPages::AddTo(Screens& screens) {
    for (std::size_t i = 0; i < pages_.size(); ++i)
        screens.Add(pages_[i].name, *doors_[i]);
}

void SettingsPages::RemoveFrom(Screens& screens) const {
    for (const Page& page : pages_)
        screens.Remove(page.name);
}

// With more pages than tabs those around the shown one are there: touching the outermost leads on.
void SettingsPages::AddTabs(std::vector<Plate>& plates) {
    const int count = static_cast<int>(pages_.size()), shown = std::min(count, MostTabs);
    const int first = std::clamp(static_cast<int>(current_) - shown / 2, 0, count - shown);
    for (int i = 0; i < shown; ++i) {
        const auto number = static_cast<std::size_t>(first) + static_cast<std::size_t>(i);
        const int left = BoardParts * i / shown;
        plates.push_back({.left = left,
                          .width = BoardParts * (i + 1) / shown - left,
                          .text = [this, number] { return std::string(pages_[number].tab); },
                          .use = [this, number] { GoTo(number); },
                          .usable = true,
                          .lit = number == current_});
    }
}

std::vector<Plate> SettingsPages::Plates() {
    std::vector<Plate> plates;
    AddTabs(plates);
    int sheets = 1;
    for (Plate& plate : LayOut(Shown().rows, FirstRows, RowLines)) {
        sheets = plate.sheet + 1;
        if (plate.sheet == places_[current_].sheet) plates.push_back(std::move(plate));
    }
    AddFooter(plates, sheets);
    return plates;
}

void SettingsPages::AddFooter(std::vector<Plate>& plates, int sheets) {
    const int room = sheets < 2 ? BoardParts : BoardParts - MoreWidth;
    for (Plate& plate : LayOut(Shown().footer, BoardLines - 1, 1)) {
        const int right = (plate.left + plate.width) * room / BoardParts;
        plate.left = plate.left * room / BoardParts;
        plate.width = right - plate.left;
        plates.push_back(std::move(plate));
    }
    if (sheets < 2) return;
    const int next = (places_[current_].sheet + 1) % sheets;
    plates.push_back({.line = BoardLines - 1,
                      .left = BoardParts - MoreWidth,
                      .width = MoreWidth,
                      .text = [this, next] { return std::string(NameOf(Shown().rows, next)); },
                      .use = [this, sheets] { NextSheet(sheets); },
                      .usable = true,
                      .name = "More"});
}

// The mark stays on the plate that turns the sheet.
void SettingsPages::NextSheet(int sheets) {
    Place& place = places_[current_];
    place.sheet = (place.sheet + 1) % sheets;
    place.marked = static_cast<int>(Plates().size()) - 1;
}

std::string SettingsPages::Heading() const {
    return Shown().heading ? Shown().heading() : std::string();
}

void SettingsPages::MarkFirst() {
    const auto plates = Plates();
    const auto first = std::ranges::find_if(
        plates, [](const Plate& plate) { return plate.usable && plate.line >= FirstRows; });
    if (first != plates.end()) places_[current_].marked = static_cast<int>(first - plates.begin());
    places_[current_].centre = first == plates.end() ? 0 : 2 * first->left + first->width;
}

void SettingsPages::Open(std::size_t number) {
    current_ = number;
    if (Marked() < 0) MarkFirst();
    if (Shown().open) return Shown().open();
    screens_.CurrentForm = Shown().name;
    if (Shown().enter) Shown().enter();
    screens_.HideOthers(Shown().name);
    view_.ShowPage();
}

void SettingsPages::Leave() {
    if (Shown().leave) Shown().leave();
}

void SettingsPages::Quit() {
    if (Shown().quit) return Shown().quit();
    GoTo(0);
}

void SettingsPages::GoTo(std::size_t number) {
    if (number == current_) return;
    Leave();
    screens_.Show(pages_[number].name);
}

void SettingsPages::Move(int dx, int dy) {
    Place& place = places_[current_];
    place.marked = NextPlate(Plates(), place.marked, dx, dy, place.centre);
    view_.Draw();
}

void SettingsPages::Touch(int number) {
    const auto plates = Plates();
    if (number < 0 || number >= static_cast<int>(plates.size())) return;
    const Plate& plate = plates[static_cast<std::size_t>(number)];
    if (!plate.usable) return;
    if (plate.line > 0) {
        places_[current_].marked = number;
        places_[current_].centre = 2 * plate.left + plate.width;
    } else { // a tab leads away: the way back leads to the page
        MarkFirst();
    }
    plate.use();
    view_.Draw();
}

bool SettingsPages::Key(const std::string& code) {
    const bool used = (Shown().takesKey && Shown().takesKey(code)) || Work(InputCode(code, keys_));
    view_.Draw();
    return used;
}

bool SettingsPages::Code(const InputCode& code) {
    const bool used = (Shown().takesCode && Shown().takesCode(code)) || Work(code);
    view_.Draw();
    return used;
}

bool SettingsPages::Work(const InputCode& code) {
    static constexpr ActionRow<PageScreen> Operations[] = {
        {Action::ok, &PageScreen::runok},      {Action::quit, &PageScreen::doquit},
        {Action::up, &PageScreen::MoveUp},     {Action::down, &PageScreen::MoveDown},
        {Action::back, &PageScreen::MoveBack}, {Action::forward, &PageScreen::MoveAhead},
    };
    return RunAction(*doors_[current_], Operations, code);
}

} // namespace vk
