// The dimmed screen, and that what was found comes back.
#include "power/dimmer.h"
#include "tests/support/core_fixture.h"
#include "tests/support/power_fakes.h"

#include <gmock/gmock.h>

namespace vk::test {
namespace {

struct DimmerTest : testing::Test, CoreFixture {
    DimmerTest() {
        gamma.displays = {{"crtc-1", FakeGamma::Ramp(0)}, {"crtc-2", FakeGamma::Ramp(7)}};
    }
    std::unique_ptr<Dimmer> Make(bool ramps = true) {
        return std::make_unique<Dimmer>(base, Dimmer::Lights{ramps ? &gamma : nullptr, &backlight,
                                                             [this](bool dark) { pane = dark; }});
    }
    bool Left() const { return FileExists(settings.File("dimmed.dat")); }

    FakeGamma gamma;
    FakeBacklight backlight;
    bool pane = false;
    std::unique_ptr<Dimmer> dimmer = Make();
};

TEST_F(DimmerTest, HalvesEveryRampToTheEvenNumber) {
    GammaRamp odd = FakeGamma::Ramp(0);
    odd.red = {0, 1, 2, 3, 5, 65535};
    EXPECT_EQ(Halved(odd).red, (std::vector<std::uint16_t>{0, 0, 1, 2, 2, 32768}));
    const auto found = gamma.displays;
    dimmer->SetDimmer(true);
    for (const auto& [name, ramp] : found)
        EXPECT_EQ(gamma.displays[name], Halved(ramp)) << name;
    dimmer->SetDimmer(true); // it is dim
    EXPECT_EQ(gamma.displays["crtc-1"], Halved(found.at("crtc-1")));
}

TEST_F(DimmerTest, AThousandDimsGiveBackWhatWasFoundAlsoOnADriverThatRounds) {
    for (const unsigned mask : {0xFFFFu, 0xFF00u}) {
        gamma.mask = mask;
        gamma.displays = {{"crtc-1", FakeGamma::Ramp(3)}};
        for (auto& value : gamma.displays["crtc-1"].red)
            value = static_cast<std::uint16_t>(value & mask);
        for (auto& value : gamma.displays["crtc-1"].green)
            value = static_cast<std::uint16_t>(value & mask);
        const auto found = gamma.displays;
        for (int i = 0; i < 1000; ++i) {
            dimmer->SetDimmer(false);
            EXPECT_TRUE(state.Dimmed && gamma.displays != found);
            if (i % 3 == 0) gamma.onDisplays(); // nothing has changed
            dimmer->SetDimmer(false);
            ASSERT_TRUE(!state.Dimmed && gamma.displays == found) << i;
        }
    }
    EXPECT_FALSE(Left());
}

TEST_F(DimmerTest, MonitorsThatComeAndGoAreDimmedAndGivenBack) {
    auto found = gamma.displays;
    dimmer->SetDimmer(true);
    const auto away = *gamma.displays.find("crtc-2");
    gamma.displays.erase("crtc-2");
    gamma.displays["crtc-3"] = found["crtc-3"] = FakeGamma::Ramp(9);
    gamma.onDisplays();
    EXPECT_EQ(gamma.displays["crtc-3"], Halved(FakeGamma::Ramp(9)));
    gamma.displays["crtc-1"] = found["crtc-1"]; // as after a sleep
    dimmer->Follow();
    EXPECT_EQ(gamma.displays["crtc-1"], Halved(found["crtc-1"]));
    dimmer->SetDimmer(false);
    gamma.displays.insert(away); // dark, as it went
    gamma.onDisplays();
    EXPECT_EQ(gamma.displays, found);
    // One that comes back while the screen is dim again.
    dimmer->SetDimmer(true);
    const auto gone = *gamma.displays.find("crtc-1");
    gamma.displays.erase("crtc-1");
    dimmer->SetDimmer(false);
    gamma.displays.insert(gone);
    dimmer->SetDimmer(true);
    dimmer->SetDimmer(false);
    EXPECT_EQ(gamma.displays, found);
}

TEST_F(DimmerTest, ACrashIsPutRightByTheNextStartAndWhatOthersHaveSetStays) {
    auto found = gamma.displays;
    dimmer->SetDimmer(true);
    ASSERT_TRUE(Left());
    gamma.displays["crtc-2"] = found["crtc-2"] = FakeGamma::Ramp(50); // the display server is new
    state = {};
    dimmer = Make();
    dimmer->GiveBack();
    EXPECT_EQ(gamma.displays, found);
    EXPECT_FALSE(Left());
    // Every file that a crash can leave.
    WriteFoundLight(settings.File("dimmed.dat"), {{{"crtc-1", found["crtc-1"]}}, {{"p", 3, 9}}});
    const std::string whole = app.Read("dimmed.dat");
    for (std::size_t length = 0; length <= whole.size() + 1; length += 97) {
        app.Write("dimmed.dat", whole.substr(0, length));
        dimmer->GiveBack();
    }
    for (const char* foreign : {"", "ramp", "Velkorandum-light-1 ramp x 99999999999 1",
                                "Velkorandum-light-1 ramp x -1", "Velkorandum-light-1 lamp"})
        app.Write("dimmed.dat", foreign), dimmer->GiveBack();
    EXPECT_EQ(gamma.displays, found);
}

TEST_F(DimmerTest, WithoutARampThePanelsAreDimmedAndWithoutThoseAPaneLiesOverIt) {
    const auto dims = [&](std::vector<PanelLight> panels, const char* refusal, int level,
                          bool dark) {
        state = {};
        backlight.panels = std::move(panels);
        backlight.refusal = refusal;
        dimmer = Make(false);
        dimmer->SetDimmer(true);
        EXPECT_TRUE(state.Dimmed);
        EXPECT_EQ(pane, dark) << refusal;
        EXPECT_TRUE(level < 0 || backlight.panels[0].level == level);
        backlight.refusal.clear();
        dimmer->SetDimmer(false);
        EXPECT_FALSE(pane);
    };
    dims({{"intel", 401, 800}}, "", 200, false);
    EXPECT_EQ(backlight.panels[0].level, 401);
    dims({{"intel", 1, 800}}, "", 1, false);
    dims({{"intel", 400, 800}}, "Permission denied", 400, true);
    EXPECT_TRUE(Logged("The backlight intel could not be dimmed: Permission denied"));
    dims({}, "", -1, true);
    backlight.panels = {{"intel", 401, 800}};
    dimmer = Make(false);
    dimmer->SetDimmer(true);
    dimmer = Make(false); // after a crash
    dimmer->GiveBack();
    EXPECT_EQ(backlight.panels[0].level, 401);
}

TEST_F(DimmerTest, ADriverThatRefusesTheRampIsLogged) {
    gamma.refuses = true;
    dimmer->SetDimmer(true);
    EXPECT_TRUE(Logged("Could not set the DeviceRampGamma or perform screen dimming."));
    EXPECT_TRUE(pane) << "the driver is dazzled all the same";
    dimmer->SetDimmer(false);
    EXPECT_FALSE(pane);
}

} // namespace
} // namespace vk::test
