// The tuners: the step of the satellite receiver's screen, and its channels.
#pragma once

#include "app/host/host.h"

#include <vector>

namespace vk {

/// The tuners themselves are not part of this system yet.
class TunersModule : public Module {
  public:
    explicit TunersModule(Host& host) : Module(host.modules), host_(host) {}

    std::vector<LoadStep> Steps() override {
        if (!host_.settings.values.xmpcr_enabled) return {};
        return {{{60, 50}, "Loading XM Control", "Loading XM Control"}};
    }

  private:
    Host& host_;
};

} // namespace vk
