// What the settings page shows of the satellite receiver.
#pragma once

#include <functional>
#include <string>

namespace vk {

/// One object a process; the texts are those of its labels.
struct XMPageTexts {
    std::string lbXMStatus, lblXMID = "Receiver ID: ", lbXMPort = "XM Com Port: ";
    std::function<void()> changed; ///< set by who shows them; may be empty

    void Show(std::string XMPageTexts::*label, const std::string& text) {
        if (this->*label == text) return;
        this->*label = text;
        if (changed) changed();
    }
    void ShowStatus(const std::string& text) { Show(&XMPageTexts::lbXMStatus, text); }
    void ShowId(const std::string& id) { Show(&XMPageTexts::lblXMID, "Receiver ID: " + id); }
    void ShowPort(const std::string& port) { Show(&XMPageTexts::lbXMPort, "XM Com Port: " + port); }
};

} // namespace vk
