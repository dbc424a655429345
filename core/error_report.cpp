#include "core/error_report.h"

namespace vk {

int ErrorNumber(const std::exception& error) {
    const auto* own = dynamic_cast<const Error*>(&error);
    return own ? own->Number() : 5;
}

void ErrorReport::ReportError(const std::string& where, const std::string& description, int number,
                              bool /*flag*/) {
    const std::string line =
        where + "  : " + description + " :  Error number " + std::to_string(number);
    log_.WriteDebugLog(line);
    if (description == "Skin Error" || showing_) return;
    showing_ = true;
    dialogs_.ShowMessage(line + "\nClick ok to terminate the application", "Velkorandum Error",
                         MessageKind::Critical);
    showing_ = false;
    if (unloadAll) unloadAll();
}

} // namespace vk
