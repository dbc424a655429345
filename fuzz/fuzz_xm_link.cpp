// Feeds any bytes to the satellite receiver's link, as frames and as noise: the whole control runs
// behind it on a clock of its own. It may end dead or closed, and must come back.
#include "tests/support/core_fixture.h"
#include "tests/support/fake_serial_port.h"
#include "tuners/xm/frames.h"
#include "tuners/xm/frm_xm_ctl.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace {

using namespace vk;

std::string PowerOnAnswer() {
    std::string payload(27, ' ');
    payload[0] = '\x80';
    return Frame(payload);
}

struct Link : test::CoreFixture {
    Link() {
        std::filesystem::remove_all(app.Path()); // the log writes nothing then
        settings.values.showXMTime = settings.values.XMDataLogging = true;
    }
    void TurnOn() {
        xm.Form_Load();
        clock.Advance(600);
        port->Receive(PowerOnAnswer());
        clock.Advance(10);
        if (!xm.On()) std::abort();
    }

    ChannelTable channels;
    test::FakeSerialPort* port = new test::FakeSerialPort;
    frmXMCtl xm{{.base = base,
                 .channels = channels,
                 .port = std::unique_ptr<SerialPort>(port),
                 .ports =
                     [] {
                         SerialList list;
                         list[0] = {"XMPCR", "/dev/x"};
                         return list;
                     },
                 .line = {[] {}, [] {}},
                 .plays = [] { return false; }}};
};

// The first byte of a piece says what it is: a frame of the bytes that follow, or only they.
void Feed(Link& link, std::string_view bytes) {
    while (bytes.size() > 2) {
        const auto kind = static_cast<unsigned char>(bytes[0]);
        const std::size_t size =
            std::min<std::size_t>(static_cast<unsigned char>(bytes[1]), bytes.size() - 2);
        const std::string piece(bytes.substr(2, size));
        link.port->Receive(kind % 4 == 0 ? piece : Frame(piece));
        if (kind % 8 == 1) link.clock.Advance(kind * 20);
        if (kind == 254) link.xm.SetChannel(piece.empty() ? 0 : piece[0]);
        if (kind == 255) link.port->Unplug();
        bytes.remove_prefix(2 + size);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Link link;
    link.port->present = true;
    link.TurnOn();
    Feed(link, {reinterpret_cast<const char*>(data), size});
    if (!link.dialogs.shown.empty()) std::abort();
    link.xm.PowerDown();
    if (link.xm.On() || link.port->PortOpen()) std::abort();
    return 0;
}
