// SPDX-License-Identifier: MIT
// What Windows does in its own way: files, registry, clock, the words to the sound device.
#include "desktop/clock.h"
#include "desktop/system.h"
#include "desktop/windows/mci_device.h"
#include "desktop/windows/wide.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <future>

namespace fs = std::filesystem;

namespace {

using namespace desktop;
using std::errc;

const fs::path Folder = fs::temp_directory_path() / "kestrelwood tests";

std::string at(const std::string& name) {
    return (Folder / name).string();
}

std::string get(const std::string& name) {
    std::error_code error;
    const auto reader = system::readFile(at(name), error);
    std::array<char, 99> block{};
    return reader ? std::string(block.data(), reader->read(block, error)) : error.message();
}

std::error_code save(const std::string& name, std::string_view bytes) {
    std::error_code error;
    const auto writer = system::replaceFile(at(name), error);
    error = writer ? writer->write(bytes) : error;
    return error ? error : writer->commit();
}

TEST(Windows, FilesAreReplacedWholeOrNotAtAll) {
    fs::remove_all(Folder);
    fs::create_directories(Folder / "folder");
    const std::string file = "Größe √.txt";
    const std::wstring name = wide(at(file));
    EXPECT_FALSE(save(file, "new"));
    std::error_code error;
    auto writer = system::replaceFile(at(file), error);
    ASSERT_TRUE(writer && !writer->write(std::string(100'000, 'x')));
    writer.reset(); // and no commit
    EXPECT_EQ(get(file), "new");
    ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_FALSE(save(file, "newer"));
    EXPECT_TRUE(::GetFileAttributesW(name.c_str()) & FILE_ATTRIBUTE_HIDDEN);
    ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(save(file, "x"), errc::permission_denied);
    ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL);
    writer = system::replaceFile(at(file), error);
    { // as other programs open a file: nobody is to remove it
        const std::ifstream other(fs::path(name), std::ios::binary);
        EXPECT_EQ(writer->commit(), errc::text_file_busy);
        EXPECT_EQ(save(file, "x"), errc::text_file_busy);
    }
    EXPECT_EQ(save("folder", "x"), errc::is_a_directory);
    EXPECT_EQ(save("none/a.txt", "x"), errc::no_such_file_or_directory);
    EXPECT_FALSE(system::readFile("NUL", error));
    EXPECT_EQ(error, errc::not_supported);
    EXPECT_EQ(std::distance(fs::directory_iterator(Folder), {}), 2);
    fs::remove_all(Folder);
}

TEST(Windows, RegistryAndClock) {
    Registry registry;
    const auto key = registry.open(0x80000002, R"(SOFTWARE\Microsoft\Windows NT\CurrentVersion)");
    ASSERT_TRUE(key && !registry.open(0x80000002, "SOFTWARE\\none"));
    std::array<char, 1024> buffer{};
    std::size_t size = 0;
    EXPECT_EQ(registry.query(*key, "SystemRoot", buffer, size), 1U);
    EXPECT_EQ(std::string(buffer.data(), size), std::string("C:\\windows") + '\0');
    EXPECT_TRUE(registry.query(*key, "InstallDate", buffer, size) == 4U && size == 4);
    EXPECT_FALSE(registry.query(*key, "SystemRoot", std::span(buffer).first(10), size));
    EXPECT_FALSE(registry.query(*key, "none", buffer, size));
    registry.close(*key);
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    EXPECT_LT(std::chrono::abs(now - Clock().coarse()), std::chrono::seconds(1));
}

TEST(Windows, TheSoundDeviceIsToldInOneOrderByOneThread) {
    constexpr std::array Wanted{LR"(open "C:\no such\in fo.mid" type Sequencer alias TempMCI)",
        L"set TempMCI time format milliseconds", L"play TempMCI from 0", L"put TempMCI destination",
        L"stop TempMCI", LR"(open C:\none.mid type waveaudio alias TempMCI)"};
    std::vector<std::pair<std::wstring, std::thread::id>> heard;
    std::promise<void> all;
    MciDevice device([&](const std::wstring& command) {
        heard.emplace_back(command, std::this_thread::get_id());
        if (heard.size() == Wanted.size() + 1)
            all.set_value();
    });
    device.open("C:/no such/in fo.mid", "Sequencer");
    device.play(0);
    device.stop();
    device.open("C:/none.mid", "waveaudio");
    all.get_future().wait();
    for (std::size_t i = 0; i < Wanted.size(); ++i)
        EXPECT_TRUE(heard[i].first == Wanted[i] && heard[i].second == heard[0].second) << i;
    EXPECT_FALSE(heard[0].second == std::this_thread::get_id());
}

} // namespace
