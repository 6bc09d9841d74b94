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

const fs::path Folder = fs::temp_directory_path() / L"kestrelwood tests ß√";

std::string at(std::u8string_view name) {
    const std::u8string path = (Folder / name).u8string();
    return {path.begin(), path.end()};
}

std::string get(std::u8string_view name) {
    std::error_code error;
    const auto reader = desktop::system::readFile(at(name), error);
    std::array<char, 99> block{};
    return reader ? std::string(block.data(), reader->read(block, error)) : error.message();
}

std::error_code save(std::u8string_view name, std::string_view bytes) {
    std::error_code error;
    const auto writer = desktop::system::replaceFile(at(name), error);
    if (writer && !(error = writer->write(bytes)))
        error = writer->commit();
    return error;
}

TEST(Windows, FilesAreReplacedWholeOrNotAtAll) {
    using std::errc;
    fs::remove_all(Folder);
    fs::create_directories(Folder / "folder");
    EXPECT_FALSE(save(u8"Größe √.txt", "new"));
    std::error_code error;
    auto writer = desktop::system::replaceFile(at(u8"Größe √.txt"), error);
    ASSERT_TRUE(writer && !writer->write(std::string(100'000, 'x')));
    EXPECT_EQ(get(u8"Größe √.txt"), "new");
    writer.reset(); // and no commit
    const std::wstring name = desktop::wide(at(u8"Größe √.txt"));
    ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_FALSE(save(u8"Größe √.txt", "newer"));
    EXPECT_TRUE(::GetFileAttributesW(name.c_str()) & FILE_ATTRIBUTE_HIDDEN);
    ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(save(u8"Größe √.txt", "x"), errc::permission_denied);
    ::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL);
    writer = desktop::system::replaceFile(at(u8"Größe √.txt"), error);
    { // as other programs open a file: nobody is to remove it
        const std::ifstream other(fs::path(name), std::ios::binary);
        EXPECT_EQ(writer->commit(), errc::text_file_busy);
        EXPECT_EQ(save(u8"Größe √.txt", "x"), errc::text_file_busy);
        EXPECT_EQ(get(u8"Größe √.txt"), "newer");
    }
    EXPECT_EQ(save(u8"folder", "x"), errc::is_a_directory);
    EXPECT_EQ(save(u8"none/a.txt", "x"), errc::no_such_file_or_directory);
    EXPECT_FALSE(desktop::system::readFile("NUL", error));
    EXPECT_EQ(error, errc::not_supported);
    EXPECT_FALSE(desktop::system::readFile(at(u8"none"), error));
    EXPECT_EQ(error, errc::no_such_file_or_directory);
    EXPECT_EQ(std::distance(fs::directory_iterator(Folder), {}), 2);
    fs::remove_all(Folder);
}

TEST(Windows, RegistryClockAndMemory) {
    desktop::Registry registry;
    constexpr std::uint32_t Machine = 0x80000002;
    const auto key = registry.open(Machine, R"(SOFTWARE\Microsoft\Windows NT\CurrentVersion)");
    ASSERT_TRUE(key && !registry.open(Machine, "SOFTWARE\\none"));
    std::array<char, 1024> buffer{};
    std::size_t size = 0;
    EXPECT_EQ(registry.query(*key, "SystemRoot", buffer, size), 1U);
    EXPECT_EQ(std::string(buffer.data(), size), std::string("C:\\windows") + '\0');
    EXPECT_EQ(registry.query(*key, "InstallDate", buffer, size), 4U);
    EXPECT_EQ(size, 4U);
    EXPECT_FALSE(registry.query(*key, "SystemRoot", std::span(buffer).first(10), size));
    EXPECT_FALSE(registry.query(*key, "none", buffer, size));
    registry.close(*key);
    desktop::Clock clock;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    EXPECT_LT(std::chrono::abs(now - clock.coarse()), std::chrono::seconds(1));
    const std::uint64_t left = desktop::system::memoryLeft();
    EXPECT_TRUE(left > 1 << 20 && left < std::uint64_t{1} << 50) << left;
}

TEST(Windows, TheSoundDeviceIsToldInOneOrderByOneThread) {
    using Heard = std::vector<std::pair<std::wstring, std::thread::id>>;
    const auto heard = std::make_shared<Heard>();
    std::promise<void> all;
    desktop::MciDevice device([heard, &all](const std::wstring& command) {
        heard->emplace_back(command, std::this_thread::get_id());
        if (heard->size() == 7)
            all.set_value();
    });
    device.open("C:/no such/in fo.mid", "Sequencer");
    device.play(0);
    device.stop();
    device.open("C:/windows/info.mid", "waveaudio");
    ASSERT_EQ(all.get_future().wait_for(std::chrono::seconds(9)), std::future_status::ready);
    constexpr std::array Wanted{LR"(open "C:\no such\in fo.mid" type Sequencer alias TempMCI)",
        L"set TempMCI time format milliseconds", L"play TempMCI from 0", L"put TempMCI destination",
        L"stop TempMCI", LR"(open C:\windows\info.mid type waveaudio alias TempMCI)"};
    for (std::size_t i = 0; i < Wanted.size(); ++i)
        EXPECT_TRUE((*heard)[i].first == Wanted[i] && (*heard)[i].second == heard->front().second);
    EXPECT_FALSE(heard->front().second == std::this_thread::get_id());
}

} // namespace
