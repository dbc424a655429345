// The dimmed screen: by the gamma ramps, else by the panels' backlight, else by a dark pane.
#pragma once

#include "core/base.h"
#include "platform/backlight.h"
#include "power/found_light.h"
#include "power/ramp_dimming.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vk {

class Dimmer {
  public:
    /// What there is to dim with; null for what the machine lacks. All of it outlives this object.
    struct Lights {
        Gamma* gamma = nullptr;
        Backlight* backlight = nullptr;
        std::function<void(bool)> pane; ///< shows the dark pane, or takes it away
    };
    Dimmer(Base& base, Lights lights);

    /// `force`: dims, unless it is dim. Else the other way about.
    void SetDimmer(bool force);
    /// Restores what was found before the screen was dimmed.
    void UnDimIt();
    /// Gives back what a run that crashed has left dimmed; called once, at the start.
    void GiveBack();
    /// Displays came or went, or the machine has slept.
    void Follow();

  private:
    enum class Way { None, Ramps, Panels, Pane };
    void Dim();
    bool DimRamps();
    bool DimPanels();
    void DimPane();
    void SetPanels(const std::vector<PanelLight>& panels, const char* what, bool elsePane);
    bool Dark(const PanelLight& found) const;
    void Keep();
    void Forget();
    std::string File() const { return base_.settings.File("dimmed.dat"); }

    Base& base_;
    Lights lights_;
    std::optional<RampDimming> ramps_;
    Way way_ = Way::None;
    FoundLight found_;
    std::shared_ptr<int> alive_ = std::make_shared<int>(); ///< answers may come later
};

} // namespace vk
