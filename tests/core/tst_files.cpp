// SPDX-License-Identifier: MIT
// Reading and writing permanence files, with everything that a file or a user can do to them.
#include "files/messages.h"
#include "progress/long_run.h"
#include "support/plain_reader.h"
#include "support/stage.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace {

using support::numbers;
using support::Stage;
using namespace std::string_literals;

TEST(Files, EveryKindOfLineAtEverySplit) {
    const std::vector<std::string> odd{"5", "abc", "37", "-1", "36", " 17 ", "\t0\t", "00017",
        "x 17", "1 7", "+5", "5.0", "18446744073709551617", "00000000000000000000000000000003",
        "4294967297", "256", "36\0"s, "\v7", "\xFF", "\xC2\xA0", "036", "\n", "\r\n", "\r", " ",
        "\xEF\xBB\xBF", "\xEF\xBB", "\xEF"};
    EXPECT_EQ(support::readPlainly("5\rabc\n\n37\r\n-1\r\n 36"), (std::vector{5, 36}));
    std::vector<std::string> texts{""};
    std::mt19937 random(41);
    for (int i = 0; i < 6000; ++i, texts.emplace_back(i % 4 == 0 ? "\xEF\xBB\xBF" : "")) {
        // Some are long ones, mostly as a program would write them.
        for (auto count = i % 40 == 0 ? 50 : random() % 8; count > 0; --count)
            texts.back() += i % 40 == 0 && random() % 16 != 0
                ? " " + std::to_string(random() % 41) + " \r\n"
                : odd[random() % odd.size()] + (random() % 3 == 0 ? "" : odd[21 + random() % 3]);
    }
    for (const auto& text : texts) {
        const auto wanted = support::readPlainly(text);
        for (std::size_t cut = 0; cut <= text.size(); ++cut) {
            const auto inTwo
                = [next = cut]() mutable { return std::exchange(next, std::string::npos); };
            ASSERT_EQ(support::readInBlocks(text, inTwo), wanted)
                << "'" << text << "' cut at " << cut;
        }
        ASSERT_EQ(support::readInBlocks(text, [] { return 1; }), wanted) << "'" << text << "'";
    }
}

