// The one top-level window. Screens are its children, stacked; it turns keys and the wheel into
// calls.
#pragma once

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
    /// A key was let go, with the code it had.
    std::function<void(const std::string&)> onKeyUp;
    /// The user or the session wants the window closed.
    std::function<void()> onClose;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vk
