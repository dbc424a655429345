// The dimmed screen, and that what was found comes back.
#include "power/dimmer.h"
#include "tests/support/core_test.h"
#include "tests/support/power_fakes.h"

namespace vk::test {
namespace {

struct DimmerTest : CoreTest {
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
    dimmer->SetDimmer(true); // it is dim
    for (const auto& [name, ramp] : found)
        EXPECT_EQ(gamma.displays[name], Halved(ramp)) << name;
}

TEST_F(DimmerTest, AThousandDimsGiveBackWhatWasFoundAlsoOnADriverThatRounds) {
    for (const unsigned mask : {0xFFFFu, 0xFF00u}) {
        gamma.mask = mask;
        for (const DisplayRamp& ramp : gamma.Read())
            gamma.Write(ramp);
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
    auto away = gamma.displays.extract("crtc-2");
    gamma.displays["crtc-3"] = found["crtc-3"] = FakeGamma::Ramp(9);
    gamma.onDisplays();
    EXPECT_EQ(gamma.displays["crtc-3"], Halved(FakeGamma::Ramp(9)));
    gamma.displays["crtc-1"] = found["crtc-1"]; // as after a sleep
    dimmer->Follow();
    EXPECT_EQ(gamma.displays["crtc-1"], Halved(found["crtc-1"]));
    dimmer->SetDimmer(false);
    gamma.displays.insert(std::move(away)); // dark, as it went
    gamma.onDisplays();
    EXPECT_EQ(gamma.displays, found);
    // One that comes back while the screen is dim again.
    dimmer->SetDimmer(true);
    away = gamma.displays.extract("crtc-1");
    dimmer->SetDimmer(false);
    gamma.displays.insert(std::move(away));
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
    const auto dims = [&](int found, int level, const char* refusal, bool dark) {
        state = {};
        backlight.panels = {{"intel", found, 800}};
        if (found == 0) backlight.panels.clear();
        backlight.refusal = refusal;
        dimmer->SetDimmer(true);
        EXPECT_TRUE(state.Dimmed);
        EXPECT_EQ(pane, dark) << refusal;
        EXPECT_TRUE(found == 0 || backlight.panels[0].level == level);
        backlight.refusal.clear();
        dimmer->SetDimmer(false);
        EXPECT_FALSE(pane);
        EXPECT_TRUE(found == 0 || backlight.panels[0].level == found);
    };
    gamma.refuses = true;
    dims(0, 0, "", true);
    EXPECT_TRUE(Logged("Could not set the DeviceRampGamma or perform screen dimming."));
    dimmer = Make(false);
    dims(0, 0, "", true);
    dims(401, 200, "", false);
    dims(1, 1, "", false);
    dims(400, 400, "Permission denied", true);
    EXPECT_TRUE(Logged("The backlight intel could not be dimmed: Permission denied"));
    dimmer->SetDimmer(true);
    dimmer = Make(false); // after a crash
    dimmer->GiveBack();
    EXPECT_EQ(backlight.panels[0].level, 400);
}

} // namespace
} // namespace vk::test
