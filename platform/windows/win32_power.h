// The machine's power by user32 and powrprof.
#pragma once

#include "platform/power.h"

#include <windows.h>

#include <map>

namespace vk {

/// Broadcasts go to top-level windows alone, so that it has a hidden one. Made and used on the
/// user-interface thread, whose messages bring the answers.
class Win32Power : public Power {
  public:
    ~Win32Power() override;
    void Listen() override;
    void Ask(PowerWish wish, Answer answer) override;

  private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool MakeWindow();
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    void Answered(WPARAM ticket, LPARAM error);

    HWND HookedWindow = nullptr;
    std::map<WPARAM, Answer> asked_; ///< by ticket
    WPARAM ticket_ = 0;
    bool listening_ = false;
};

/// Gives this process the privilege to end the machine; false when it may not have it.
bool EnableShutdownPrivilege();

} // namespace vk
