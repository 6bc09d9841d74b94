// SPDX-License-Identifier: MIT
// The info dialog's logic: melody, system information, rippling picture.
#include "info/sound.h"
#include "info/system_info.h"
#include "info/water.h"
#include "support/stage.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using support::Stage;
using namespace std::string_literals;

TEST(Info, DeviceTypesByFileName) {
    for (const auto& [name, type, isVideo] :
        {std::tuple("/a b/a.avi.MID", "Sequencer", false), {"a.rmi", "Sequencer", false},
            {"a.wav", "waveaudio", false}, {"a.cda", "CDAudio", false},
            {"a.mp3", "MPEGVideo", false}, {"a.wma", "MPEGVideo2", false},
            {"a.mpg", "MPEGVideo", true}, {"a.AvI", "AVIVideo", true},
            {"a.wmv", "MPEGVideo2", true}, {"a.mi", "MPEGVideo", false}, {"a.", "MPEGVideo", false},
            {"avi", "", false}, {"/noten.mid/lied", "", false}}) {
        bool video = !isVideo;
        EXPECT_EQ(Sound::Sound_Geraetetyp(name, video), type) << name;
        EXPECT_EQ(video, isVideo) << name;
    }
}

TEST(Info, ShowingPlaysFromTheBeginningAndOkStops) {
    Stage stage;
    stage.program.version = "1.2.3";
    Frm_Main::M_Info_Click(stage.program, stage.platform);
    EXPECT_EQ(stage.program.Frm_Info.lblVersion.Caption, "1.2.3");
    EXPECT_TRUE(stage.program.Frm_Info.Visible && stage.main.Enabled);
    Frm_Info::cmdOK_Click(stage.program, stage.platform);
    EXPECT_TRUE(!stage.program.Frm_Info.Visible && stage.program.Frm_Info.loaded);
    Frm_Main::M_Info_Click(stage.program, stage.platform);
    const std::string open = "open /programm/info.mid Sequencer";
    EXPECT_EQ(stage.media.commands, (std::vector{open, "play 0"s, "stop"s, open, "play 0"s}));
    EXPECT_EQ(stage.program.Frm_Info.focusRequests, 2U);
}

TEST(Info, RegistryValuesAsText) {
    support::Registry registry;
    registry.values = {{"k|text", {1, "C:\\x\0rest"s}}, {"k|whole", {1, "abc"}},
        {"k|number", {4, "\x0A\x10\x00\xFF"s}}, {"k|zero", {4, "\0\0\0\0"s}},
        {"k|long", {1, std::string(1025, 'a')}}, {"k|full", {1, std::string(1024, 'a')}},
        {"k|other", {3, "abc"}}};
    constexpr std::uint32_t Machine = 0x80000002;
    for (const auto& [root, key, value, text] :
        {std::tuple(Machine, "k", "text", "C:\\x"s), {Machine, "k", "whole", "abc"},
            {Machine, "k", "number", "&h10A"}, {Machine, "k", "zero", "&h"},
            {Machine, "k", "full", std::string(1024, 'a')}, {Machine, "k", "other", "before"},
            {Machine, "k", "long", ""}, {Machine, "k", "missing", ""},
            {Machine, "none", "text", ""}, {Machine - 1, "k", "text", ""}}) {
        std::string read = "before";
        EXPECT_EQ(info::GetKeyValue(registry, root, key, value, read), !text.empty()) << value;
        EXPECT_EQ(read, text);
        EXPECT_EQ(registry.open_, 0) << "a key was left open";
    }
}

