// Tuning the FM radio, its library, and the library over Video4Linux.
#include "platform/loaded_library.h"
#include "tests/sim/radio/sim_radio.h"
#include "tests/support/core_test.h"
#include "tests/support/fake_radio.h"
#include "tuners/fm/fm_tuner.h"
#include "tuners/v4l2/v4l2_radio.h"

#include <linux/videodev2.h>

#include <cerrno>

namespace vk::test {

using testing::ElementsAre;

struct FMTest : CoreTest {
    FakeRadio radio;
    bool library = true;
    FMTuner tuner{base, [this](std::string& reason) -> std::unique_ptr<Radio> {
                      reason = "no library";
                      return library ? std::make_unique<RadioLink>(radio) : nullptr;
                  }};
    std::vector<double> shown;
    bool stereo = false;

    FMTest() {
        settings.LoadSettings();
        tuner.listener = {.frequency = [this] { shown.push_back(tuner.Frequency()); },
                          .stereo = [this](bool on) { stereo = on; }};
    }
    ~FMTest() override {
        EXPECT_EQ(radio.wrong, 0);
        EXPECT_FALSE(radio.open);
    }
    void Tick(int times = 1) {
        for (int i = 0; i < times; ++i) {
            clock.Advance(100);
            tuner.Tick();
        }
    }
};

TEST_F(FMTest, StepsRoundAndRound) {
    tuner.FineTuneUp(); // off: nothing
    EXPECT_TRUE(radio.sent.empty());
    ASSERT_TRUE(tuner.TurnOn(87.7));
    EXPECT_THAT(radio.sent, ElementsAre(1754));
    tuner.FineTuneDown();
    EXPECT_DOUBLE_EQ(tuner.Frequency(), 107.9);
    tuner.FineTuneUp();
    EXPECT_THAT(shown, ElementsAre(107.9, 87.7));
    for (int i = 0; i < 101; ++i)
        tuner.FineTuneUp();
    EXPECT_DOUBLE_EQ(tuner.Frequency(), 107.9) << "no step adds an error";
    EXPECT_EQ(FrequencyText(96.5), "96.50");
    tuner.Tune(99.95);
    tuner.Tune(120);
    EXPECT_EQ(radio.sent.back(), 1999);
    tuner.TurnOff();
    EXPECT_FALSE(radio.on);
}

TEST_F(FMTest, SeeksToTheNextStationInStereo) {
    radio.stereo = {1758, 1770}; // 87.9 and 88.5
    tuner.TurnOn(88.1);
    tuner.ToggleSeek(SeekUp);
    Tick(5);
    EXPECT_DOUBLE_EQ(tuner.Frequency(), 88.5);
    EXPECT_EQ(tuner.State(), SeekHolds);
    Tick(25);
    EXPECT_EQ(tuner.State(), SeekIdle);
    Tick();
    EXPECT_TRUE(stereo);
    tuner.ToggleSeek(SeekDown);
    tuner.ToggleSeek(SeekUp); // the other direction ends it, too
    EXPECT_EQ(tuner.State(), SeekIdle);
    tuner.ToggleSeek(SeekDown);
    Tick();
    EXPECT_DOUBLE_EQ(tuner.Frequency(), 88.3);
    EXPECT_TRUE(stereo) << "it settles first";
    clock.Advance(130);
    EXPECT_FALSE(stereo);
    Tick(7);
    EXPECT_DOUBLE_EQ(tuner.Frequency(), 87.9);
    EXPECT_EQ(tuner.State(), SeekHolds);
    tuner.ToggleSeek(SeekUp);
    EXPECT_EQ(tuner.State(), SeekIdle);
    tuner.Hold();
    Tick(8);
    EXPECT_FALSE(stereo) << "held after a step by hand";
    tuner.ToggleSeek(SeekUp); // out of the hold
    tuner.ToggleSeek(SeekUp);
    radio.refused = 1762;
    Tick();
    EXPECT_EQ(tuner.State(), SeekUp) << "a frequency that is refused is passed";
    const auto sent = radio.sent.size();
    Tick(20);
    EXPECT_GE(radio.sent.size() - sent, 1u);
    EXPECT_LE(clock.slept, 0) << "nothing stands still";
}

TEST_F(FMTest, ALibraryOrTunerThatIsMissingCostsOneLineAndMayComeLater) {
    library = false;
    EXPECT_FALSE(tuner.TurnOn(96.5));
    EXPECT_EQ(tuner.Name(), "");
    EXPECT_EQ(LinesLogged("There is no FM radio: no library"), 1);
    library = true;
    EXPECT_TRUE(tuner.TurnOn(96.5));
    EXPECT_EQ(tuner.Name(), "Fake radio");
    radio.there = false;
    tuner.ToggleSeek(SeekUp);
    Tick(50);
    EXPECT_EQ(tuner.State(), SeekUp);
    EXPECT_FALSE(stereo);
    tuner.FineTuneUp();
    EXPECT_DOUBLE_EQ(tuner.Frequency(), 96.5);
    EXPECT_EQ(LinesLogged("The FM radio does not answer"), 1);
    tuner.TurnOff();
    radio.there = true;
    EXPECT_TRUE(tuner.TurnOn(96.5));
    EXPECT_TRUE(radio.on);
}

TEST(RadioLibrary, IsWorkedByItsFiveCalls) {
    TempFolder app;
    std::string reason;
    EXPECT_EQ(LoadRadioLibrary(app.File("none"), reason), nullptr);
    EXPECT_FALSE(reason.empty());
    std::filesystem::copy_file(VK_RADIO_SIM, app.File("libvkradio.so"));
    const auto radio = LoadRadioLibrary(app.Path(), reason);
    ASSERT_TRUE(radio) << reason;
    const auto library = LoadFirstLibrary({app.File("libvkradio.so")}, reason);
    SimRadio& sim = *library->Get<SimRadio* (*)()>("SimRadioState")();
    EXPECT_EQ(radio->Name(), "Simulated FM radio");
    EXPECT_TRUE(radio->open_radio());
    radio->turn_power(true);
    EXPECT_TRUE(radio->set_freq(1930) && radio->get_stereo());
    EXPECT_TRUE(radio->set_freq(1932) && !radio->get_stereo());
    radio->close_radio();
    EXPECT_TRUE(sim.on && !sim.open);
    sim.there = false;
    EXPECT_FALSE(radio->open_radio());
}

/// /dev/radio1 as the kernel answers for it.
struct FakeDevice {
    bool there = true, fine = true, stereo = true;
    int opens = 0, muted = -1, signal = 0xFFFF;
    std::uint32_t frequency = 0, lowest = 1390000, highest = 1730000; ///< in units of 62.5 Hz
} device;

int Ask(int, unsigned long request, void* argument) {
    if (!device.there) return -ENODEV;
    if (request == VIDIOC_QUERYCAP) {
        std::copy_n("Si470x", 7, static_cast<v4l2_capability*>(argument)->card);
    } else if (request == VIDIOC_G_TUNER) {
        auto& tuner = *static_cast<v4l2_tuner*>(argument);
        if (tuner.index != 0) return -EINVAL;
        tuner.type = V4L2_TUNER_RADIO;
        tuner.capability = device.fine ? V4L2_TUNER_CAP_LOW : 0;
        tuner.rxsubchans = device.stereo ? V4L2_TUNER_SUB_STEREO : V4L2_TUNER_SUB_MONO;
        tuner.signal = device.signal;
    } else if (request == VIDIOC_S_CTRL) {
        device.muted = static_cast<v4l2_control*>(argument)->value;
    } else if (request == VIDIOC_S_FREQUENCY) {
        device.frequency = static_cast<v4l2_frequency*>(argument)->frequency;
        const std::uint32_t units = device.fine ? device.frequency : device.frequency * 1000;
        if (units < device.lowest || units > device.highest) return -ERANGE;
    }
    return 0;
}

constexpr DeviceCalls Calls = {[](const char* path) {
                                   const bool open =
                                       device.there && std::string(path) == "/dev/radio1";
                                   device.opens += open ? 1 : 0;
                                   return open ? 7 : -1;
                               },
                               [](int) { --device.opens; }, Ask};

TEST(V4l2Radio, StaysOpenWhileItIsOnAndIsFoundAgain) {
    device = {};
    {
        V4l2Radio radio(Calls, "");
        EXPECT_EQ(radio.Name(), "Si470x");
        EXPECT_EQ(device.opens, 0);
        ASSERT_TRUE(radio.Open());
        radio.TurnPower(true);
        EXPECT_EQ(device.muted, 0);
        EXPECT_TRUE(radio.SetFreq(1930));
        EXPECT_EQ(device.frequency, 1544000u);
        EXPECT_FALSE(radio.SetFreq(3000));
        radio.Close();
        EXPECT_EQ(device.opens, 1) << "or it would fall silent";
        EXPECT_TRUE(radio.Open() && radio.Stereo());
        device.signal = 100;
        EXPECT_FALSE(radio.Stereo()) << "noise";
        device.there = false;
        EXPECT_FALSE(radio.Open());
        device.there = true;
        device.fine = false;
        EXPECT_TRUE(radio.Open());
        EXPECT_TRUE(radio.SetFreq(1930));
        EXPECT_EQ(device.frequency, 1544u);
        radio.TurnPower(true);
        radio.TurnPower(false);
        EXPECT_EQ(device.muted, 1);
        radio.Close();
        EXPECT_EQ(device.opens, 0);
    }
    for (const char* name : {"/dev/radio0", "/dev/radio1:1"})
        EXPECT_FALSE(V4l2Radio(Calls, name).Open()) << name;
    EXPECT_TRUE(V4l2Radio(Calls, "/dev/radio1:0").Open());
    EXPECT_EQ(device.opens, 0);
}

} // namespace vk::test
