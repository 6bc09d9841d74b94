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
    struct Case {
        const char* endings;
        const char* type;
        bool video;
    };
    for (const Case& c : {Case{"mid midi rmi", "Sequencer", false}, Case{"wav", "waveaudio", false},
             Case{"cda", "CDAudio", false}, Case{"aif aifc aiff au mp3 snd", "MPEGVideo", false},
             Case{"wma", "MPEGVideo2", false}, Case{"mpeg mpg m1v mp2 mpa mpe", "MPEGVideo", true},
             Case{"avi", "AVIVideo", true}, Case{"wmv", "MPEGVideo2", true},
             Case{"ogg mi x", "MPEGVideo", false}}) {
        std::istringstream endings(c.endings);
        for (std::string ending; endings >> ending;) {
            std::string upper = ending;
            for (char& letter : upper)
                letter = static_cast<char>(std::toupper(letter));
            for (const auto& name :
                {"/a b/lied." + ending, "LIED." + upper, "a.avi.mid." + ending}) {
                bool video = !c.video;
                EXPECT_EQ(Sound::Sound_Geraetetyp(name, video), c.type) << name;
                EXPECT_EQ(video, c.video) << name;
            }
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
    const auto read = [&](const char* key, const char* value, std::uint32_t root = 0x80000002) {
        std::string text = "vorher";
        const bool done = info::GetKeyValue(registry, root, key, value, text);
        EXPECT_EQ(registry.open_, 0) << "a key was left open";
        return std::pair(done, text);
    };
    EXPECT_EQ(read("k", "text"), std::pair(true, "C:\\x"s));
    EXPECT_EQ(read("k", "whole"), std::pair(true, "abc"s));
    EXPECT_EQ(read("k", "number"), std::pair(true, "&h10A"s));
    EXPECT_EQ(read("k", "zero"), std::pair(true, "&h"s));
    EXPECT_EQ(read("k", "full"), std::pair(true, std::string(1024, 'a')));
    EXPECT_EQ(read("k", "other"), std::pair(true, "vorher"s));
    EXPECT_EQ(read("k", "long"), std::pair(false, ""s));
    EXPECT_EQ(read("k", "missing"), std::pair(false, ""s));
    EXPECT_EQ(read("none", "text"), std::pair(false, ""s));
    EXPECT_EQ(read("k", "text", 0x80000001), std::pair(false, ""s));
}

TEST(Info, TheWayToTheSystemInformation) {
    const std::string first = R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)";
    const std::string second = R"(SOFTWARE\Microsoft\Shared Tools Location)";
    const support::Registry::Value path{1, "/usr/bin/info\0"s};
    const support::Registry::Value folder{1, "C:\\Info"};
    struct Case {
        bool path, folder, file, canStart;
        std::string started;
        bool message;
    };
    for (const Case& c : {Case{true, true, true, true, "/usr/bin/info", false},
             Case{true, false, false, false, "/usr/bin/info", true},
             Case{false, true, true, true, "C:\\Info\\MSINFO32.EXE", false},
             Case{false, true, false, true, "", true}, Case{false, false, true, true, "", true}}) {
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
        EXPECT_EQ(stage.processes.started,
            c.started.empty() ? std::vector<std::string>() : std::vector{c.started});
        EXPECT_EQ(stage.dialogs.messages,
            std::vector<support::Message>(c.message ? 1 : 0,
                {"", "Systeminformationsprogramm zur Zeit nicht verfügbar.",
                    platform::Icon::None}));
        if (c.path) {
            EXPECT_EQ(stage.registry.opened, std::vector{first}) << "no look at the second key";
        }
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
    std::vector<double> shiftX(1444);
    std::vector<double> shiftY(1444);
    int reads = 0;
    const auto time = [](int read) { return 40'000 + 0.0137 * read; };
    stage.clock.midnight = [&] { return time(reads++); };
    for (int pass = 0; pass < 6; ++pass) {
        surface.copies.clear();
        Unterwassereffekt::Wasser_Animieren(stage.program, stage.clock, surface);
        ASSERT_EQ(reads, 2888 * (pass + 1));
        ASSERT_EQ(surface.copies.size(), 1444U);
        for (std::size_t cell = 0; cell < 1444; ++cell) {
            const auto i = static_cast<int>(cell / 38);
            const auto j = static_cast<int>(cell % 38);
            const int read = 2888 * pass + 2 * static_cast<int>(cell);
            shiftX[cell] += std::sin(time(read) * i) * 0.5;
            shiftY[cell] += std::sin(time(read + 1) * j) * 0.5;
            const Surface::Copy& copy = surface.copies[cell];
            ASSERT_EQ(std::pair(copy.fromX, copy.fromY), std::pair(4 * i, 4 * j));
            ASSERT_NEAR(copy.x, 4 * i + shiftX[cell], 0.5001) << "pass " << pass;
            ASSERT_NEAR(copy.y, 4 * j + shiftY[cell], 0.5001) << "pass " << pass;
            ASSERT_NEAR(stage.program.Wasser_Feld(i, j).VersatzX, shiftX[cell], 1e-5);
            ASSERT_NEAR(stage.program.Wasser_Feld(i, j).VersatzY, shiftY[cell], 1e-5);
            ASSERT_TRUE((i > 0 || copy.x == 0) && (j > 0 || copy.y == 0)) << "the edges stay";
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
