#include "navigation/map_window.h"

#include <utility>

namespace vk {

void MapWindow::Take(WindowHandle window, bool shielded) {
    if (window == window_) return;
    const bool taken = window != 0 && n_.windows && n_.windows->Adopt(window, n_.host(), area_);
    window_ = taken ? window : 0;
    if (taken && shielded) n_.windows->Shield(window);
    Update();
}

void MapWindow::Return() {
    if (const WindowHandle window = std::exchange(window_, 0)) n_.windows->Return(window);
}

void MapWindow::Place(const WindowArea& area) {
    if (area == area_) return;
    area_ = area;
    if (window_ != 0 && area.width > 0 && area.height > 0) n_.windows->Place(window_, area_);
    Update();
}

void MapWindow::SetFront(bool front) {
    front_ = front;
    if (!front) {
        n_.surfaces.Remove(Owner);
        return Update();
    }
    const auto raise = [this] {
        if (window_ != 0) n_.windows->Raise(window_);
    };
    const auto show = [this](bool shown) {
        dialog_ = !shown;
        Update();
    };
    n_.surfaces.Put(Owner, {.layer = Layer::Program, .raise = raise, .show = show});
    Update();
}

void MapWindow::Cover(bool covered) {
    if (covered == covered_) return;
    covered_ = covered;
    Update();
}

void MapWindow::Update() {
    const bool room = area_.width > 0 && area_.height > 0;
    if (window_ != 0) n_.windows->Show(window_, front_ && room && !covered_ && !dialog_);
}

} // namespace vk
