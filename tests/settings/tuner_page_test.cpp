// The page for the two tuners, by what its rows say and do.
#include "settings/tuner_page.h"
#include "tests/support/fake_radio.h"
#include "tests/tuners/xm_fixture.h"

namespace vk::test {
namespace {

struct TunerPageTest : XMTest {
    FakeRadio radio;
    FMTuner fm{base, [this](std::string&) { return std::make_unique<RadioLink>(radio); }};
    Page page = TunerPage({base, fm, *made, [] {
                               return std::vector<Option>{{"", "None"}, {"hw:1", "Stick"}};
                           }});

    TunerPageTest() {
        settings.LoadSettings();
        screens.CurrentForm = page.name;
        page.enter();
    }
    const Row& Find(const std::string& name) {
        for (const Row& row : page.rows)
            if (row.name && row.name == name) return row;
        ADD_FAILURE() << name;
        return page.rows.front();
    }
    std::string Says(const std::string& name) { return Find(name).text(); }
    void Step(const std::string& name) { Find(name).ends.back().use(); }
};

TEST_F(TunerPageTest, EachControlActsAtOnce) {
    const struct {
        const char *row, *before, *after, *section, *key, *written;
    } cases[] = {
        {"cboDLinkInput", "Sound comes by: None", "Sound comes by: Line In", "dlink_tuner",
         "audio_input", "1"},
        {"capture", "Tuner's own sound device: None", "Tuner's own sound device: Stick",
         "dlink_tuner", "capture", "hw:1"},
        {"cboCmdInterval", "Command interval: 140 ms", "Command interval: 160 ms", "xmpcr_tuner",
         "commandInterval", "160"},
        {"cboTimeout", "Timeout: 4 s", "Timeout: 5 s", "xmpcr_tuner", "timeout", "5000"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Says(c.row), c.before);
        Step(c.row);
        EXPECT_EQ(Says(c.row), c.after);
        EXPECT_EQ(settings.Read(c.section, c.key), c.written);
    }
    EXPECT_EQ(Says("frmFM"), "D-Link USB FM Tuner\nFake radio");
    EXPECT_FALSE(Find("opXM").usable());
    Find("ckFM_Enabled").use();
    EXPECT_EQ(settings.Read("dlink_tuner", "enabled"), "true");
    settings.values.xmpcr_enabled = true;
    EXPECT_TRUE(Find("opXM").usable());
    Find("opXM").use();
    EXPECT_EQ(settings.Read("main", "FirstRadioType"), "1");
    app.Write("presets.lst", "95.1:One\r\n96.5:Two\r\n");
    EXPECT_EQ(Says("lstFMPresets"), "95.1 One, 96.5 Two");
    dialogs.answers = {false};
    Find("btnClearFMPresets").use();
    EXPECT_TRUE(FileExists(app.File("presets.lst"))) << "not without a question";
    Find("btnClearFMPresets").use();
    EXPECT_EQ(Says("lstFMPresets"), "No preset stations");
}

TEST_F(TunerPageTest, TheReceiverIsLookedForAndLeft) {
    EXPECT_EQ(Says("lbXMStatus"), "XMPCR Disabled");
    Find("ckXM_Enabled").use();
    clock.Advance(100);
    EXPECT_EQ(Says("lbXMPort"), "XM Com Port: 3");
    clock.Advance(3000);
    EXPECT_EQ(Says("lblXMID"), "Receiver ID: VK012345");
    EXPECT_EQ(Says("pbXMSignal"), "Signal Strength: 96%");
    EXPECT_EQ(Find("pbXMSignal").percent(), 96);
    receiver.script.signal = receiver.script.antenna = 0;
    clock.Advance(3000);
    EXPECT_EQ(Says("pbXMSignal"), "Antenna Disconnected");
    page.leave();
    page.enter();
    EXPECT_EQ(Says("lbXMStatus"), "Found XMPCR\nXMPCR") << "by its port's name, too";
    Find("ckXM_Enabled").use();
    EXPECT_FALSE(xm().On() || port->PortOpen());
    EXPECT_EQ(Says("lbXMStatus") + Says("lbXMPort"), "XMPCR DisabledXM Com Port: ");
    EXPECT_EQ(settings.Read("xmpcr_tuner", "port") + settings.Read("xmpcr_tuner", "enabled"),
              "false");
    receiverAt.clear();
    Find("ckXM_Enabled").use();
    clock.Advance(9000);
    EXPECT_EQ(Says("lbXMStatus"), "No XMPCR Found");
    EXPECT_FALSE(settings.values.xmpcr_enabled);
}

} // namespace
} // namespace vk::test
