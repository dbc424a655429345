#include "player/engine/certain_length.h"
#include "player/engine/vlc_output.h"
#include "tests/player/process_fixture.h"

#include <atomic>

namespace vk::test {
namespace {

using namespace std::string_literals;

TEST(CertainLength, IsThatOfContainersAndOfFramesThatTell) {
    const TempFolder folder;
    const std::string frame = "\xFF\xFB\x90\x64"s + std::string(32, '\0');
    const std::string tag = "ID3\4\0\0\0\0\2\0"s + std::string(256, 'x');
    const std::pair<std::string, bool> cases[] = {
        {"RIFFxxxxWAVE", true},
        {"fLaC", true},
        {"\0\0\0\x20"s + "ftypM4A ", true},
        {tag + "fLaC", true},
        {frame + "Xing", true},
        {tag + frame + "Info", true},
        {frame + "VBRI", true},
        {frame + std::string(2000, '\0') + "Xing", false}, // not the first frame's
        {tag + frame, false},
        {"\xFF\xF1\x50\x80 raw AAC", false},
        {"", false},
        {"ID3", false}};
    for (const auto& [bytes, certain] : cases)
        EXPECT_EQ(LengthIsCertain(folder.Write("f", bytes)), certain) << bytes.substr(0, 20);
    EXPECT_FALSE(LengthIsCertain(folder.File("none")));
    EXPECT_FALSE(LengthIsCertain(folder.Path()));
}

/// Twenty silent frames of 320 kbit/s, by which the rest is judged, and ten seconds of 32 kbit/s.
std::string FramesOfTwoRates() {
    std::string frames;
    for (int i = 0; i < 400; ++i)
        frames += i < 20 ? "\xFF\xFB\xE0\x64"s + std::string(1040, '\0')
                         : "\xFF\xFB\x10\x64"s + std::string(100, '\0');
    return frames;
}

TEST(VlcOutputTest, AnEstimatedEndIsNoneAndADeviceThatComesLateIsTaken) {
    const TempFolder folder;
    std::atomic<SoundDevice> device = SoundDevice::None;
    std::atomic<std::int64_t> positionMs = 0;
    std::atomic<int> starts = 0, ends = 0;
    const auto take = [&](const OutputEvent& event) {
        if (event.kind == OutputEvent::Position) positionMs = event.positionMs;
        starts += event.kind == OutputEvent::Started;
        ends += event.kind == OutputEvent::Ended || event.kind == OutputEvent::Failed;
    };
    VlcOutput output(take, [&] { return device.load(); });
    output.Play(1, folder.Write("long.mp3", FramesOfTwoRates()));
    ASSERT_TRUE(Eventually([&] { return starts == 1; }));
    device = SoundDevice::Server;
    ASSERT_TRUE(Eventually([&] { return starts == 2; }));
    output.Prepare(2, folder.Write("next.wav", WaveFile(1000)));
    ASSERT_TRUE(Eventually([&] { return positionMs > 3000 || ends > 0; }));
    EXPECT_EQ(ends, 0);
}

} // namespace
} // namespace vk::test
