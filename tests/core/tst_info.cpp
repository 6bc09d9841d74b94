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
    for (const auto& [endings, type, isVideo] : {std::tuple("mid midi rmi MID", "Sequencer", false),
             {"wav", "waveaudio", false}, {"cda", "CDAudio", false},
             {"aif aifc aiff au mp3 snd", "MPEGVideo", false}, {"wma", "MPEGVideo2", false},
             {"mpeg mpg m1v mp2 mpa mpe", "MPEGVideo", true}, {"avi AvI", "AVIVideo", true},
             {"wmv", "MPEGVideo2", true}, {"ogg mi x", "MPEGVideo", false}}) {
        std::istringstream all(endings);
        for (std::string ending; all >> ending;)
            for (const auto& name : {"/a b/lied." + ending, "a.avi.mid." + ending}) {
                bool video = !isVideo;
                EXPECT_EQ(Sound::Sound_Geraetetyp(name, video), type) << name;
                EXPECT_EQ(video, isVideo) << name;
            }
    }
    bool video = true;
    EXPECT_EQ(Sound::Sound_Geraetetyp("avi", video), "");
    EXPECT_FALSE(video);
    EXPECT_EQ(Sound::Sound_Geraetetyp("lied.", video), "MPEGVideo");
    EXPECT_EQ(Sound::Sound_Geraetetyp("/noten.mid/lied", video), "");
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
    for (const auto& [root, key, value, done, text] :
        {std::tuple(0x80000002U, "k", "text", true, "C:\\x"s),
            {0x80000002U, "k", "whole", true, "abc"}, {0x80000002U, "k", "number", true, "&h10A"},
            {0x80000002U, "k", "zero", true, "&h"},
            {0x80000002U, "k", "full", true, std::string(1024, 'a')},
            {0x80000002U, "k", "other", true, "before"}, {0x80000002U, "k", "long", false, ""},
            {0x80000002U, "k", "missing", false, ""}, {0x80000002U, "none", "text", false, ""},
            {0x80000001U, "k", "text", false, ""}}) {
        std::string read = "before";
        EXPECT_EQ(info::GetKeyValue(registry, root, key, value, read), done) << value;
        EXPECT_EQ(read, text);
        EXPECT_EQ(registry.open_, 0) << "a key was left open";
    }
}

TEST(Info, TheWayToTheSystemInformation) {
    const std::string first = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
    const std::string second = R"(SOFTWARE\Microsoft\Shared Tools Location)";
    const support::Registry::Value path{1, "/usr/bin/info\0"s};
    const support::Registry::Value folder{1, "C:\\Info"};
    struct Case {
        bool path, folder, file, canStart;
        std::vector<std::string> started;
        bool message;
    };
    for (const Case& c : {Case{true, true, true, true, {"/usr/bin/info"}, false},
             Case{true, false, false, false, {"/usr/bin/info"}, true},
             Case{false, true, true, true, {"C:\\Info\\MSINFO32.EXE"}, false},
             Case{false, true, false, true, {}, true}, Case{false, false, true, true, {}, true}}) {
        Stage stage;
        if (c.path)
            stage.registry.values[first + "|PATH"] = path;
        if (c.folder)
            stage.registry.values[second + "|MSINFO"] = folder;
        if (c.file)
            stage.files.content["C:\\Info\\MSINFO32.EXE"] = "";
        stage.processes.canStart = c.canStart;
        stage.main.inHandler = c.path; // also beside a run
        stage.program.Frm_Info.Visible = true;
        stage.dialogs.onMessage = [&] { // a press from outside the window system
            Frm_Info::cmdSysInfo_Click(stage.program, stage.platform);
            Frm_Info::cmdOK_Click(stage.program, stage.platform);
            EXPECT_TRUE(stage.program.Frm_Info.Visible);
        };
        Frm_Info::cmdSysInfo_Click(stage.program, stage.platform);
        EXPECT_EQ(stage.processes.started, c.started);
        EXPECT_EQ(stage.dialogs.messages,
            std::vector<support::Message>(c.message ? 1 : 0,
                {"", "Systeminformationsprogramm zur Zeit nicht verfügbar.",
                    platform::Icon::None}));
        EXPECT_TRUE(!c.path || stage.registry.opened == std::vector{first});
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
    ASSERT_EQ(stage.program.Wasser_Feld.Cells.size(), 38U * 38U);
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
        EXPECT_EQ(stage.program.Wasser_Feld.Columns, cells) << pixels;
        EXPECT_EQ(stage.program.Wasser_Feld(cells - 1, cells - 1).VersatzX, 0);
    }
}

} // namespace
