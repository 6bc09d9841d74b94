// SPDX-License-Identifier: MIT
// Holds the order of the rooms: who may include whom, and who may know the toolkit.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
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

struct Source {
    std::string room;
    std::string text;
    std::vector<std::string> own; ///< includes of our own headers
    std::vector<std::string> foreign; ///< all others
};

std::map<std::string, Source> scan() {
    const fs::path root = KESTRELWOOD_SOURCES;
    static const std::regex include(R"re(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"])re");
    std::map<std::string, Source> sources;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const fs::path path = fs::relative(entry.path(), root);
        if (path.extension() != ".h" && path.extension() != ".cpp")
            continue;
        Source& source = sources[path.generic_string()];
        source.room = roomOf(path);
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            std::smatch found;
            if (std::regex_search(line, found, include))
                (found[1] == "\"" ? source.own : source.foreign).push_back(found[2]);
            else
                source.text += line.substr(0, line.find("//")) + "\n";
        }
    }
    return sources;
}

TEST(Architecture, ArrowsOnlyPointDown) {
    const auto sources = scan();
    ASSERT_GT(sources.size(), 40U) << "hardly anything found below " << KESTRELWOOD_SOURCES;
    std::set<std::string> met;
    std::size_t arrows = 0;
    for (const auto& [name, source] : sources) {
        ASSERT_TRUE(Floors.contains(source.room)) << name << " lies in no known room";
        met.insert(source.room);
        for (const auto& header : source.own) {
            const std::string room = roomOf(header);
            ++arrows;
            ASSERT_TRUE(sources.contains(header)) << name << " includes " << header;
            EXPECT_TRUE(room == source.room || Floors.at(room) < Floors.at(source.room))
                << name << " includes " << header;
        }
    }
    EXPECT_GT(arrows, 80U);
    EXPECT_EQ(met.size(), Floors.size()) << "a room has gone";
}

TEST(Architecture, OnlyTheUpperRoomsKnowToolkitAndPlatform) {
    const std::regex foreign(R"(\b(Q[A-Z][A-Za-z]+|Qt|fluid_\w+|Q_OBJECT)\b)");
    static const std::regex standard(R"([a-z_]+)");
    int seen = 0;
    for (const auto& [name, source] : scan()) {
        std::smatch found;
        const bool names = std::regex_search(source.text, found, foreign);
        if (ToolkitRooms.contains(source.room.substr(0, source.room.find('/')))) {
            seen += names;
            continue;
        }
        EXPECT_FALSE(names) << name << " mentions " << found.str();
        for (const auto& header : source.foreign)
            EXPECT_TRUE(std::regex_match(header, standard) && !header.ends_with("fcntl"))
                << name << " includes <" << header << ">";
    }
    EXPECT_GT(seen, 0) << "the toolkit isn't even found where it is";
}

TEST(Architecture, NoLoopsBetweenFiles) {
    const auto sources = scan();
    std::map<std::string, int> mark; // 1 on the way, 2 done
    const std::function<void(const std::string&, const std::string&)> visit
        = [&](const std::string& name, const std::string& way) {
              if (mark[name] == 1)
                  FAIL() << "loop: " << way << " > " << name;
              if (std::exchange(mark[name], 1) == 2) {
                  mark[name] = 2;
                  return;
              }
              if (const auto found = sources.find(name); found != sources.end())
                  for (const auto& header : found->second.own)
                      visit(header, way + " > " + name);
              mark[name] = 2;
          };
    for (const auto& [name, source] : sources)
        visit(name, "");
}

} // namespace
