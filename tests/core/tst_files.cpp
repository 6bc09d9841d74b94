// SPDX-License-Identifier: MIT
// Reading and writing permanence files, with everything that a file or a user can do to them.
#include "files/fast_line.h"
#include "files/line_reader.h"
#include "files/messages.h"
#include "progress/long_run.h"
#include "support/stage.h"

#include <gtest/gtest.h>

#include <bit>
#include <filesystem>
#include <fstream>
#include <random>

namespace {

using support::numbers;
using support::Stage;
using namespace std::string_literals;

/// The numbers of a text, by the rules told line by line.
std::vector<int> read(std::string text) {
    std::vector<int> all;
    if (text.starts_with("\xEF\xBB\xBF"))
        text.erase(0, 3);
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
        std::string line = text.substr(at, end - at);
        at = end + 1;
        line.erase(0, std::min(line.find_first_not_of(" \t"), line.size()));
        line.erase(line.find_last_not_of(" \t") + 1);
        if (line.empty() || line.find_first_not_of("0123456789") != std::string::npos)
            continue;
        line.erase(0, std::min(line.find_first_not_of('0'), line.size() - 1));
        if (line.size() <= 2 && std::stoi(line) <= 36)
            all.push_back(std::stoi(line));
    }
    return all;
}

std::vector<int> readInBlocks(const std::string& text, const std::vector<std::size_t>& cuts) {
    files::LineReader reader;
    std::size_t at = 0;
    for (const std::size_t cut : cuts) {
        reader.read(std::string_view(text).substr(at, cut - at));
        at = cut;
    }
    reader.read(std::string_view(text).substr(at));
    reader.finish();
    std::vector<int> all;
    for (std::int64_t i = 0; i < reader.numbers().size(); ++i)
        all.push_back(reader.numbers()[i]);
    return all;
}

TEST(Files, EveryKindOfLineAtEverySplit) {
    const std::vector<std::string> lines{"5", "abc", "", "37", "-1", "36", " 17 ", "\t0\t", "00017",
        "17 x", "x 17", "1 7", "+5", "5.", "5.0", "12,6", "1e1", "0x10", "18446744073709551617",
        "00000000000000000000000000000003", "4294967297", "256", "36\0"s, "\0"s, " ", "\v7", "7\f",
        "\xEF\xBB\xBF"
        "8",
        "\xEF\xBB", "\xFF",
        "\xC2\xA0"
        "9",
        "-0", "100", "036", "037"};
    EXPECT_EQ(read("5\rabc\n\n37\r\n-1\r\n 36"), (std::vector{5, 36}));
    std::vector<std::string> texts;
    for (const std::string& end : {"\r\n"s, "\r"s, "\n"s, "\n\r"s, "\r\r\n"s}) {
        std::string all;
        for (const auto& line : lines) {
            texts.push_back(line + end);
            texts.push_back(line + end + "4");
            texts.push_back("\xEF\xBB\xBF" + line);
            texts.push_back("\xEF\xBB" + line);
            texts.push_back("\xEF" + line + end + "6");
            all += line + end;
        }
        texts.push_back(all);
    }
    std::mt19937 random(41);
    const std::string alphabet = "0123637 \t\r\n\r\n-+.x\0\xEF\xBB\xBF"s;
    for (int i = 0; i < 3000; ++i) {
        std::string text = i % 4 == 0 ? "\xEF\xBB\xBF" : "";
        for (auto length = random() % 24; length > 0; --length)
            text += alphabet[random() % alphabet.size()];
        texts.push_back(text);
    }
    for (int i = 0; i < 150; ++i) { // long ones, mostly as a program would write them
        std::string text;
        for (auto count = 20 + random() % 40; count > 0; --count)
            text += random() % 16 != 0 ? " " + std::to_string(random() % 41) + " \r\n"
                                       : lines[random() % lines.size()] + "\n";
        texts.push_back(text);
    }
    for (const auto& text : texts) {
        const auto wanted = read(text);
        for (std::size_t cut = 0; cut <= text.size(); ++cut)
            ASSERT_EQ(readInBlocks(text, {cut}), wanted) << "'" << text << "' cut at " << cut;
        std::vector<std::size_t> everywhere(text.size());
        for (std::size_t i = 0; i < text.size(); ++i)
            everywhere[i] = i;
        ASSERT_EQ(readInBlocks(text, everywhere), wanted) << "'" << text << "' byte by byte";
    }
}

/// A line's number by either quick way, in a buffer long enough for them to look ahead.
std::pair<unsigned, unsigned> quickly(std::string line) {
    const std::size_t length = line.find('\n');
    line.resize(line.size() + files::WordSize, '7');
    return {files::ownLine(line.data(), length), files::usualLine(line.data(), length)};
}

