// SPDX-License-Identifier: MIT
// Holds the order of the rooms: who may include whom, and who may know the toolkit.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

namespace {

namespace fs = std::filesystem;

const std::map<std::string, int> Floors{{"platform", 0}, {"controls", 0}, {"chances", 0},
    {"forms", 1}, {"progress", 2}, {"grids", 3}, {"stats", 3}, {"coup", 4}, {"files", 5},
    {"info", 5}, {"shell", 6}, {"look", 7}, {"desktop", 8}, {"window/controls", 9},
    {"window/grid", 10}, {"window/tableau", 10}, {"window/forms", 11}, {"window", 12},
    {"main.cpp", 13}};

const std::set<std::string> ToolkitRooms{"look", "desktop", "window", "main.cpp"};

/// The room of a file: its folder, and in the window the inner one.
std::string roomOf(const fs::path& path) {
    const fs::path folder = path.parent_path();
    if (folder.empty())
        return path.string();
    return *folder.begin() == "window" ? folder.generic_string() : folder.begin()->string();
}

TEST(Architecture, ArrowsOnlyPointDownAndOnlyTheUpperRoomsKnowToolkitAndPlatform) {
    const fs::path root = KESTRELWOOD_SOURCES;
    const std::regex include(R"re(^\s*#\s*include\s*([<"])([^>"]+)[>"])re");
    const std::regex standard("[a-z_]+");
    std::set<std::string> met;
    int arrows = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const fs::path path = fs::relative(entry.path(), root);
        if (path.extension() != ".h" && path.extension() != ".cpp")
            continue;
        const std::string room = roomOf(path);
        ASSERT_TRUE(Floors.contains(room)) << path << " lies in no known room";
        met.insert(room);
        const bool upper = ToolkitRooms.contains(room.substr(0, room.find('/')));
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            std::smatch found;
            if (!std::regex_search(line, found, include))
                continue;
            const std::string header = found[2];
            if (found[1] == "<") {
                EXPECT_TRUE(upper || std::regex_match(header, standard)) << path << line;
                continue;
            }
            ++arrows;
            const auto floor = Floors.find(roomOf(header));
            ASSERT_TRUE(floor != Floors.end() && fs::exists(root / header)) << path << line;
            EXPECT_TRUE(floor->first == room || floor->second < Floors.at(room)) << path << line;
        }
    }
    EXPECT_GT(arrows, 80);
    EXPECT_EQ(met.size(), Floors.size()) << "a room has gone";
}

} // namespace
