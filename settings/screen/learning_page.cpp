#include "settings/screen/learning_page.h"

#include "skin/controls/looks.h"

#include <QPainter>

namespace vk {

namespace {

constexpr double SmallestText = 0.5; // of the font
constexpr int HeadingPercent = 17;   // of the screen's height

} // namespace

QRect ActionCell(int number) {
    return {number % LearningPage::Columns, number / LearningPage::Columns, 1, 1};
}

LearningPage::LearningPage(const Needs& needs, QWidget* parent)
    : QWidget(parent), context_(needs.context), screens_(needs.screens), keys_(needs.keys),
      name_(needs.name), heading_(this), board_(Columns, Rows, this) {
    heading_.SetWrap(true);
    heading_.SetShrink(SmallestText);
    board_.onChanged = [this] { Refresh(); };
    hide();
}

void LearningPage::doquit() {
    switchingform();
    screens_.Show("settings");
}

void LearningPage::ReShow() {
    screens_.CurrentForm = name_;
    Enter();
    DoLayout();
    show();
    raise();
    screens_.HideOthers(name_);
}

void LearningPage::DoLayout() {
    setGeometry(0, 0, context_.state.ScreenWidth, context_.state.ScreenHeight);
    const int margin = width() / 80;
    const int head = height() * HeadingPercent / 100;
    heading_.setGeometry(margin, 0, width() - 2 * margin, head);
    board_.setGeometry(margin, head, width() - 2 * margin, height() - head - margin);
    Refresh();
}

void LearningPage::Refresh() {
    const SkinData& skin = context_.skin.data();
    heading_.SetText(Heading());
    RowLook(skin).DressText(heading_);
    board_.Refresh(skin);
    update();
}

bool LearningPage::WorkPage(const InputCode& code) {
    static constexpr ActionRow<LearningPage> Operations[] = {
        {Action::ok, &LearningPage::runok},      {Action::quit, &LearningPage::doquit},
        {Action::up, &LearningPage::MoveUp},     {Action::down, &LearningPage::MoveDown},
        {Action::back, &LearningPage::MoveBack}, {Action::forward, &LearningPage::MoveAhead},
    };
    return RunAction(*this, Operations, code);
}

void LearningPage::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), ToQColor(context_.skin.data().ClockBackgroundClr));
}

} // namespace vk
