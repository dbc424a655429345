// A picture in a box, such as the cover of an album.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <string>

namespace vk {

/// The picture is scaled into the box with its aspect kept; without one the box is clear.
class UCBlitBox : public QWidget {
  public:
    explicit UCBlitBox(QWidget* parent);

    /// Loads and shows a picture by its full path. False, and an empty box, when it cannot be
    /// shown. An empty path empties the box.
    bool ShowPic(const std::string& path);
    /// Draws the box anew.
    void ReBlit() { update(); }
    bool HasPicture() const { return !picture_.isNull(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    std::string path_;
    QPixmap picture_;
};

} // namespace vk
