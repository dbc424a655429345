// All subsystems in their order.
#pragma once

#include "app/host/module.h"

#include <vector>

namespace vk {

class Modules {
  public:
    /// It is asked for as long as it and this object live; neither is used after the other's end.
    void Add(Module& module) { modules_.push_back(&module); }
    /// Asks each for the same, in their order.
    template<class... Parameters, class... Arguments>
    void Ask(void (Module::*operation)(Parameters...), Arguments... arguments) const {
        for (Module* module : modules_)
            (module->*operation)(arguments...);
    }
    /// Every step that is due.
    std::vector<LoadStep> Steps() const;
    /// Every page of the settings that a subsystem has.
    std::vector<Page> Pages() const;
    /// As the start needs them.
    Whole AsWhole();

  private:
    std::vector<Module*> modules_;
};

} // namespace vk
