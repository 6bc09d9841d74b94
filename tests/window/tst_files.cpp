// SPDX-License-Identifier: MIT
// Files under real conditions: what is refused, what a replaced file keeps, what a failure leaves.
#include "desktop/linux/system.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
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

/// Root may do everything; this makes the test an ordinary user for a while.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const fs::path& folder) : root_(::geteuid() == 0) {
        constexpr uid_t Nobody = 65534;
        if (root_) {
            EXPECT_EQ(::chown(folder.c_str(), Nobody, Nobody), 0);
            EXPECT_EQ(::seteuid(Nobody), 0);
        }
    }
    ~OrdinaryUser() {
        if (root_) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool root_;
};

TEST_F(FilesTest, WritesWhatWasGivenInPiecesOfAnySize) {
    for (const std::size_t piece : {1U, 5U, 4096U, 262143U, 262144U, 300000U}) {
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
    EXPECT_EQ(fs::file_size(at("a.txt")), 0U);
    EXPECT_EQ(names(), std::set<std::string>{"a.txt"});
}

TEST_F(FilesTest, OldFileStaysUntilCommit) {
    put(at("a.txt"), "old");
    std::error_code error;
    auto writer = files.create(at("a.txt"), error);
    ASSERT_TRUE(writer);
    writer->write(std::string(1000000, 'x'));
    EXPECT_EQ(get(at("a.txt")), "old");
    writer.reset();
    EXPECT_EQ(get(at("a.txt")), "old");
    EXPECT_EQ(names(), std::set<std::string>{"a.txt"});
}

TEST_F(FilesTest, FailingWriteAtAnySizeKeepsOldFile) {
    put(at("a.txt"), "old");
    constexpr std::size_t Size = 600000;
    for (const rlim_t room : {0U, 1U, 4095U, 262144U, 599999U}) {
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit limit{room, room};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            ::_exit(save(at("a.txt"), std::string(Size, 'x')) == std::errc::file_too_large ? 0 : 1);
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
    fs::create_symlink(at("link"), at("link to link"));
    fs::create_symlink("sub/new.txt", at("dangling"));
    fs::create_symlink("loop", at("loop"));

    EXPECT_FALSE(save(at("link to link"), "new"));
    EXPECT_TRUE(fs::is_symlink(at("link to link")));
    EXPECT_TRUE(fs::is_symlink(at("link")));
    EXPECT_EQ(get(at("sub/a.txt")), "new");
    EXPECT_EQ(fs::status(at("sub/a.txt")).permissions(), fs::perms{0640});

    EXPECT_FALSE(save(at("dangling"), "made"));
    EXPECT_EQ(get(at("sub/new.txt")), "made");
    EXPECT_EQ(save(at("loop"), "x"), std::errc::too_many_symbolic_link_levels);

    const mode_t before = ::umask(027);
    EXPECT_FALSE(save(at("fresh.txt"), "x"));
    ::umask(before);
    EXPECT_EQ(fs::status(at("fresh.txt")).permissions(), fs::perms{0640});
}

TEST_F(FilesTest, RefusesWhatIsNoWritableFile) {
    fs::create_directory(at("folder"));
    ASSERT_EQ(::mkfifo(at("fifo").c_str(), 0600), 0);
    fs::create_symlink("fifo", at("link to fifo"));
    put(at("read-only.txt"), "old");
    ::chmod(at("read-only.txt").c_str(), 0444);

    EXPECT_EQ(save(at("folder"), "x"), std::errc::is_a_directory);
    EXPECT_EQ(save(at("folder/"), "x"), std::errc::is_a_directory);
    EXPECT_EQ(save(at("fifo"), "x"), std::errc::not_supported);
    EXPECT_EQ(save(at("link to fifo"), "x"), std::errc::not_supported);
    EXPECT_EQ(save("/dev/null", "x"), std::errc::not_supported);
    EXPECT_EQ(save(at("read-only.txt"), "x"), std::errc::permission_denied);
    EXPECT_EQ(get(at("read-only.txt")), "old");
    EXPECT_EQ(save(at("nowhere/a.txt"), "x"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(save(at("read-only.txt/a.txt"), "x"), std::errc::not_a_directory);
    EXPECT_EQ(save("", "x"), std::errc::no_such_file_or_directory);
    EXPECT_TRUE(fs::is_fifo(at("fifo")));
    EXPECT_EQ(names(), (std::set<std::string>{"folder", "fifo", "link to fifo", "read-only.txt"}));
}

TEST_F(FilesTest, RefusesFolderWithoutPermission) {
    const OrdinaryUser user(folder);
    put(at("a.txt"), "old");
    fs::permissions(folder, fs::perms{0555});
    EXPECT_EQ(save(at("a.txt"), "x"), std::errc::permission_denied);
    EXPECT_EQ(save(at("new.txt"), "x"), std::errc::permission_denied);
    fs::permissions(folder, fs::perms{0755});
    EXPECT_EQ(get(at("a.txt")), "old");

    put(at("secret.txt"), "old");
    ::chmod(at("secret.txt").c_str(), 0000);
    std::error_code error;
    EXPECT_FALSE(files.open(at("secret.txt"), error));
    EXPECT_EQ(error, std::errc::permission_denied);
}

TEST_F(FilesTest, LongestNameWorksAndLongerOneIsNamed) {
    EXPECT_FALSE(save(at(std::string(255, 'n')), "x"));
    EXPECT_FALSE(save(at(std::string(255, 'n')), "y"));
    EXPECT_EQ(get(at(std::string(255, 'n'))), "y");
    EXPECT_EQ(save(at(std::string(256, 'n')), "x"), std::errc::filename_too_long);
    EXPECT_EQ(names().size(), 1U);
}

TEST_F(FilesTest, VanishedFolderFailsAndFolderInThePlaceStays) {
    std::error_code error;
    fs::create_directory(at("sub"));
    auto writer = files.create(at("sub/a.txt"), error);
    ASSERT_TRUE(writer);
    fs::remove_all(at("sub"));
    EXPECT_FALSE(writer->write("x"));
    EXPECT_EQ(writer->commit(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(writer->commit(), std::errc::no_such_file_or_directory);

    writer = files.create(at("b"), error);
    ASSERT_TRUE(writer);
    fs::create_directory(at("b"));
    EXPECT_EQ(writer->commit(), std::errc::is_a_directory);
    EXPECT_EQ(names(), std::set<std::string>{"b"});
}

TEST_F(FilesTest, OpensRegularFilesOnlyAndNeverWaits) {
    ASSERT_EQ(::mkfifo(at("fifo").c_str(), 0600), 0);
    put(at("größe.txt"), "17\r\n");
    std::error_code error;
    for (const auto& [name, expected] : {std::pair{at("fifo"), std::errc::not_supported},
             std::pair{std::string("/dev/zero"), std::errc::not_supported},
             std::pair{folder.string(), std::errc::is_a_directory},
             std::pair{at("nothing"), std::errc::no_such_file_or_directory}}) {
        EXPECT_FALSE(files.open(name, error)) << name;
        EXPECT_EQ(error, expected) << name;
    }
    const auto reader = files.open(at("größe.txt"), error);
    ASSERT_TRUE(reader) << error.message();
    EXPECT_FALSE(error);
    std::array<char, 3> block{};
    EXPECT_EQ(reader->read(block, error), 3U);
    EXPECT_EQ(reader->read(block, error), 1U);
    EXPECT_EQ(block[0], '\n');
    EXPECT_EQ(reader->read(block, error), 0U);
    EXPECT_FALSE(error);
    EXPECT_TRUE(files.exists(at("fifo")));
    EXPECT_FALSE(files.exists(at("nothing")));
}

} // namespace
