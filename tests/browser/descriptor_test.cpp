// Descriptors: what rows and the history store.
#include "browser/browse_history.h"
#include "library/descriptor.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(DescriptorTest, WhatIsWrittenIsReadAgain) {
    const std::pair<Descriptor, const char*> rows[] = {
        {Descriptor::File("/a|b:c.mp3"), "FILE:/a|b:c.mp3"},
        {Descriptor::FilmDisc(), "FILE:DVDVIDEO"},
        {Descriptor::Path("/"), "PATH:/"},
        {Descriptor::Sql("BrowseAll"), "SQL:BrowseAll"},
        {Descriptor::Sql("BrowseArtist", "Artist='A|B'"), "SQL:BrowseArtist|Artist='A|B'"},
        {Descriptor::Sql("SearchTitle", ""), "SQL:SearchTitle|"},
        {Descriptor::Edit(""), "EDIT:"},
        {Descriptor::Freq("96.5"), "FREQ:96.5"},
        {Descriptor::XM(), "XM:"},
        {Descriptor::XM("List", "/x|y.xcl"), "XM:List|/x|y.xcl"},
        {Descriptor::Channel(12), "XM:Channel|12"},
        {{}, ""}};
    std::string history;
    for (const auto& [row, text] : rows) {
        EXPECT_EQ(row.Text(), text);
        EXPECT_EQ(Descriptor::Parse(text), row);
        PushHistory(history, text);
    }
    for (const char* none : {"FILE", "file:/a", "junk:/a", ":", "|"})
        EXPECT_EQ(Descriptor::Parse(none), Descriptor{}) << none;
    PopHistory(history); // the inert one separates nothing
    for (auto row = std::rbegin(rows) + 2; row != std::rend(rows); ++row)
        EXPECT_EQ(PopHistory(history), row->second);
}

} // namespace
} // namespace vk
