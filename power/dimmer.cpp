#include "power/dimmer.h"

#include "platform/files.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

// A panel that is off stays off, and no other becomes it.
int HalfOf(int level) {
    return std::min(level, std::max(1, level / 2));
}

} // namespace

Dimmer::Dimmer(Base& base, Lights lights) : base_(base), lights_(std::move(lights)) {
    if (!lights_.gamma) return;
    ramps_.emplace(*lights_.gamma, [this](const std::vector<DisplayRamp>& ramps) {
        found_.ramps = ramps;
        Keep();
    });
    lights_.gamma->onDisplays = [this] { Follow(); };
}

void Dimmer::SetDimmer(bool force) {
    if (!base_.state.Dimmed) return Dim();
    if (force) return;
    UnDimIt();
    base_.state.Dimmed = false;
}

void Dimmer::Dim() {
    found_ = {};
    base_.state.Dimmed = true;
    if (!DimRamps() && !DimPanels()) DimPane();
}

bool Dimmer::DimRamps() {
    bool dim = false;
    TrapAndLog(base_.report, "", [&] { dim = ramps_ && ramps_->Dim(); });
    if (dim) way_ = Way::Ramps;
    return dim;
}

bool Dimmer::DimPanels() {
    if (lights_.backlight) found_.panels = lights_.backlight->Read();
    if (found_.panels.empty()) return false;
    Keep();
    std::vector<PanelLight> half = found_.panels;
    for (PanelLight& panel : half)
        panel.level = HalfOf(panel.level);
    way_ = Way::Panels;
    SetPanels(half, "dimmed", true);
    return true;
}

void Dimmer::DimPane() {
    way_ = Way::Pane;
    if (lights_.pane) lights_.pane(true);
}

void Dimmer::SetPanels(const std::vector<PanelLight>& panels, const char* what, bool elsePane) {
    const std::weak_ptr<int> alive = alive_;
    for (const PanelLight& panel : panels)
        lights_.backlight->Set(
            panel.panel, panel.level,
            [this, alive, name = panel.panel, what, elsePane](const std::string& refusal) {
                if (alive.expired() || refusal.empty()) return;
                base_.log.WriteDebugLog("The backlight " + name + " could not be " + what + ": " +
                                        refusal);
                if (elsePane && way_ == Way::Panels) DimPane();
            });
}

void Dimmer::UnDimIt() {
    if (!base_.state.Dimmed) return;
    if (way_ == Way::Ramps) ramps_->Restore();
    if (!found_.panels.empty()) SetPanels(found_.panels, "undimmed", false);
    if (way_ == Way::Pane && lights_.pane) lights_.pane(false);
    way_ = Way::None;
    Forget();
}

void Dimmer::GiveBack() {
    auto found = ReadFoundLight(File());
    if (found && ramps_) ramps_->GiveBack(found->ramps);
    if (found && lights_.backlight) {
        std::erase_if(found->panels, [this](const PanelLight& panel) { return !Dark(panel); });
        SetPanels(found->panels, "undimmed", false);
    }
    Forget();
}

// As bright as dimming makes it, so that nobody has set it since.
bool Dimmer::Dark(const PanelLight& found) const {
    return std::ranges::any_of(lights_.backlight->Read(), [&](const PanelLight& now) {
        return now.panel == found.panel && now.level == HalfOf(found.level);
    });
}

void Dimmer::Follow() {
    if (ramps_ && (way_ == Way::Ramps || !base_.state.Dimmed)) ramps_->Follow();
}

void Dimmer::Keep() {
    if (!WriteFoundLight(File(), found_)) base_.log.WriteDebugLog("Could not write " + File());
}

void Dimmer::Forget() {
    found_ = {};
    if (FileExists(File())) DeleteFileAt(File());
}

} // namespace vk
