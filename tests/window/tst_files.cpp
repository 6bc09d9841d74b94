// SPDX-License-Identifier: MIT
// Files under real conditions: what is refused, what a replaced file keeps, what a failure leaves.
#include "desktop/surroundings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// An empty folder that goes with the test.
class FilesTest : public testing::Test {
protected:
    FilesTest() {
        std::string name = (fs::temp_directory_path() / "tst_files.XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    ~FilesTest() override { fs::remove_all(folder); }

    std::string at(const std::string& name) const { return (folder / name).string(); }

    static void put(const std::string& file, std::string_view bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
    }

    static std::string get(const std::string& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// Writes and commits; the first error.
    std::error_code save(const std::string& file, std::string_view bytes) {
        std::error_code error;
        const auto writer = files.create(file, error);
        EXPECT_EQ(writer == nullptr, static_cast<bool>(error));
        if (writer)
            error = writer->write(bytes);
        return writer && !error ? writer->commit() : error;
    }

    std::set<std::string> names() const {
        std::set<std::string> result;
        for (const auto& entry : fs::directory_iterator(folder))
            result.insert(entry.path().filename().string());
        return result;
    }

    fs::path folder;
    desktop::Files files;
};

TEST_F(FilesTest, WritesWhatWasGivenInPiecesOfAnySize) {
    for (const std::size_t piece : {1000U, 65536U, 700000U}) {
        std::string all;
        std::error_code error;
        const auto writer = files.create(at("a.txt"), error);
        ASSERT_TRUE(writer) << error.message();
        while (all.size() < 700000) {
            const std::string bytes(piece, static_cast<char>('a' + all.size() % 23));
            ASSERT_FALSE(writer->write(bytes));
            all += bytes;
        }
        ASSERT_FALSE(writer->commit());
        EXPECT_TRUE(get(at("a.txt")) == all) << piece;
    }
    EXPECT_FALSE(save(at("a.txt"), ""));
    EXPECT_EQ(get(at("a.txt")), "");
    EXPECT_EQ(names(), std::set<std::string>{"a.txt"});
}

TEST_F(FilesTest, OldFileStaysUntilCommitAndWhereverWritingFails) {
    put(at("a.txt"), "old");
    const std::string bytes(600000, 'x');
    for (const rlim_t room :
        {RLIM_INFINITY, rlim_t{0}, rlim_t{1}, rlim_t{262144}, rlim_t{599999}}) {
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit limit{room, room};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            std::error_code error;
            if (auto writer = files.create(at("a.txt"), error); room == RLIM_INFINITY) {
                const bool wrong = writer->write(bytes) || get(at("a.txt")) != "old";
                writer.reset(); // and no commit
                ::_exit(wrong ? 1 : 0);
            }
            ::_exit(save(at("a.txt"), bytes) == std::errc::file_too_large ? 0 : 1);
        }
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << room;
        EXPECT_EQ(get(at("a.txt")), "old") << room;
        EXPECT_EQ(names(), std::set<std::string>{"a.txt"}) << room;
    }
}

TEST_F(FilesTest, ReplacedFileKeepsModeAndLinks) {
    fs::create_directory(at("sub"));
    put(at("sub/a.txt"), "old");
    ::chmod(at("sub/a.txt").c_str(), 0640);
    fs::create_symlink("sub/a.txt", at("link"));
    fs::create_symlink("sub/new.txt", at("dangling"));
    EXPECT_FALSE(save(at("link"), "new"));
    EXPECT_TRUE(fs::is_symlink(at("link")));
    EXPECT_EQ(get(at("sub/a.txt")), "new");
    EXPECT_FALSE(save(at("dangling"), "made"));
    EXPECT_EQ(get(at("sub/new.txt")), "made");
    EXPECT_EQ(fs::status(at("sub/a.txt")).permissions(), fs::perms{0640});
}

} // namespace
