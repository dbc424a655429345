#include "settings/screen/settings_screen.h"

#include "settings/actions_page.h"
#include "settings/appearance_page.h"
#include "settings/extensions_page.h"
#include "settings/learning_pages.h"
#include "settings/screen/row_look.h"
#include "skin/controls/looks.h"

#include <QPainter>

#include <utility>

namespace vk {

namespace {

constexpr double SmallestHeading = 0.5; // of the font
constexpr int HeadingPercent = 11;      // of the screen's height
constexpr int GapShare = 160;           // a gap is the width divided by this

KeyboardLearning::Needs KeyboardNeeds(const SettingsShell::Needs& shell) {
    return {shell.base.settings, shell.base.report, shell.base.clock, shell.keys};
}

SystemPage::Needs SystemNeeds(const SettingsShell::Needs& shell, std::function<void()> changed,
                              const QWidget& display) {
    return {shell.base,
            shell.desktop,
            shell.catalogue,
            shell.ways.exitApplication,
            std::move(changed),
            shell.ways.resize,
            [&display] {
                return FrameSize{display.width(), display.height()};
            }};
}

} // namespace

settings::settings(const ControlContext& context, SettingsShell::Needs shell,
                   RemoteLearning::Needs remote, std::vector<Page> more, QWidget* parent)
    : QWidget(parent), context_(context), shellPage_(shell, *this), keyboard_(KeyboardNeeds(shell)),
      remote_(std::move(remote)), debugPage_(shell.base), systemPage_(SystemNeeds(
                                                              shell, [this] { Draw(); }, *parent)),
      preview_(shell.base.settings.values, shell.skin),
      pages_(shell.base.screens, shell.keys, *this), heading_(this) {
    const auto back = [this] { pages_.GoTo(0); };
    pages_.Add(shellPage_.Describe());
    pages_.Add(AppearancePage(
        shell.base.settings,
        [this] {
            if (this->shell().UseSkin()) DoLayout();
        },
        [this]() -> const PagePicture& { return preview_.Picture(); }));
    pages_.Add(ActionsPage(shell.base.settings));
    pages_.Add(ExtensionsPage(shell.base, shell.extensions, shell.catalogue));
    pages_.Add(KeyboardPage(keyboard_, back));
    pages_.Add(RemotePage(shell.base.settings, shell.base.dialogs, remote_, back));
    for (Page& page : more)
        pages_.Add(std::move(page));
    pages_.Add(systemPage_.Describe());
    pages_.Add(debugPage_.Describe());
    keyboard_.onTimeOut = remote_.onTimeOut = [this] { Draw(); };
    heading_.SetWrap(true);
    heading_.SetShrink(SmallestHeading);
    timer1_ = context_.clock.MakeTimer([this] { Draw(); });
    hide();
}

settings::~settings() = default;

void settings::ShowPage() {
    DoLayout();
    show();
    raise();
    timer1_->Start(pages_.RefreshMs());
}

void settings::HidePage() {
    timer1_->Stop();
    hide();
}

PlateLabel& settings::LabelOf(std::size_t plate) {
    while (labels_.size() <= plate) {
        const int number = static_cast<int>(labels_.size());
        labels_.push_back(std::make_unique<PlateLabel>(this));
        labels_.back()->OnClick(context_.commands, [this, number] { pages_.Touch(number); });
    }
    return *labels_[plate];
}

// The tabs are at the top, the other lines under the heading. The gaps are taken from the cells, so
// that equal cells make equal plates.
QRect settings::BoxOf(const Plate& plate) const {
    const int gap = width() / GapShare + 1;
    const int wide = width() - gap, tall = height() - heading_.height() - gap;
    const int top = plate.line > 0 ? heading_.height() + gap : gap;
    const auto x = [&](int part) { return gap + part * wide / BoardParts; };
    const auto y = [&](int line) { return top + line * tall / BoardLines; };
    return {QPoint(x(plate.left), y(plate.line)),
            QPoint(x(plate.left + plate.width) - gap - 1, y(plate.line + plate.lines) - gap - 1)};
}

void settings::DoLayout() {
    setGeometry(0, 0, context_.state.ScreenWidth, context_.state.ScreenHeight);
    const int margin = width() / 80, tall = height() * HeadingPercent / 100;
    heading_.resize(width() - 2 * margin, tall);
    heading_.move(margin, (height() - tall) / BoardLines);
    RowLook(context_.skin.data(), height()).DressText(heading_);
    for (const auto& label : labels_)
        label->Forget();
    Draw();
    update();
}

void settings::Draw() {
    const RowLook look(context_.skin.data(), height());
    const auto plates = pages_.Plates();
    std::vector<PlateLabel*> shown;
    for (std::size_t i = 0; i < plates.size(); ++i) {
        shown.push_back(&LabelOf(i));
        shown[i]->Show(plates[i], BoxOf(plates[i]), static_cast<int>(i) == pages_.Marked(), look);
    }
    ShareTextSizes(shown);
    for (std::size_t i = plates.size(); i < labels_.size(); ++i) {
        labels_[i]->setObjectName({});
        labels_[i]->hide();
    }
    heading_.SetText(pages_.Heading());
}

void settings::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), ToQColor(context_.skin.data().ClockBackgroundClr));
}

} // namespace vk
