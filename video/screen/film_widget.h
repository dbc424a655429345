// Where the film's pictures are painted.
#pragma once

#include "platform/media_player.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace vk {

/// The newest picture as large as its shape allows, in the middle of black. It is scaled when it is
/// painted, once.
class FilmWidget : public QWidget {
  public:
    explicit FilmWidget(QWidget* parent);

    /// Null: all black.
    void Show(std::shared_ptr<const FilmPicture> picture);
    /// The place of the film's picture in the widget, pixels; empty without one.
    QRect Place() const;

    std::function<void(QPoint)> onTouch; ///< where a finger went down

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    std::shared_ptr<const FilmPicture> picture_;
};

} // namespace vk
