// A wrapped text of several lines.
#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>

class QPainter;

namespace vk {

/// Line breaks of the text are kept; words that are longer than a line (paths) are broken anywhere.
class TextBlock {
  public:
    /// Lays the text out; `width` in pixels.
    void Set(const QString& text, const QFont& font, int width);
    int Height() const { return height_; }
    void Draw(QPainter& painter, QPointF at) const;

  private:
    QTextLayout layout_;
    int height_ = 0;
};

} // namespace vk
