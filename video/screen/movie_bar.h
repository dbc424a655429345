// A bar over the film, with a ground of the skin.
#pragma once

#include "skin/controls/control_context.h"

#include <QWidget>

#include <string>

namespace vk {

class MovieBar : public QWidget {
  public:
    /// `picture` is stretched over it.
    MovieBar(const ControlContext& context, std::string picture, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
    /// A touch beside the buttons is not one of the film.
    void mousePressEvent(QMouseEvent*) override {}

  private:
    ControlContext context_;
    const std::string picture_;
};

} // namespace vk
