// The window that the visualisation is drawn in.
#pragma once

#include "platform/file_state.h"
#include "platform/user_folders.h"
#include "playback/screen/cover_loader.h"
#include "visuals/scenes/stage.h"
#include "visuals/sound/listener.h"
#include "visuals/sound/spectrum.h"
#include "visuals/window/track_look.h"

#include <QBackingStore>
#include <QElapsedTimer>
#include <QTimer>
#include <QWindow>

#include <memory>
#include <optional>
#include <string>

namespace vk {

/// Covers the screen and follows what plays and which plug-in is chosen, picture by picture at the
/// display's rate. A key, a touch or the wish to be closed ends the program.
class VisWindow : public QWindow {
  public:
    /// Those of the player.
    explicit VisWindow(Folders folders);
    ~VisWindow() override;

  protected:
    void exposeEvent(QExposeEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void touchEvent(QTouchEvent* event) override;
    bool event(QEvent* event) override;

  private:
    double Seconds() const { return static_cast<double>(started_.nsecsElapsed()) * 1e-9; }
    void MakeStage();
    void NextPicture();
    void Draw(double seconds);
    void Show(const Area& area);
    void FollowChoice();
    void TakeTrack(const std::string& file, const QString& title, const QString& artist);

    Folders folders_;
    std::string winampIni_;
    std::optional<FileStamp> read_; ///< of winamp.ini when it was read
    std::string plugin_;
    std::string plays_ = Stage::Random;
    QBackingStore store_;
    QElapsedTimer started_;
    QTimer next_, look_;
    Spectrum spectrum_;
    TrackFactsShown track_;
    std::string file_;
    std::unique_ptr<Stage> stage_;
    double drawnAt_ = 0, dueAt_ = 0;
    bool all_ = true; ///< the whole picture has to be shown
    CoverLoader covers_;
    Listener listener_; ///< last: it calls back
};

} // namespace vk
