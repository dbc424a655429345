// The server, the instance's claim and the hand-over, over real sockets.
#include "player/engine/event_queue.h"
#include "player/engine/hand_over.h"
#include "player/engine/instance.h"
#include "player/engine/wire_server.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <sys/socket.h>

#include <thread>

namespace vk::test {
namespace {

struct WireServerTest : testing::Test {
    WireServerTest() {
        EXPECT_TRUE(instance.Claim());
        thread = std::thread([this] { Serve(); });
    }
    ~WireServerTest() override {
        end.Post({});
        thread.join();
    }
    void Serve() {
        std::vector<pollfd> items;
        do {
            items.assign({{end.Readable().get(), POLLIN, 0}});
            server.Collect(items);
            ::poll(items.data(), items.size(), -1);
            server.Serve(items);
        } while (end.Take().empty());
    }
    FileDescriptor Connect() const { return ConnectTo(path); }
    static std::optional<std::int32_t>
    Ask(const FileDescriptor& client, const PlayerRequest& request, std::string_view payload = {}) {
        return AskPlayer(client, request, payload, 1000);
    }

    TempFolder folder;
    std::string path = folder.File("socket");
    Instance instance{path};
    EventQueue end;
    std::mutex mutex;
    std::vector<std::pair<std::string, std::int64_t>> lists;
    WireServer server{instance.Listener(),
                      {[](const PlayerRequest& request) -> std::optional<std::int32_t> {
                           if (request.message == 1) return std::nullopt;
                           return request.wParam + request.lParam;
                       },
                       [this](std::string paths, std::int64_t started) {
                           const std::lock_guard lock(mutex);
                           lists.emplace_back(std::move(paths), started);
                       },
                       [](const PlayerRequest&) { return std::string(PlayerTextLimit + 9, 't'); }}};
    std::thread thread;
};

TEST_F(WireServerTest, AnswersEachClientInTurnOrClosesItsConnection) {
    const FileDescriptor first = Connect();
    const FileDescriptor second = Connect();
    EXPECT_EQ(Ask(first, {2, 40, 2}), 42);
    ASSERT_TRUE(SendRequest(first, {13, 0, 0}, {}));
    const AnswerTaken title = TakeAnswer(first, 1000);
    ASSERT_TRUE(title.answer);
    EXPECT_EQ(title.answer->text, std::string(PlayerTextLimit, 't'));
    EXPECT_EQ(Ask(second, {2, -1, 0}), -1);
    EXPECT_EQ(Ask(second, {1, 0, 0}), std::nullopt);
    EXPECT_FALSE(ConnectionAlive(second));
    EXPECT_EQ(Ask(first, {2, 1, 0}), 1);
    EXPECT_TRUE(ConnectionAlive(first));
}

TEST_F(WireServerTest, ClosesWhoBreaksTheProtocolAndServesTheOthers) {
    const FileDescriptor good = Connect();
    const std::string tooLong(PlayerPayloadLimit + 1, 'x');
    for (const std::string& packet : {std::string("short"), std::string(12, '\0') + tooLong}) {
        const FileDescriptor bad = Connect();
        ::send(bad.get(), packet.data(), packet.size(), MSG_NOSIGNAL);
        EXPECT_EQ(Ask(bad, {2, 0, 0}), std::nullopt);
    }
    EXPECT_EQ(Ask(Connect(), {WM_COPYDATA, ListPaths, 0}, "x"), std::nullopt) << "out of turn";
    EXPECT_EQ(Ask(good, {2, 0, 7}), 7);
}

TEST_F(WireServerTest, TakesALongListInOnePieceAndNothingOfOneThatBreaksOff) {
    {
        const FileDescriptor client = Connect();
        EXPECT_EQ(Ask(client, {WM_COPYDATA, ListBegin, 0}, std::string(8, '\0')), 1);
        EXPECT_EQ(Ask(client, {WM_COPYDATA, ListPaths, 0}, "/a"), 1);
    }
    std::vector<std::string> entries;
    std::string expected;
    for (int index = 0; index < 30000; ++index) {
        entries.push_back("/music/track " + std::to_string(index));
        expected += entries.back() + '\0';
    }
    EXPECT_TRUE(HandOver(Connect(), entries, 123));
    const std::lock_guard lock(mutex);
    ASSERT_EQ(lists.size(), 1u);
    EXPECT_EQ(lists[0].second, 123);
    EXPECT_TRUE(lists[0].first == expected);
}

TEST(Instance, GivesThePlaceUpAndTakesItFromTheDead) {
    TempFolder folder;
    const std::string path = folder.Write("socket", "a leftover");
    Instance first(path);
    ASSERT_TRUE(first.Claim());
    EXPECT_TRUE(ConnectTo(path));
    first.Release();
    EXPECT_FALSE(ConnectTo(path));
    EXPECT_FALSE(FileExists(path));
    EXPECT_TRUE(Instance(path).Claim());
    EXPECT_FALSE(Instance(folder.File("no folder/socket")).Claim());
    EXPECT_FALSE(Instance("").Claim());
}

} // namespace
} // namespace vk::test
