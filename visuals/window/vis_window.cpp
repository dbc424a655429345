#include "visuals/window/vis_window.h"

#include "core/ini_file.h"
#include "platform/linux/player_socket.h"
#include "platform/paths.h"
#include "playback/visuals/vis_plugins.h"
#include "visuals/window/stay_awake.h"
#include "visuals/window/track_tag.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

namespace vk {

namespace {

constexpr int LookMs = 250;
constexpr double SlowestRate = 24, FastestRate = 120, UsualRate = 60; // pictures a second
constexpr int CoverBox = 600;                                         // pixels

double Rate(const QScreen* screen) {
    const double rate = screen ? screen->refreshRate() : 0;
    return rate < 1 ? UsualRate : std::clamp(rate, SlowestRate, FastestRate);
}

// The threads of sound and covers may be waiting for a disk; nothing is kept that could be lost.
[[noreturn]] void EndAtOnce() {
    std::_Exit(0);
}

} // namespace

VisWindow::VisWindow(Folders folders)
    : folders_(std::move(folders)), winampIni_(JoinPath(folders_.state, "winamp.ini")),
      store_(this),
      listener_(PlayerSocketPath(PlayerWindowClass, folders_.app),
                {.track =
                     [this](const std::string& file) {
                         const auto [title, artist] = ReadTrackTag(folders_.state, file);
                         QMetaObject::invokeMethod(
                             this,
                             [this, file, title = title, artist = artist] {
                                 TakeTrack(file, title, artist);
                             },
                             Qt::QueuedConnection);
                     },
                 .gone = [] { EndAtOnce(); }}) {
    started_.start();
    setFlags(Qt::Window | Qt::FramelessWindowHint);
    setCursor(Qt::BlankCursor);
    // Without a window manager nothing makes the window large.
    setGeometry(QGuiApplication::primaryScreen()->geometry());
    FollowChoice();
    next_.setTimerType(Qt::PreciseTimer);
    next_.setSingleShot(true);
    connect(&next_, &QTimer::timeout, this, [this] { NextPicture(); });
    connect(&look_, &QTimer::timeout, this, [this] {
        FollowChoice();
        KeepScreenAwake();
    });
    look_.start(LookMs);
}

VisWindow::~VisWindow() = default;

// What the settings page, or a key, chooses while this runs.
void VisWindow::FollowChoice() {
    const FileStamp now = StampOf(winampIni_);
    if (read_ && now.settled && now.SameAs(*read_)) return;
    read_ = now;
    const std::string file = GetPrivateProfileString("Winamp", "visplugin_name", "", winampIni_);
    if (file == plugin_ && stage_) return;
    plugin_ = file;
    const VisPlugin plugin = ReadVisPlugin(folders_.app, file);
    setTitle(QString::fromStdString(plugin.name));
    plays_ = plugin.scene.empty() ? Stage::Random : plugin.scene;
    if (stage_) stage_->Play(plays_, Seconds());
}

void VisWindow::MakeStage() {
    stage_ = std::make_unique<Stage>(
        width(), height(),
        [this](const LookSizes& sizes) { return MakeTrackLook(track_, sizes, width(), height()); },
        std::random_device()());
    stage_->Play(plays_, Seconds());
    all_ = true;
}

void VisWindow::resizeEvent(QResizeEvent*) {
    store_.resize(size());
    MakeStage();
}

void VisWindow::exposeEvent(QExposeEvent*) {
    if (!isExposed()) return next_.stop();
    if (!stage_ || store_.size() != size()) resizeEvent(nullptr);
    all_ = true;
    dueAt_ = Seconds();
    NextPicture();
}

// Those that came too late are left out.
void VisWindow::NextPicture() {
    if (!isExposed()) return;
    const double now = Seconds(), step = 1 / Rate(screen());
    Draw(now);
    dueAt_ = std::max(dueAt_ + step, now + step / 2);
    next_.start(std::max(0, static_cast<int>(std::lround((dueAt_ - Seconds()) * 1000))));
}

void VisWindow::Draw(double seconds) {
    std::array<float, Spectrum::Samples> samples;
    listener_.Sound().Latest(samples);
    const SoundPicture& sound = spectrum_.Take(samples, seconds - drawnAt_);
    drawnAt_ = seconds;
    const Area area = stage_->Draw(sound, seconds);
    const bool all = std::exchange(all_, false);
    Show(all ? Area{0, 0, width(), height()} : area);
}

void VisWindow::Show(const Area& area) {
    const QRect changed(area.x, area.y, area.width, area.height);
    store_.beginPaint(changed);
    const Bitmap& picture = stage_->Picture();
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width,
                       picture.height, QImage::Format_RGB32);
    QPainter painter(store_.paintDevice());
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(changed.topLeft(), image, changed);
    painter.end();
    store_.endPaint();
    store_.flush(changed);
}

void VisWindow::TakeTrack(const std::string& file, const QString& title, const QString& artist) {
    const bool first = file_.empty();
    file_ = file;
    track_.title = title;
    track_.artist = artist;
    covers_.Load({.picture = {},
                  .track = file,
                  .temporary = JoinPath(folders_.state, "viscover.tmp"),
                  .extended = true},
                 QSize(CoverBox, CoverBox),
                 [this, first](const CoverOutcome&, const QImage& image) {
                     track_.cover = image;
                     if (stage_) stage_->TrackChanged(!first, Seconds());
                 });
}

void VisWindow::keyPressEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) EndAtOnce();
}

void VisWindow::mousePressEvent(QMouseEvent*) {
    EndAtOnce();
}

void VisWindow::touchEvent(QTouchEvent*) {
    EndAtOnce();
}

bool VisWindow::event(QEvent* event) {
    if (event->type() == QEvent::Close) EndAtOnce();
    return QWindow::event(event);
}

} // namespace vk
