// Lines of text in a box.
#pragma once

#include <QFont>
#include <QString>

#include <vector>

class QPainter;

namespace vk {

/// Each line is as large as the box's width allows, so that a long one does not make the others
/// small; what is too long even so is cut. What counts of a line's height is its capitals and what
/// hangs below it: a low bar then has room for large letters.
class TextLines {
  public:
    /// Lines are separated by "\n", and where they do not fit side by side by four blanks, as date
    /// and time, or else by any blank if that shows all of the text. No font gets smaller than
    /// `smallest` of its size, but where not even that leaves room in the box's height.
    TextLines(const QString& text, const QFont& font, QSize box, double smallest,
              Qt::TextElideMode elide);
    /// Draws them in the middle of the box's height.
    void Draw(QPainter& painter, const QRect& box, Qt::Alignment alignment) const;
    /// The largest font that is drawn with, pixels.
    int PixelSize() const;

  private:
    struct Line {
        QString text;
        QFont font;
    };
    int Height() const;
    bool Fit(QSize box) const;
    void BreakAtABlank(QSize box);

    std::vector<Line> lines_;
};

} // namespace vk