TEST(Files, QuickWaysKnowTheirLinesAndNoOthers) {
    if constexpr (std::endian::native != std::endian::little)
        GTEST_SKIP() << "every line takes the long way here";
    constexpr unsigned Other = files::OtherLine;
    for (unsigned number = 0; number <= 99; ++number)
        for (const bool zeroBefore : {false, true}) {
            const std::string digits
                = (zeroBefore && number < 10 ? "0" : "") + std::to_string(number);
            SCOPED_TRACE(digits);
            EXPECT_EQ(quickly(" " + digits + " \r\n"), std::pair(number, number));
            for (const auto& [before, behind] :
                std::vector<std::pair<std::string, std::string>>{{"", ""}, {" ", ""}, {"", " "},
                    {" ", " "}, {"", "\r"}, {" ", "\r"}, {"", " \r"}})
                EXPECT_EQ(quickly(before + digits + behind + "\n"), std::pair(Other, number));
        }
    for (const std::string line : {"", " ", "\r", "x", "1x", "x1", "100", "1 2", "  1", "1  ", "-1",
             " 1\r\r", " 10 \rx", "12345678", "       1", "1      \r"})
        EXPECT_EQ(quickly(line + "\n"), std::pair(Other, Other)) << line;
    EXPECT_EQ(quickly(std::string("1\0\n", 3)), std::pair(Other, Other));
}

