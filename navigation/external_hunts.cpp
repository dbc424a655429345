#include "navigation/external_hunts.h"

#include "core/text.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

constexpr const char* Dialog = "#32770"; // the class of the dialogs of Windows
constexpr const char* MapClass = "IntellinavWCls";
constexpr const char* MapTitle = "Dest3Client";
constexpr int LookMs = 50;

} // namespace

struct ExternalHunts::Hunt {
    const char* name;
    bool (ExternalHunts::*follow)(ProgramId);
};

const ExternalHunts::Hunt ExternalHunts::Hunts[] = {{"IGUIDANCE", &ExternalHunts::Iguidance},
                                                    {"DESTINATOR3", &ExternalHunts::Destinator3}};

std::string ProgramName(const std::string& path) {
    const std::string file = FileNameOf(path);
    const auto dot = file.rfind('.');
    return ToUpper(dot == std::string::npos || dot == 0 ? file : file.substr(0, dot));
}

bool ExternalHunts::Follow(const std::string& name, ProgramId program) {
    const auto hunt =
        std::ranges::find_if(Hunts, [&](const Hunt& each) { return name == each.name; });
    return hunt == std::end(Hunts) || (this->*hunt->follow)(program);
}

bool ExternalHunts::Wait(const std::function<bool()>& done, int milliseconds) {
    return base_.pump.Until({"a navigation program", done, milliseconds, LookMs}) != Waited::Ended;
}

WindowHandle ExternalHunts::OfClass(const std::string& windowClass) const {
    const auto all = windows_.List();
    const auto found = std::ranges::find(all, windowClass, &ForeignWindow::windowClass);
    return found == all.end() ? 0 : found->handle;
}

// Pressed until it has gone: the program may not be listening yet.
bool ExternalHunts::PressOk(WindowHandle dialog) {
    const std::int64_t end = base_.clock.TickMs() + QuietMs;
    for (WindowHandle button = windows_.Inside(dialog, "Button", "OK");
         button != 0 && windows_.Exists(button) && base_.clock.TickMs() < end;) {
        windows_.PostMouse(button, true);
        if (!base_.pump.Pause("a navigation program's button", PressMs)) return false;
        windows_.PostMouse(button, false);
        if (!Wait([&] { return !windows_.Exists(button); }, PressMs)) return false;
    }
    return true;
}

// Each dialog that comes gives the next one its time.
bool ExternalHunts::Iguidance(ProgramId program) {
    std::vector<WindowHandle> answered;
    for (;;) {
        WindowHandle dialog = 0;
        const auto come = [&] {
            dialog = OfClass(Dialog);
            if (std::ranges::count(answered, dialog) > 0) dialog = 0;
            return dialog != 0 || OfClass(MapClass) != 0 || !programs_.AnyRunning(program);
        };
        if (!Wait(come, QuietMs)) return false;
        if (dialog == 0) return true;
        if (!PressOk(dialog)) return false;
        answered.push_back(dialog);
    }
}

// However long it takes; a program that has ended never comes, and the user may leave.
bool ExternalHunts::Destinator3(ProgramId program) {
    const auto come = [&] {
        const auto all = windows_.List();
        return std::ranges::count(all, MapTitle, &ForeignWindow::title) > 0 ||
               !programs_.AnyRunning(program);
    };
    return Wait(come, Pump::NoLimit);
}

} // namespace vk
