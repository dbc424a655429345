// Windows of other programs that only are what a test says.
#pragma once

#include "platform/foreign_windows.h"

#include <algorithm>
#include <string>
#include <vector>

namespace vk::test {

class FakeForeignWindows : public ForeignWindows {
  public:
    /// A window comes, in front of all others.
    WindowHandle Open(ProgramId program, const std::string& title = "a program",
                      bool ordinary = true, const std::string& windowClass = "Class") {
        list.push_back({.handle = ++last_,
                        .program = program,
                        .title = title,
                        .windowClass = windowClass,
                        .visible = true,
                        .ordinary = ordinary,
                        .area = {5, 5, 100, 100}});
        if (onChange) onChange();
        return last_;
    }
    void Shut(WindowHandle window) {
        const bool wasAdopted = std::erase(adopted, window) > 0;
        std::erase_if(list, [&](const ForeignWindow& each) { return each.handle == window; });
        if (wasAdopted && onGone) onGone(window);
        if (onChange) onChange();
    }
    ForeignWindow* Find(WindowHandle window) {
        const auto found = std::ranges::find(list, window, &ForeignWindow::handle);
        return found == list.end() ? nullptr : &*found;
    }

    std::vector<ForeignWindow> List() const override {
        std::vector<ForeignWindow> all = list;
        std::erase_if(all, [&](const ForeignWindow& each) {
            return std::ranges::count(adopted, each.handle) > 0;
        });
        return all;
    }
    bool Exists(WindowHandle window) const override {
        return std::ranges::count(list, window, &ForeignWindow::handle) > 0;
    }
    bool Adopt(WindowHandle window, WindowHandle, const WindowArea& area) override {
        if (!Exists(window)) return false;
        Place(window, area);
        std::erase(adopted, window);
        adopted.push_back(window);
        return true;
    }
    void Return(WindowHandle window) override { std::erase(adopted, window); }
    void Shield(WindowHandle window) override { Tell("shield", window); }
    void Place(WindowHandle window, const WindowArea& area) override {
        Tell("place", window);
        if (ForeignWindow* found = Find(window); found && !stubborn) found->area = area;
    }
    void Show(WindowHandle window, bool shown) override { Tell(shown ? "show" : "hide", window); }
    void Raise(WindowHandle window) override { Tell("raise", window); }
    void SetTopmost(WindowHandle window, bool on) override { Tell(on ? "top" : "notop", window); }
    void Maximize(WindowHandle window) override { Tell("maximize", window); }
    void SetFrame(WindowHandle window, bool on) override { Tell(on ? "frame" : "noframe", window); }
    void Focus(WindowHandle window) override { Tell("focus", window); }
    void Close(WindowHandle window) override {
        Tell("close", window);
        if (onClose) onClose(window);
    }
    WindowHandle Inside(WindowHandle window, const std::string&,
                        const std::string& title) const override {
        const auto found = std::ranges::find_if(
            buttons, [&](const Button& each) { return each.in == window && each.title == title; });
        return found == buttons.end() ? 0 : found->handle;
    }
    void PostMouse(WindowHandle window, bool down) override {
        Tell(down ? "press" : "release", window);
        if (!down && onClick) onClick(window);
    }
    void PostControl(WindowHandle window, char letter) override {
        Tell(std::string("control-") + letter, window);
    }
    void HoldKeys(const std::vector<int>& keys) override { held = keys; }
    void FreeInput(WindowHandle window) override { Tell("free", window); }

    /// What was done to a window, "close 3 close 4"; forgotten then.
    std::string Done(const std::string& what) {
        std::string words;
        for (const std::string& each : told)
            if (each.starts_with(what + " ")) words += (words.empty() ? "" : " ") + each;
        told.clear();
        return words;
    }

    struct Button {
        WindowHandle in, handle;
        std::string title;
    };
    std::vector<ForeignWindow> list; ///< the front one last
    std::vector<WindowHandle> adopted;
    std::vector<Button> buttons;
    std::vector<int> held;
    std::vector<std::string> told;
    bool stubborn = false; ///< no window takes the size that it is given
    std::function<void(WindowHandle)> onClose, onClick;

  private:
    void Tell(const std::string& what, WindowHandle window) {
        told.push_back(what + " " + std::to_string(window));
    }

    WindowHandle last_ = 100;
};

} // namespace vk::test
