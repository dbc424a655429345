// The floors of the house, as the README shows them, held against the include lines.
#include "tests/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace vk::test {
namespace {

namespace fs = std::filesystem;

struct Arrow {
    std::string from, to; ///< files, from the root of the sources
};

std::string FolderOfFile(const std::string& file) {
    return fs::path(file).parent_path().string();
}

std::string RoomOf(const std::string& file) {
    return file.substr(0, file.find('/'));
}

bool IsScreen(const std::string& file) {
    return fs::path(file).parent_path().filename() == "screen";
}

/// Rooms by floor, the ground being the last line of the README's drawing.
std::map<std::string, int> Floors() {
    std::ifstream readme(std::string(VK_SOURCE_DIR) + "/README.md");
    std::map<std::string, int> floors;
    bool drawing = false;
    for (std::string line; std::getline(readme, line);) {
        if (line.starts_with("<!-- floors")) drawing = !drawing;
        if (!drawing || !line.starts_with("    ")) continue;
        std::istringstream words(line);
        const int floor = -static_cast<int>(floors.size()) - 1;
        for (std::string word; words >> word && word.ends_with('/');)
            floors[word.substr(0, word.size() - 1)] = floor;
    }
    return floors;
}

std::vector<Arrow> Arrows(const std::map<std::string, int>& floors) {
    constexpr std::string_view Include = "#include \"";
    std::vector<Arrow> arrows;
    for (const auto& [room, floor] : floors) {
        const fs::path root = fs::path(VK_SOURCE_DIR) / room;
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            const auto extension = entry.path().extension();
            if (extension != ".h" && extension != ".cpp") continue;
            const std::string from = fs::relative(entry.path(), VK_SOURCE_DIR).string();
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);)
                if (line.starts_with(Include))
                    arrows.push_back(
                        {from, line.substr(Include.size(), line.rfind('"') - Include.size())});
        }
    }
    return arrows;
}

/// Folders that lead back to themselves.
std::set<std::string> InACircle(const std::vector<Arrow>& arrows) {
    std::map<std::string, std::set<std::string>> next;
    for (const Arrow& arrow : arrows)
        if (FolderOfFile(arrow.from) != FolderOfFile(arrow.to))
            next[FolderOfFile(arrow.from)].insert(FolderOfFile(arrow.to));
    std::set<std::string> circle;
    for (const auto& [start, unused] : next) {
        std::set<std::string> seen;
        std::vector<std::string> open = {start};
        while (!open.empty()) {
            const std::string at = open.back();
            open.pop_back();
            for (const std::string& to : next[at]) {
                if (to == start) circle.insert(start);
                if (seen.insert(to).second) open.push_back(to);
            }
        }
    }
    return circle;
}

TEST(House, IncludesGoDownAndScreensMeetByName) {
    const auto floors = Floors();
    ASSERT_GE(floors.size(), 10u) << "the README shows the floors";
    const auto arrows = Arrows(floors);
    ASSERT_GE(arrows.size(), 1000u);
    for (const Arrow& arrow : arrows) {
        const std::string from = RoomOf(arrow.from), to = RoomOf(arrow.to);
        const auto target = floors.find(to);
        if (from == to || target == floors.end()) continue;
        EXPECT_GT(floors.at(from), target->second)
            << arrow.from << " includes " << arrow.to << ", which is not below it";
        const bool meets = IsScreen(arrow.from) && IsScreen(arrow.to);
        EXPECT_FALSE(meets) << arrow.from << " includes another screen, " << arrow.to;
    }
    EXPECT_EQ(InACircle(arrows), std::set<std::string>{});
}

} // namespace
} // namespace vk::test
