// The one top-level window. Screens are its children, stacked; it turns keys and the wheel into
// calls.
#pragma once

#include <QBasicTimer>
#include <QWidget>

#include <functional>
#include <string>

namespace vk {

class HostWindow : public QWidget {
  public:
    HostWindow();

    /// Covers the whole screen, with or without a window manager.
    void ShowOnScreen();
    /// True once the window can be seen.
    bool Exposed() const;

    /// Takes the key's code as decimal text, empty for a key without one, and whether the key is
    /// just held on; tells whether it was used.
    std::function<bool(const std::string&, bool repeat)> onKey;
    /// A key was let go, with the code it had; told a little late, when it is sure.
    std::function<void(const std::string&)> onKeyUp;
    /// The user or the session wants the window closed.
    std::function<void()> onClose;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    void LetGo();

    std::string released_;                   ///< the code of a key that may have been let go
    quint64 pressedAt_ = 0, releasedAt_ = 0; ///< by the events; milliseconds
    QBasicTimer sure_;                       ///< runs while there is one
};

} // namespace vk
