// Navigation: the step of its screen, and the way to it.
#pragma once

#include "app/host/host.h"

#include <vector>

namespace vk {

/// The screen itself is not part of this system yet.
class NavigationModule : public Module {
  public:
    explicit NavigationModule(Host& host) : Module(host.modules), host_(host) {}

    std::vector<LoadStep> Steps() override {
        if (!Configured()) return {};
        return {{{50, 60}, "Loading GPS System", "Loading GPS System"}};
    }
    /// Shows the GPS screen where there is one.
    void Show() {
        if (Configured()) host_.screens.Show("frmGPS");
    }

  private:
    bool Configured() const { return host_.settings.values.GPSModule != 0; }

    Host& host_;
};

} // namespace vk
