// The loading screen as start-up drives it.
#pragma once

namespace vk {

class LoadingScreen {
  public:
    virtual ~LoadingScreen() = default;
    /// Shows the screen and makes it the one in front.
    virtual void Load() = 0;
    virtual void InitProgress(int from, int to) = 0;
    virtual void SetProgress(int value) = 0;
    virtual void SetProgressToMax() = 0;
    virtual void ClearScreen() = 0;
    virtual void ReBlit() = 0;
};

} // namespace vk
