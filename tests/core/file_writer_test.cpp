#include "core/file_writer.h"

#include <gtest/gtest.h>

#include <future>
#include <optional>

namespace vk::test {
namespace {

// The first replacement stays under way until it is let go.
struct FileWriterTest : testing::Test {
    bool Replace(const std::string& path, const std::string& contents, std::string* reason) {
        if (done.empty() && !begun.exchange(true)) {
            reached.set_value();
            letGo.get_future().wait();
        }
        done.push_back(path + contents);
        *reason = "full";
        return contents != "bad";
    }
    std::atomic<bool> begun = false;
    std::promise<void> reached, letGo;
    std::vector<std::string> done;
    std::optional<QueuedFileWriter> writer{
        std::in_place, [this](const std::string& path, const std::string& contents,
                              std::string* reason) { return Replace(path, contents, reason); }};
};

TEST_F(FileWriterTest, WritesInOrderAndLaterContentsTakeThePlaceOfTheLastOnesOnly) {
    writer->Replace("a", "1");
    reached.get_future().wait();
    std::vector<std::uint64_t> tickets;
    for (const auto& [path, contents] : {std::pair("a", "2"), {"a", "3"}, {"b", "bad"}, {"a", "4"}})
        tickets.push_back(writer->Replace(path, contents));
    EXPECT_TRUE(writer->TakeOutcomes().empty()) << "the caller was not held";
    letGo.set_value();
    writer->Finish();
    EXPECT_EQ(done, (std::vector<std::string>{"a1", "a3", "bbad", "a4"}));
    const auto outcomes = writer->TakeOutcomes();
    ASSERT_EQ(outcomes.size(), 4u);
    EXPECT_EQ(outcomes[1].ticket, tickets[1]);
    EXPECT_EQ(outcomes[2].path + " " + outcomes[2].reason, "b full");
    EXPECT_TRUE(!outcomes[2].done && outcomes[3].done);
    writer->Replace("c", "5");
    writer.reset();
    EXPECT_EQ(done.back(), "c5") << "what is queued at the end is written";
}

} // namespace
} // namespace vk::test
