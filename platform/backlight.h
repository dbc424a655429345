// The backlight of a panel.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vk {

/// How bright a panel is, in units of its own, 0 to `most`.
struct PanelLight {
    std::string panel;
    int level = 0, most = 0;
};

/// All on the user-interface thread; no operation waits for the machine.
class Backlight {
  public:
    virtual ~Backlight() = default;
    /// Every panel; empty where there is none.
    virtual std::vector<PanelLight> Read() const = 0;
    /// `answer` gets "" when it was done, else why it was not, some seconds later at most.
    virtual void Set(const std::string& panel, int level,
                     std::function<void(const std::string& refusal)> answer) = 0;
};

} // namespace vk
