#include "library/descriptor.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(Descriptor, IsSplitAtTheFirstColonAndTheFirstBar) {
    const struct {
        std::string text, kind, body, argument, rest;
    } cases[] = {
        {"FILE:/m/a.mp3", "FILE", "/m/a.mp3", "", "/m/a.mp3"},
        {"FILE:/m/1|2|3.mp3", "FILE", "/m/1", "2|3.mp3", "/m/1|2|3.mp3"},
        {"SQL:BrowseArtist|Artist='A|B: C'", "SQL", "BrowseArtist", "Artist='A|B: C'",
         "BrowseArtist|Artist='A|B: C'"},
        {"XM:", "XM", "", "", ""},
        {"XM:List|", "XM", "List", "", "List|"},
        {"a|b:c", "a|b", "c", "", "c"},
        {"", "", "", "", ""},
        {"no colon", "no colon", "", "", ""},
    };
    for (const auto& expected : cases) {
        const RowDescriptor split = SplitDescriptor(expected.text);
        EXPECT_EQ(split.kind, expected.kind) << expected.text;
        EXPECT_EQ(split.body, expected.body) << expected.text;
        EXPECT_EQ(split.argument, expected.argument) << expected.text;
        EXPECT_EQ(split.Rest(), expected.rest) << expected.text;
    }
}

} // namespace
} // namespace vk
