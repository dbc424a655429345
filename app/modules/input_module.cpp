#include "app/modules/input_module.h"

#include <QCoreApplication>

namespace vk {

InputModule::InputModule(Host& host)
    : Module(host.modules), host_(host),
      remote({host.base, host.ports.machine.ui, host.ports.remote}) {
    host_.dialogs.onClosed = [this] { newScreen_.Changed(); };
    host_.window.onKey = [this](const std::string& code, bool repeat) {
        return !closed_ && router_.Key(code, repeat);
    };
    host_.window.onKeyUp = [this](const std::string& code) { router_.KeyUp(code); };
    remote.IRCommand = [this](const std::string& code, bool repeat) {
        if (!closed_) router_.IRCommand(code, repeat);
    };
    remote.IRHeld = [this](const std::string& code) { router_.IRHeard(code); };
    QCoreApplication::instance()->installEventFilter(&touches_);
}

InputModule::~InputModule() {
    host_.dialogs.onClosed = {};
    host_.window.onKey = {};
    host_.window.onKeyUp = {};
}

void InputModule::Resume() {
    remote.ClearBuff();
    if (!host_.settings.values.remoteStatus) return;
    const bool there = remote.InitRemote();
    host_.log.WriteDebugLog(std::string("Remote Initialize = ") + (there ? "True" : "False"));
}

InputRouter::Needs InputModule::RouterNeeds() {
    return {.screens = host_.screens,
            .commands = host_.commands,
            .newScreen = newScreen_,
            .buttons = buttons_,
            .keys = host_.keys,
            .remoteKeys = host_.remoteKeys,
            .dialog = [this](const InputCode& code,
                             bool repeat) { return host_.dialogs.DoAction(code, repeat); },
            .dialogChanges = [this] { return host_.dialogs.Changes(); },
            .powerAction =
                [this] {
                    if (onPower) onPower();
                },
            .toggleDim = [this] { host_.controls.ToggleDim(); }};
}

RemoteHooks InputModule::Hooks() {
    return {.init = [this] { return remote.InitRemote(); },
            .clear = [this] { remote.ClearBuff(); },
            .learnText = [this] { return remote.LearnText(); }};
}

} // namespace vk