TEST(Files, GoldenPermanences) {
    namespace fs = std::filesystem;
    const auto content = [](const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    int found = 0;
    for (const auto& entry : fs::directory_iterator(KESTRELWOOD_TESTDATA "/permanences"))
        for (const std::size_t block : {1U, 7U, 1U << 20}) {
            const fs::path& path = entry.path();
            if (path.extension() != ".txt")
                continue;
            ++found;
            std::ifstream expected(fs::path(path).replace_extension(".expected"));
            const std::vector<int> wanted(std::istream_iterator<int>(expected), {});
            Stage stage;
            stage.files.blockSize = block;
            stage.load(content(path));
            EXPECT_EQ(numbers(stage.program), wanted) << path << " in blocks of " << block;
            EXPECT_TRUE(path.stem() != "saved" || stage.save() == content(path));
        }
    EXPECT_GE(found, 15);
}

TEST(Files, SavedBytesAndRoundTrip) {
    Stage stage;
    stage.load(stage.save());
    EXPECT_EQ(stage.main.Coup, 0);
    for (const int number : {17, 0, 36})
        stage.click(number);
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
    EXPECT_EQ(std::pair(other.main.Coup, other.main.Plein), std::pair(std::int64_t{140004}, 5));
}

TEST(Files, DialogsTellWhatTheyAreForAndACancelChangesNothing) {
    Stage stage;
    stage.load("3\n");
    EXPECT_EQ(stage.main.focusRequests, 0U);
    EXPECT_EQ(stage.main.Grid[0].ScrollRow().row, 1);
    const auto loaded = support::state(stage.program);
    for (const std::optional<std::string>& answer :
        {std::optional(""s), std::optional<std::string>()}) {
        stage.dialogs.chosen = answer;
        stage.button(3);
        Frm_Main::M_Laden_Click(stage.program, stage.platform);
        EXPECT_EQ(support::difference(support::state(stage.program), loaded), "");
    }
    EXPECT_TRUE(stage.files.content.size() == 1 && stage.dialogs.messages.empty());
    const std::string filter = "|Textdateien (*.txt)|*.txt|";
    const std::string open = "open|Permanenz laden" + filter;
    const std::string save = "save|Permanenz speichern" + filter + "datei.txt";
    EXPECT_EQ(stage.dialogs.asked,
        (std::vector{open, save, open + "datei.txt", save, open + "datei.txt"}));
}

TEST(Files, AnErrorWhileReadingIsToldAndChangesNothing) {
    const std::string text = " 17 \r\n 0 \r\n";
    std::vector<std::tuple<std::size_t, std::errc, std::string>> cases{
        {0, std::errc::no_such_file_or_directory,
            "Die Datei oder der Ordner wurde nicht gefunden."},
        {0, std::errc::permission_denied, "Die Zugriffsrechte fehlen."},
        {0, std::errc::is_a_directory, "Es ist ein Ordner, keine Datei."},
        {0, std::errc::no_space_on_device, "Der Datenträger ist voll."},
        {0, std::errc::bad_message, "Unerwarteter Fehler Nr. " + std::to_string(EBADMSG) + "."}};
    for (std::size_t place = 0; place < 3 * text.size(); ++place) // a byte to fail at
        cases.emplace_back(place + 1, std::errc(), "Der Datenträger meldet einen Fehler.");
    for (const auto& [place, code, reason] : cases) {
        Stage stage;
        stage.click(9);
        stage.main.FileName = "datei.txt";
        const auto before = support::state(stage.program);
        stage.files.openError = std::make_error_code(code);
        if (place > 0) {
            stage.files.blockSize = 1 + place % 3 * 4;
            stage.files.failAtByte = (place - 1) / 3;
        }
        stage.load(text);
        EXPECT_EQ(support::difference(support::state(stage.program), before), "") << reason;
        ASSERT_EQ(stage.dialogs.messages.size(), 1U);
        EXPECT_EQ(stage.dialogs.messages[0],
            (support::Message{"Fehler",
                "Die Datei „datei.txt“ kann nicht gelesen werden.\n" + reason
                    + "\nDie Permanenz ist unverändert.",
                platform::Icon::Critical}));
        EXPECT_EQ(stage.files.openReaders, 0);
    }
}

TEST(Files, AnErrorWhileWritingIsToldAndKeepsTheOldFile) {
    Stage stage;
    stage.draw("30000");
    const std::string whole = stage.save();
    const std::size_t count = stage.files.writes;
    ASSERT_GE(count, 3U);
    for (std::size_t at = 0; at <= count + 1; ++at) {
        stage.files.content["gespeichert.txt"] = "alt";
        stage.files.writes = 0;
        stage.files.failAtWrite = at < count ? at : support::Files::Never;
        stage.files.failCommit = at == count;
        if (at > count)
            stage.files.openError = std::make_error_code(std::errc::read_only_file_system);
        EXPECT_EQ(stage.save(), "alt") << "failing at step " << at;
        EXPECT_EQ(stage.dialogs.messages.back().text,
            "Die Datei „gespeichert.txt“ kann nicht gespeichert werden.\n"s
                + (at <= count ? "Der Datenträger meldet einen Fehler."
                               : "Der Datenträger ist schreibgeschützt.")
                + "\nEine schon vorhandene Datei ist unverändert.");
    }
    EXPECT_EQ(stage.dialogs.messages.size(), count + 2);
    stage.files.openError = {};
    EXPECT_EQ(stage.save(), whole);
}

TEST(Files, CancellingALoadKeepsTheCoupsSoFar) {
    Stage stage;
    std::string text;
    for (int i = 0; i < 30000; ++i)
        text += std::to_string(i % 37) + "\n";
    const forms::MainForm& form = stage.main;
    const forms::ProgressForm& run = stage.program.Frm_Progressbar;
    for (const bool cancel : {true, true, false}) {
        std::string last;
        stage.events.onTurn = [&] {
            EXPECT_FALSE(form.Enabled);
            EXPECT_TRUE(!run.Visible || run.xpProgress.Max == 30000);
            EXPECT_TRUE(!run.Visible || form.Grid[0].ScrollRow().row == form.Coup);
            last = progress::statusText(run.Lbl_Status);
            if (run.Visible && cancel)
                Frm_Progressbar::xpButton_Click(stage.program);
        };
        const std::int64_t before = form.Coup;
        stage.load(text);
        const std::int64_t taken = form.Coup - before;
        EXPECT_TRUE(cancel ? taken > 0 && taken < 30000 : taken == 30000) << taken;
        EXPECT_TRUE(form.Enabled && !run.Visible && run.Abbruch == 0);
        EXPECT_EQ(numbers(stage.program).back(), (taken - 1) % 37);
        EXPECT_TRUE(
            cancel || last == support::joined(" Status: Berechne ", form.Coup, " / 30000 (100 %)"));
    }
}

} // namespace
