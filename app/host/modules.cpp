#include "app/host/modules.h"

#include <utility>

namespace vk {

Module::Module(Modules& all) {
    all.Add(*this);
}

std::vector<LoadStep> Modules::Steps() const {
    std::vector<LoadStep> all;
    for (Module* module : modules_)
        for (LoadStep& step : module->Steps())
            all.push_back(std::move(step));
    return all;
}

std::vector<Page> Modules::Pages() const {
    std::vector<Page> all;
    for (Module* module : modules_)
        for (Page& page : module->Pages())
            all.push_back(std::move(page));
    return all;
}

Whole Modules::AsWhole() {
    return {.steps = [this] { return Steps(); },
            .unloadScreens = [this] { Ask(&Module::Unload); },
            .supervise = [this] { Ask(&Module::Supervise); },
            .sessionEnds = [this] { Ask(&Module::SessionEnds); },
            .release = [this] { Ask(&Module::Release); },
            .settingsRead = [this] { Ask(&Module::SettingsRead); }};
}

} // namespace vk