TEST(Info, TheWayToTheSystemInformation) {
    const std::string first = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
    const std::string second = R"(SOFTWARE\Microsoft\Shared Tools Location)";
    const std::vector<support::Message> sorry{
        {"", "Systeminformationsprogramm zur Zeit nicht verfügbar.", platform::Icon::None}};
    using Started = std::vector<std::string>;
    for (const auto& [path, folder, file, canStart, started, message] :
        {std::tuple(true, true, true, true, Started{"/usr/bin/info"}, false),
            {true, false, false, false, {"/usr/bin/info"}, true},
            {false, true, true, true, {"C:\\Info\\MSINFO32.EXE"}, false},
            {false, true, false, true, {}, true}, {false, false, true, true, {}, true}}) {
        Stage stage;
        if (path)
            stage.registry.values[first + "|PATH"] = {1, "/usr/bin/info\0"s};
        if (folder)
            stage.registry.values[second + "|MSINFO"] = {1, "C:\\Info"};
        if (file)
            stage.files.content["C:\\Info\\MSINFO32.EXE"] = "";
        stage.processes.canStart = canStart;
        stage.main.inHandler = path; // also beside a run
        stage.program.Frm_Info.Visible = true;
        stage.dialogs.onMessage = [&] { // a press from outside the window system
            Frm_Info::cmdSysInfo_Click(stage.program, stage.platform);
            Frm_Info::cmdOK_Click(stage.program, stage.platform);
            EXPECT_TRUE(stage.program.Frm_Info.Visible);
        };
        Frm_Info::cmdSysInfo_Click(stage.program, stage.platform);
        EXPECT_EQ(stage.processes.started, started);
        EXPECT_EQ(stage.dialogs.messages, message ? sorry : std::vector<support::Message>());
        EXPECT_TRUE(!path || stage.registry.opened == std::vector{first});
        EXPECT_EQ(stage.registry.open_, 0);
    }
}

struct Surface : Unterwassereffekt::Surface {
    struct Copy {
        int fromX, fromY, x, y;
    };
    int width = 148;
    int height = 147;
    std::vector<Copy> copies;

    int innerWidth() const override { return width; }
    int innerHeight() const override { return height; }
    void copyCell(int fromX, int fromY, int x, int y) override {
        copies.push_back({fromX, fromY, x, y});
    }
};

TEST(Info, TheWaterFollowsItsFormula) {
    Stage stage;
    Surface surface;
    Unterwassereffekt::createField(stage.program, surface.width, surface.height);
    ASSERT_EQ(stage.program.Wasser_Feld.cells.size(), 38U * 38U);
    std::vector<double> shift(2888);
    int reads = 0;
    const auto time = [](int read) { return 40'000 + 0.0137 * read; };
    stage.clock.midnight = [&] { return time(reads++); };
    for (int pass = 0; pass < 6; ++pass) {
        surface.copies.clear();
        Unterwassereffekt::Wasser_Animieren(stage.program, stage.clock, surface);
        ASSERT_EQ(reads, 2888 * (pass + 1));
        ASSERT_EQ(surface.copies.size(), 1444U);
        for (int cell = 0; cell < 1444; ++cell) {
            const int i = cell / 38;
            const int j = cell % 38;
            const int read = 2888 * pass + 2 * cell;
            double* const at = &shift[2 * static_cast<std::size_t>(cell)];
            at[0] += std::sin(time(read) * i) * 0.5;
            at[1] += std::sin(time(read + 1) * j) * 0.5;
            const auto& [fromX, fromY, x, y] = surface.copies[static_cast<std::size_t>(cell)];
            ASSERT_EQ(std::pair(fromX, fromY), std::pair(4 * i, 4 * j));
            ASSERT_NEAR(x, 4 * i + at[0], 0.5001) << "pass " << pass;
            ASSERT_NEAR(y, 4 * j + at[1], 0.5001) << "pass " << pass;
            ASSERT_NEAR(stage.program.Wasser_Feld(i, j).VersatzX, at[0], 1e-5);
            ASSERT_NEAR(stage.program.Wasser_Feld(i, j).VersatzY, at[1], 1e-5);
        }
    }
    surface.width = 80; // smaller than what the field was made for
    surface.height = 40;
    surface.copies.clear();
    Unterwassereffekt::Wasser_Animieren(stage.program, stage.clock, surface);
    EXPECT_EQ(surface.copies.size(), 21U * 11U);
    // Lengths in pixels that fall between two cells: halves to the even neighbour.
    for (const auto& [pixels, cells] :
        std::vector<std::pair<int, int>>{{146, 37}, {150, 39}, {145, 37}, {151, 39}, {148, 38}}) {
        Unterwassereffekt::createField(stage.program, pixels, pixels);
        EXPECT_EQ(stage.program.Wasser_Feld.columns, cells) << pixels;
        EXPECT_EQ(stage.program.Wasser_Feld(cells - 1, cells - 1).VersatzX, 0);
    }
}

} // namespace