TEST(Files, GoldenPermanences) {
    namespace fs = std::filesystem;
    const auto content = [](const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    int found = 0;
    for (const auto& entry :
        fs::directory_iterator(fs::path(KESTRELWOOD_TESTDATA) / "permanenzen")) {
        if (entry.path().extension() != ".txt")
            continue;
        ++found;
        SCOPED_TRACE(entry.path().filename().string());
        std::ifstream expected(fs::path(entry.path()).replace_extension(".erwartet"));
        ASSERT_TRUE(expected) << "no expected numbers beside it";
        const std::vector<int> wanted(std::istream_iterator<int>(expected), {});
        for (const std::size_t block : {1U, 2U, 7U, 1U << 20}) {
            Stage stage;
            stage.files.blockSize = block;
            stage.load(content(entry.path()));
            EXPECT_EQ(numbers(stage.program), wanted) << "in blocks of " << block;
            EXPECT_EQ(stage.main.Coup, static_cast<std::int64_t>(wanted.size()));
            if (entry.path().stem() == "gespeichert") {
                EXPECT_EQ(stage.save(), content(entry.path()));
            }
        }
    }
    EXPECT_GE(found, 5);
}

TEST(Files, SavedBytesAndRoundTrip) {
    Stage stage;
    EXPECT_EQ(stage.save(), "");
    stage.load(stage.save());
    EXPECT_EQ(stage.main.Coup, 0);
    stage.click(17);
    EXPECT_EQ(stage.save(), " 17 \r\n");
    stage.click(0);
    stage.click(36);
    EXPECT_EQ(stage.save(), " 17 \r\n 0 \r\n 36 \r\n");
    stage.draw("140000"); // more than one block, in bytes and in rows
    const auto all = numbers(stage.program);
    const std::string saved = stage.save();
    EXPECT_GT(stage.files.writes, 3U);
    stage.family(6); // what is saved doesn't depend on the view
    stage.check(0);
    EXPECT_EQ(stage.save(), saved);
    Stage other;
    other.files.blockSize = 1000;
    other.load(saved);
    EXPECT_EQ(numbers(other.program), all);
    for (int number = 0; number <= 36; ++number)
        EXPECT_EQ(other.program.counters.Anz_Plein[static_cast<std::size_t>(number)],
            std::count(all.begin(), all.end(), number));
    other.load(" 5 ");
    EXPECT_EQ(other.main.Coup, 140004);
    EXPECT_EQ(other.main.Plein, 5);
}

TEST(Files, DialogsTellWhatTheyAreForAndACancelChangesNothing) {
    Stage stage;
    const auto before = support::state(stage.program);
    stage.button(2);
    stage.dialogs.chosen = "";
    Frm_Main::M_Speichern_Click(stage.program, stage.platform);
    EXPECT_EQ(support::difference(support::state(stage.program), before), "");
    stage.load("3\n");
    EXPECT_EQ(stage.main.focusRequests, 0U);
    EXPECT_EQ(stage.main.Grid[0].ScrollRow().row, 1);
    stage.dialogs.chosen.reset();
    const auto loaded = support::state(stage.program);
    stage.button(3);
    Frm_Main::M_Laden_Click(stage.program, stage.platform);
    EXPECT_EQ(support::difference(support::state(stage.program), loaded), "");
    EXPECT_TRUE(stage.files.content.size() == 1 && stage.dialogs.messages.empty());
    const std::string filter = "|Textdateien (*.txt)|*.txt|";
    const std::string open = "open|Permanenz laden" + filter;
    const std::string save = "save|Permanenz speichern" + filter;
    EXPECT_EQ(stage.dialogs.asked,
        (std::vector{open, save, open, save + "datei.txt", open + "datei.txt"}));
}

TEST(Files, AnErrorWhileReadingIsToldAndChangesNothing) {
    const std::string text = " 17 \r\n 0 \r\n";
    const support::Message wanted{"Fehler",
        "Die Datei „datei.txt“ kann nicht gelesen werden.\nDer Datenträger meldet einen Fehler.\n"
        "Die Permanenz ist unverändert.",
        platform::Icon::Critical};
    for (std::size_t at = 0; at <= text.size(); ++at)
        for (std::size_t block = 1; block <= text.size(); block += 3) {
            Stage stage;
            stage.click(9);
            stage.main.FileName = "datei.txt";
            const auto before = support::state(stage.program);
            stage.files.failAtByte = at;
            stage.files.blockSize = block;
            stage.load(text);
            ASSERT_EQ(support::difference(support::state(stage.program), before), "")
                << "failing at byte " << at;
            ASSERT_EQ(stage.dialogs.messages, (std::vector{wanted}));
            ASSERT_EQ(stage.files.openReaders, 0);
        }
    for (const auto& [code, reason] :
        std::vector<std::pair<std::errc, std::string>>{
            {std::errc::no_such_file_or_directory,
                "Die Datei oder der Ordner wurde nicht gefunden."},
            {std::errc::permission_denied, "Die Zugriffsrechte fehlen."},
            {std::errc::is_a_directory, "Es ist ein Ordner, keine Datei."},
            {std::errc::no_space_on_device, "Der Datenträger ist voll."},
            {std::errc::bad_message, "Unerwarteter Fehler Nr. " + std::to_string(EBADMSG) + "."}}) {
        Stage stage;
        stage.files.openError = std::make_error_code(code);
        stage.load(text);
        ASSERT_EQ(stage.dialogs.messages.size(), 1U);
        EXPECT_NE(stage.dialogs.messages[0].text.find("\n" + reason + "\n"), std::string::npos);
        EXPECT_EQ(stage.main.Coup, 0);
        EXPECT_TRUE(stage.main.Enabled);
    }
}

TEST(Files, AnErrorWhileWritingIsToldAndKeepsTheOldFile) {
    Stage stage;
    stage.draw("30000");
    const std::string whole = stage.save();
    const std::size_t count = stage.files.writes;
    ASSERT_GE(count, 3U);
    const auto before = numbers(stage.program);
    for (std::size_t at = 0; at <= count; ++at) {
        stage.files.content["gespeichert.txt"] = "alt";
        stage.files.writes = 0;
        stage.files.failAtWrite = at < count ? at : support::Files::Never;
        stage.files.failCommit = at == count;
        EXPECT_EQ(stage.save(), "alt") << "failing at step " << at;
    }
    stage.files.openError = std::make_error_code(std::errc::read_only_file_system);
    EXPECT_EQ(stage.save(), "alt");
    EXPECT_EQ(numbers(stage.program), before);
    ASSERT_EQ(stage.dialogs.messages.size(), count + 2);
    const auto text = [](const std::string& reason) {
        return "Die Datei „gespeichert.txt“ kann nicht gespeichert werden.\n" + reason
            + "\nEine schon vorhandene Datei ist unverändert.";
    };
    EXPECT_EQ(stage.dialogs.messages[0].text, text("Der Datenträger meldet einen Fehler."));
    EXPECT_EQ(stage.dialogs.messages[count], stage.dialogs.messages[0]);
    EXPECT_EQ(stage.dialogs.messages.back().text, text("Der Datenträger ist schreibgeschützt."));
    stage.files.openError = {};
    stage.files.failCommit = false;
    EXPECT_EQ(stage.save(), whole);
}

TEST(Files, CancellingALoadKeepsTheCoupsSoFar) {
    Stage stage;
    std::string text;
    for (int i = 0; i < 30000; ++i)
        text += std::to_string(i % 37) + "\n";
    stage.events.onTurn = [&] {
        EXPECT_FALSE(stage.main.Enabled);
        if (stage.program.Frm_Progressbar.Visible) {
            EXPECT_EQ(stage.program.Frm_Progressbar.xpProgress.Max, 30000);
            EXPECT_EQ(stage.main.Grid[0].ScrollRow().row, stage.main.Coup);
            Frm_Progressbar::xpButton_Click(stage.program);
        }
    };
    for (int run = 1; run <= 2; ++run) {
        const std::int64_t before = stage.main.Coup;
        stage.load(text);
        const std::int64_t taken = stage.main.Coup - before;
        EXPECT_TRUE(taken > 0 && taken < 30000) << taken;
        EXPECT_TRUE(stage.main.Enabled);
        EXPECT_FALSE(stage.program.Frm_Progressbar.Visible);
        EXPECT_EQ(stage.program.Frm_Progressbar.Abbruch, 0);
        EXPECT_EQ(stage.main.Grid[0].RowCount(), stage.main.Grid[1].RowCount());
        EXPECT_EQ(numbers(stage.program).back(), (taken - 1) % 37);
    }
    std::string last;
    stage.events.onTurn
        = [&] { last = progress::statusText(stage.program.Frm_Progressbar.Lbl_Status); };
    const std::int64_t before = stage.main.Coup;
    stage.load(text);
    EXPECT_EQ(stage.main.Coup, before + 30000);
    EXPECT_EQ(last, " Status: Berechne " + std::to_string(before + 30000) + " / 30000 (100 %)");
}

} // namespace
