#include "settings/screen/settings_screen.h"

#include "settings/screen/row_look.h"
#include "skin/controls/looks.h"

#include <QPainter>

#include <algorithm>

namespace vk {

namespace {

enum RowIndex {
    MediaRow,
    PlaylistRow,
    UpdateRow,
    DeleteRow,
    ManualRow,
    KeyboardRow,
    RemoteRow,
    DoneRow,
    ExitRow
};
constexpr int RefreshMs = 1000;

} // namespace

settings::settings(const ControlContext& context, SettingsShell::Needs needs, QWidget* parent)
    : QWidget(parent), context_(context), shell_(needs, *this), keys_(needs.keys),
      locale_(needs.locale), lblSettingsTopInfo(this), lblTime(this), lblDBStatus(this),
      pbDBStatus(this) {
    AddRow("Media folder", [this] { shell_.btnmediadir_Click(); });
    AddRow("Playlist folder", [this] { shell_.btnPlaylistDir_Click(); });
    AddRow("Update database", [this] { shell_.bDBForceUpdate_Click(); });
    AddRow("Delete database", [this] { shell_.bDeleteDB_Click(); });
    AddRow("Manual Database Refresh Only", [this] { shell_.chkDBManualUpdate_Click(); });
    AddRow("Keyboard", [this] { shell_.ShowPage("settingsKeyboard"); });
    AddRow("Remote", [this] { shell_.ShowPage("settingsRemote"); });
    AddRow("Done", [this] { shell_.DoneButton_Click(); });
    AddRow("Exit App", [this] { shell_.bExitApp_Click(); });
    pbDBStatus.setTextVisible(false);
    pbDBStatus.hide();
    timer1_ = context_.clock.MakeTimer([this] { ShowTexts(); });
    hide();
    DoLayout();
}

settings::~settings() = default;

void settings::AddRow(const char* caption, std::function<void()> use) {
    const int index = static_cast<int>(rows_.size());
    auto label = std::make_unique<ShadedLabel>(this);
    label->SetWrap(true);
    label->SetShrink(0.5);
    label->onClick = [this, index] {
        MoveTo(index);
        Use(index);
    };
    rows_.push_back({std::move(label), caption, std::move(use)});
}

void settings::ReShow() {
    shell_.ReShow();
}

void settings::doquit() {
    Use(DoneRow);
}

void settings::runok() {
    Use(current_);
}

void settings::Use(int row) {
    if (rows_[static_cast<std::size_t>(row)].enabled) rows_[static_cast<std::size_t>(row)].use();
}

void settings::MoveTo(int row) {
    const int count = static_cast<int>(rows_.size());
    current_ = (row + count) % count;
    DrawRows();
}

void settings::ShowShell() {
    DoLayout();
    ShowTexts();
    show();
    raise();
    timer1_->Start(RefreshMs);
}

void settings::Hide() {
    timer1_->Stop();
    hide();
}

void settings::EnableLeaving(bool exitApp, bool done) {
    rows_[ExitRow].enabled = exitApp;
    rows_[DoneRow].enabled = done;
    DrawRows();
}

void settings::SetTopInfo(const std::string& text) {
    lblSettingsTopInfo.SetText(text);
}

void settings::ShowTexts() {
    rows_[MediaRow].label->SetText("Media folder\nCurrent   -   " + shell_.Values().MediaDir);
    rows_[PlaylistRow].label->SetText("Playlist folder\nCurrent  -  " +
                                      shell_.Values().PlaylistDir);
    rows_[UpdateRow].label->SetText(shell_.DBUpdating() ? "Stop the update"
                                                        : rows_[UpdateRow].caption);
    rows_[ManualRow].label->SetText(rows_[ManualRow].caption + "\n" +
                                    (shell_.Values().manualdb ? "on" : "off"));
    for (const int row : {DeleteRow, KeyboardRow, RemoteRow, DoneRow, ExitRow})
        rows_[static_cast<std::size_t>(row)].label->SetText(
            rows_[static_cast<std::size_t>(row)].caption);
    lblTime.SetText(locale_.ShortTime(context_.clock.Now()));
    lblDBStatus.SetText("Database: " + shell_.DBStatusText() + "     " + shell_.DBActionText());
    pbDBStatus.setValue(shell_.DBPercent());
    pbDBStatus.setVisible(shell_.DBUpdating());
}

void settings::DoLayout() {
    setGeometry(0, 0, context_.state.ScreenWidth, context_.state.ScreenHeight);
    const int margin = width() / 40;
    const int inner = width() - 2 * margin;
    const int unit = height() / 20;
    lblSettingsTopInfo.setGeometry(margin, unit / 2, inner, 3 * unit + unit / 2);
    lblSettingsTopInfo.SetWrap(true);
    lblSettingsTopInfo.SetShrink(0.4);
    const int tall = 3 * unit + unit / 4;
    const auto place = [&](std::initializer_list<RowIndex> line, int top) {
        const int count = static_cast<int>(line.size());
        const int each = (inner - (count - 1) * margin) / count;
        int left = margin;
        for (const RowIndex row : line) {
            rows_[row].label->setGeometry(left, top, each, tall);
            left += each + margin;
        }
    };
    place({MediaRow}, 4 * unit + unit / 4);
    place({PlaylistRow}, 7 * unit + unit * 3 / 4);
    place({UpdateRow, DeleteRow, ManualRow}, 11 * unit + unit / 4);
    place({KeyboardRow, RemoteRow, DoneRow, ExitRow}, 14 * unit + unit * 3 / 4);
    const int bottom = 18 * unit + unit / 4, status = margin + inner / 6;
    lblTime.setGeometry(margin, bottom, inner / 6, unit);
    lblDBStatus.setGeometry(status, bottom, inner - inner / 6, unit);
    pbDBStatus.setGeometry(status, bottom + unit, inner - inner / 6, unit / 2);
    for (ShadedLabel* label : {&lblTime, &lblDBStatus})
        label->SetShrink(0.5);
    DrawRows();
}

void settings::DrawRows() {
    const RowLook look(context_.skin.data());
    for (std::size_t i = 0; i < rows_.size(); ++i)
        look.Dress(*rows_[i].label, static_cast<int>(i) == current_, rows_[i].enabled);
    for (ShadedLabel* label : {&lblSettingsTopInfo, &lblTime, &lblDBStatus})
        look.DressText(*label);
    pbDBStatus.setStyleSheet(QStringLiteral("QProgressBar { border: 0; background: %1 } "
                                            "QProgressBar::chunk { background: %2 }")
                                 .arg(look.ground.name(), look.chosen.name()));
    update();
}

bool settings::DoAction(const InputCode& code) {
    static constexpr ActionRow<settings> Rows[] = {
        {Action::ok, &settings::runok},      {Action::quit, &settings::doquit},
        {Action::up, &settings::MoveUp},     {Action::back, &settings::MoveBack},
        {Action::down, &settings::MoveDown}, {Action::forward, &settings::MoveAhead},
    };
    return RunAction(*this, Rows, code);
}

void settings::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), ToQColor(context_.skin.data().ClockBackgroundClr));
}

} // namespace vk
