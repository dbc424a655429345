// The vehicle's hardware without a vehicle.
#pragma once

#include "platform/backlight.h"
#include "platform/gamma.h"
#include "platform/power.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vk::test {

/// A machine that answers when a test says so.
class FakePower : public Power {
  public:
    void Listen() override {}
    void Ask(PowerWish wish, Answer answer) override {
        wishes.push_back(wish);
        answers.push_back(std::move(answer));
    }
    /// Answers what was asked first and is still open.
    void Reply(const std::string& refusal) {
        const Answer answer = std::move(answers.front());
        answers.erase(answers.begin());
        answer(refusal);
    }
    /// To sleep, and back.
    void Sleep() {
        onBroadcast(PBT_APMQUERYSUSPEND, 0);
        onBroadcast(PBT_APMSUSPEND, 0);
    }
    void Wake() { onBroadcast(PBT_APMRESUMESUSPEND, 0); }

    std::vector<PowerWish> wishes;
    std::vector<Answer> answers;
};

/// Displays as a test plugs them in, each with a ramp of its own. Keeps eight bits where told.
class FakeGamma : public Gamma {
  public:
    std::vector<DisplayRamp> Read() const override {
        std::vector<DisplayRamp> ramps;
        for (const auto& [name, ramp] : displays)
            ramps.push_back({name, ramp});
        return ramps;
    }
    bool Write(const DisplayRamp& ramp) override {
        if (refuses || !displays.contains(ramp.display)) return false;
        displays[ramp.display] = ramp.ramp;
        for (auto* channel : {&displays[ramp.display].red, &displays[ramp.display].green})
            for (auto& value : *channel)
                value = static_cast<std::uint16_t>(value & mask);
        return true;
    }
    /// A ramp that is no straight line, another one for each `bend`.
    static GammaRamp Ramp(int bend) {
        GammaRamp ramp;
        for (int i = 0; i < 256; ++i) {
            ramp.red.push_back(static_cast<std::uint16_t>(i * i + bend));
            ramp.green.push_back(static_cast<std::uint16_t>(i * 257));
            ramp.blue.push_back(static_cast<std::uint16_t>(i * 128 + bend % 100));
        }
        return ramp;
    }

    std::map<std::string, GammaRamp> displays;
    bool refuses = false;
    unsigned mask = 0xFFFF;
};

/// Panels that answer at once.
class FakeBacklight : public Backlight {
  public:
    std::vector<PanelLight> Read() const override { return panels; }
    void Set(const std::string& name, int level,
             std::function<void(const std::string&)> answer) override {
        if (!refusal.empty()) return answer(refusal);
        for (PanelLight& panel : panels)
            if (panel.panel == name) panel.level = level;
        answer("");
    }

    std::vector<PanelLight> panels;
    std::string refusal;
};

} // namespace vk::test
