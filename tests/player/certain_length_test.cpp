#include "player/engine/certain_length.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace vk::test
