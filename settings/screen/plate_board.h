// A board of large plates in equal cells, moved over by the arrows and used by OK or touch.
#pragma once

#include "settings/screen/row_look.h"
#include "skin/controls/shaded_label.h"

#include <QRect>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// One plate. Its functions are asked with each drawing.
struct Plate {
    QRect cell; ///< in cells of the board
    std::function<std::string()> text;
    std::function<void()> use = {}; ///< empty: only a text, which the arrows pass over
    std::function<bool()> lit = {};
    int page = -1;              ///< shown on this page of the board alone; -1: on all
    const char* name = nullptr; ///< of the button
};

class PlateBoard : public QWidget {
  public:
    /// The size in cells.
    PlateBoard(int columns, int rows, QWidget* parent) : QWidget(parent), size_(columns, rows) {}

    void Add(Plate plate);
    /// Places and draws the plates in the skin's look.
    void Refresh(const SkinData& skin);
    void Show(int page);
    int Page() const { return page_; }
    /// Moves the mark to the nearest plate in a direction (-1, 0, 1 each), if there is one.
    void Move(int dx, int dy);
    /// Uses the marked plate.
    void Use();
    /// Called when something was marked or used: time to refresh.
    std::function<void()> onChanged;

  private:
    bool Usable(std::size_t plate) const;
    QRect BoxOf(const QRect& cell) const;
    void Touch(int plate);

    QSize size_;
    std::vector<Plate> plates_;
    std::vector<std::unique_ptr<ShadedLabel>> labels_;
    int marked_ = 0;
    int page_ = 0;
};

} // namespace vk
