// SPDX-License-Identifier: MIT
// The melody device heard through a sound file, and its silence where nothing can be heard.
#include "desktop/linux/sound_device.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <new>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace std::string_literals;
using std::chrono::steady_clock;

namespace {

constexpr std::size_t Header = 44; ///< bytes of a sound file before its samples
constexpr std::size_t Second = 44100; ///< frames

/// A short loud note at 0 and one at 1.5 seconds: one second of 32 quick quarters is followed by
/// half a second for a single slow one. It ends at 1.7 seconds.
std::string twoNotes() {
    const std::string track
        = "\x00\xff\x51\x03\x00\x7a\x12" // 31,250 us for a quarter
          "\x00\xc0\x10" // an organ, loud at once
          "\x00\x90\x3c\x7f\x83\x00\x80\x3c\x40" // 384 ticks, 4 quarters, 0.125 s
          "\x95\x00\xff\x51\x03\x07\xa1\x20" // 28 quarters later: 0.5 s for one
          "\x60\x90\x3c\x7f\x26\x80\x3c\x40" // 96 ticks: 0.5 s; 38: 0.2 s
          "\x00\xff\x2f\x00"s;
    return "MThd\x00\x00\x00\x06\x00\x00\x00\x01\x00\x60MTrk\x00\x00\x00"s
        + static_cast<char>(track.size()) + track;
}

std::atomic<bool> starved = false; ///< all threads but the tests' own
const std::thread::id testThread = std::this_thread::get_id();

} // namespace

void* operator new(std::size_t size) {
    void* block = starved && std::this_thread::get_id() != testThread ? nullptr : std::malloc(size);
    return block != nullptr ? block : throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

namespace {

class SoundTest : public testing::Test {
protected:
    SoundTest() {
        std::string name = (fs::temp_directory_path() / "tst_sound.XXXXXX").string();
        folder = ::mkdtemp(name.data());
        std::ofstream(melody(), std::ios::binary) << twoNotes();
        setup = desktop::SoundSetup::ofThisComputer();
        setup.drivers = {"file"};
        setup.waveFile = (folder / "out.wav").string();
    }
    ~SoundTest() override { fs::remove_all(folder); }

    /// With a blank in the name, which must do no harm.
    std::string melody() const { return (folder / "the melody.mid").string(); }

    /// Frames written so far; the file grows at the pace of hearing.
    std::size_t frames() const {
        std::error_code error;
        const auto size = fs::file_size(setup.waveFile, error);
        return error || size < Header ? 0 : (size - Header) / 4;
    }

    /// What has been recorded, left and right in turn.
    std::vector<std::int16_t> samples() const {
        std::ifstream stream(setup.waveFile, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        std::vector<std::int16_t> result(bytes.size() < Header ? 0 : (bytes.size() - Header) / 2);
        if (!result.empty())
            std::memcpy(result.data(), bytes.data() + Header, result.size() * 2);
        return result;
    }

    /// The tenths of a second in which a note begins.
    std::vector<std::size_t> onsets() const {
        std::vector<std::size_t> result;
        std::size_t heard = 0; // when something was last
        const auto recorded = samples();
        for (std::size_t at = 0; at < recorded.size(); ++at) {
            if (std::abs(recorded[at]) < 1000)
                continue;
            const std::size_t tenth = at / 2 / (Second / 10);
            if (result.empty() || tenth > heard + 1)
                result.push_back(tenth);
            heard = tenth;
        }
        return result;
    }

    /// Whether nothing is being written.
    bool outputRests() const {
        const std::size_t before = frames();
        std::this_thread::sleep_for(200ms);
        return frames() == before;
    }

    static bool eventually(const std::function<bool()>& condition) {
        const auto end = steady_clock::now() + 20s;
        while (!condition() && steady_clock::now() < end)
            std::this_thread::sleep_for(5ms);
        return condition();
    }

    fs::path folder;
    desktop::SoundSetup setup;
};

TEST_F(SoundTest, PlaysToItsEndGivesTheOutputBackAndPlaysAgain) {
    desktop::SoundDevice device(setup);
    device.open(melody(), "Sequencer");
    device.open("another melody", "Sequencer"); // one is open already
    device.play(0);
    ASSERT_TRUE(eventually([&] { return frames() > 2 * Second; }));
    ASSERT_TRUE(eventually([&] { return outputRests(); }));
    const auto notes = onsets();
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_LE(notes[0], 1U);
    EXPECT_NEAR(static_cast<double>(notes[1]), 15, 1);
    // From a position across a change of tempo; each call starts anew what the last one has begun.
    for (const int position : {1250, 0, 0}) {
        device.play(position);
        ASSERT_TRUE(eventually([&] { return frames() < Second / 2; }));
        ASSERT_TRUE(eventually([&] { return frames() > Second / 2 && !onsets().empty(); }));
        EXPECT_NEAR(static_cast<double>(onsets()[0]), position > 0 ? 2.5 : 0, 1.5);
    }
    // Stopped amid a loud note, the sound fades instead of breaking off.
    ASSERT_TRUE(eventually([&] { return onsets().size() == 2; }));
    device.stop();
    ASSERT_TRUE(eventually([&] { return outputRests(); }));
    EXPECT_LT(std::abs(samples().back()), 10);
}

TEST_F(SoundTest, TheLastCommandBeforeOpeningIsDoneWins) {
    desktop::SoundDevice device(setup);
    device.play(0);
    device.open(melody(), "Sequencer");
    device.play(0);
    device.stop();
    std::this_thread::sleep_for(500ms);
    EXPECT_FALSE(fs::exists(setup.waveFile));
    device.play(0);
    EXPECT_TRUE(eventually([&] { return !onsets().empty(); }));
}

TEST_F(SoundTest, MemoryThatFailsItMakesItSilent) {
    desktop::SoundDevice device(setup);
    starved = true;
    device.open(melody(), "Sequencer");
    device.play(0);
    std::this_thread::sleep_for(200ms);
    starved = false;
    device.stop();
    EXPECT_FALSE(fs::exists(setup.waveFile));
}

TEST_F(SoundTest, IsSilentWithoutAWordWhateverIsMissing) {
    const auto at = [&](const char* name, const std::string& bytes) {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return (folder / name).string();
    };
    const std::string fifo = (folder / "fifo.mid").string();
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const std::string text = at("text.mid", "no melody");
    const std::string cut = (folder / "cut.sf2").string();
    fs::copy_file(setup.soundfonts.front(), cut);
    fs::resize_file(cut, 100000);
    auto noFont = setup;
    noFont.soundfonts = {"/nowhere.sf2", text, fifo, folder.string(), cut};
    auto noDriver = setup;
    noDriver.drivers = {"no such driver", "alsa", "pulseaudio", "oss"};
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    for (const auto& [with, file, type] :
        {std::tuple(setup, at("broken.mid", twoNotes().substr(0, 30)), "Sequencer"),
            {setup, text, "Sequencer"}, {setup, fifo, "Sequencer"},
            {setup, folder.string(), "Sequencer"}, {setup, "", "Sequencer"},
            {setup, melody(), "waveaudio"}, {noFont, melody(), "Sequencer"},
            {noDriver, melody(), "Sequencer"}}) {
        desktop::SoundDevice device(with);
        device.open(file, type);
        device.play(0);
        std::this_thread::sleep_for(150ms);
        device.stop();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr() + testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(!fs::exists(setup.waveFile) || onsets().empty());
}

} // namespace
