// Feeds any bytes, in pieces of any length, to the reader of lircd's lines.
#include "input/remote/lirc_receiver.h"
#include "tests/support/fake_clock.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace vk;

class OpenStream : public LocalStream {
  public:
    bool Connect(const std::string&) override { return true; }
    void Close() override {}
    std::string Input() override { return "2 00 KEY_"; }
};

void Check(bool holds) {
    if (!holds) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    test::FakeClock clock;
    const DebugLog log("/nowhere", clock);
    auto made = std::make_unique<OpenStream>();
    OpenStream& stream = *made;
    LircReceiver receiver(std::move(made), {"socket"}, clock, log);
    receiver.onCode = [&](const std::string& code) {
        Check(!code.empty() && code.size() < LircReceiver::MaxLine);
        Check(code.find_first_of(" \n\"'") == std::string::npos);
        if (code.size() % 2 != 0) receiver.ClearBuff();
    };
    receiver.Start();
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const std::size_t piece = data[0] + std::size_t{1};
    for (std::size_t at = 0; at < bytes.size(); at += piece)
        stream.onBytes(bytes.substr(at, piece));
    stream.onClosed();
    clock.Advance(Reconnector::RetryMs);
    stream.onBytes("0000000000000001 00 KEY_OK remote\n");
    return 0;
}
