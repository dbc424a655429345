// Windows of other programs through user32.
#pragma once

#include "platform/foreign_windows.h"

#include <map>
#include <vector>

namespace vk {

class Win32Windows : public ForeignWindows {
  public:
    ~Win32Windows() override;
    std::vector<ForeignWindow> List() const override;
    bool Exists(WindowHandle window) const override;
    bool Adopt(WindowHandle window, WindowHandle host, const WindowArea& area) override;
    void Return(WindowHandle window) override;
    void Shield(WindowHandle window) override;
    void Place(WindowHandle window, const WindowArea& area) override;
    void Show(WindowHandle window, bool shown) override;
    void Raise(WindowHandle window) override;
    void SetTopmost(WindowHandle window, bool on) override;
    void Maximize(WindowHandle window) override;
    void SetFrame(WindowHandle window, bool on) override;
    void Focus(WindowHandle window) override;
    void Close(WindowHandle window) override;
    WindowHandle Inside(WindowHandle window, const std::string& windowClass,
                        const std::string& title) const override;
    void PostMouse(WindowHandle window, bool down) override;
    void PostControl(WindowHandle window, char letter) override;
    void HoldKeys(const std::vector<int>& keys) override;
    /// No program can keep them here.
    void FreeInput(WindowHandle) override {}

    /// To be called with the wParam of every WM_HOTKEY of the thread's queue.
    void HotKey(std::uintptr_t wParam);
    /// Nothing tells of windows that come and go: to be called now and then.
    void LookForChanges();

  private:
    struct Before {
        WindowHandle parent;
        long long style;
    };
    std::map<WindowHandle, Before> adopted_;
    std::vector<int> held_;
    std::vector<WindowHandle> known_;
};

} // namespace vk
