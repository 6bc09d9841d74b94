// SPDX-License-Identifier: MIT
// Loads and saves real files through the program's own procedures, for the scripts beside this.
//
//   files_trial save FILE COUNT          saves COUNT coups
//   files_trial load FILE [CHANGE]       loads; after the first block the file shrinks, grows,
//                                        vanishes or is replaced
//   files_trial kill FILE TRIALS SEED    kills a saving child at random moments
//
// Every message that a user would see is printed; the exit code is 3 if there was one.
#include "coup/coups.h"
#include "desktop/linux/system.h"
#include "support/stage.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <utility>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int Told = 3;

/// A started program with this computer's files and scripted answers.
struct Program {
    support::Stage stage;
    desktop::Files files;
    platform::Platform platform{stage.events, stage.dialogs, files, stage.clock, stage.media,
        stage.registry, stage.processes};

    void press(int button, const std::string& file) {
        stage.dialogs.chosen = file;
        Frm_Main::xpButton_Click(stage.program, platform, button);
    }
    void take(std::int64_t count, int first, int step) {
        std::vector<std::uint8_t> numbers(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < numbers.size(); ++i)
            numbers[i]
                = static_cast<std::uint8_t>((first + static_cast<std::int64_t>(i) * step) % 37);
        M_Permanenz::takeCoups(stage.program, numbers);
    }
    int tell() const {
        for (const support::Message& message : stage.dialogs.messages)
            std::cout << message.title << ": " << message.text << '\n';
        return stage.dialogs.messages.empty() ? 0 : Told;
    }
};

/// Peak of the resident memory in MB.
long peak() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (long kilobytes = 0; word == "VmHWM:" && status >> kilobytes)
            return kilobytes / 1024;
    return -1;
}

int save(const std::string& file, std::int64_t count) {
    Program program;
    program.take(count, 0, 7);
    program.press(3, file);
    const auto& main = program.stage.main;
    if (main.Coup != count || !main.Enabled || main.inHandler)
        std::cout << "Fault: saving has changed the program\n";
    return program.tell();
}

void change(const std::string& file, const std::string& how) {
    if (how == "shrinks")
        fs::resize_file(file, fs::file_size(file) / 2 + 1);
    else if (how == "grows")
        std::ofstream(file, std::ios::app) << "\r\n 1 \r\n 2 \r\n";
    else if (how == "vanishes")
        fs::remove(file);
    else if (how == "replaced") {
        fs::remove(file);
        std::ofstream(file) << "36\n";
    }
}

int load(const std::string& file, const std::string& how) {
    Program program;
    bool done = false;
    program.stage.events.onTurn = [&] {
        if (!std::exchange(done, true))
            change(file, how);
    };
    program.stage.click(9);
    program.press(2, file);
    const auto& main = program.stage.main;
    std::int64_t sum = 0;
    for (std::int64_t row = 2; row <= main.Grid[1].RowCount(); ++row)
        sum += std::stoi(main.Grid[1].Row(row).Cell(2));
    if (!main.Enabled || main.inHandler || main.Grid[0].RowCount() != main.Coup)
        std::cout << "Fault: the program is not itself after the load\n";
    std::cout << main.Coup - 1 << " coups, sum " << sum << ", peak " << peak() << " MB\n";
    return program.tell();
}

/// What the n-th save writes: its number, many times.
int numberOf(int n) {
    return n % 37;
}
int countOf(int n) {
    return 20'000 + 977 * (n % 61);
}
std::string contentOf(int n) {
    const std::string line = " " + std::to_string(numberOf(n)) + " \r\n";
    std::string all;
    for (int i = 0; i < countOf(n); ++i)
        all += line;
    return all;
}

/// How many saves the child has begun and ended, in memory that outlives it.
struct Progress {
    std::atomic<int> begun;
    std::atomic<int> ended;
};

[[noreturn]] void saveForEver(const std::string& file, Progress& progress) {
    for (int n = progress.ended + 1;; ++n) {
        Program program;
        program.take(countOf(n), numberOf(n), 0);
        progress.begun = n;
        program.press(3, file);
        if (program.tell() != 0)
            std::_Exit(Told);
        progress.ended = n;
    }
}

int kill(const std::string& file, int trials, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_int_distribution<useconds_t> moment(0, 60'000);
    auto* const shared = ::mmap(
        nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto& progress = *new (shared) Progress{};
    std::ofstream(file) << contentOf(0);
    int broken = 0;
    int amid = 0;
    int renewed = 0;
    int left = 0;
    for (int i = 0; i < trials; ++i) {
        const int before = progress.ended;
        progress.begun = before;
        const pid_t child = ::fork();
        if (child == 0)
            saveForEver(file, progress);
        ::usleep(moment(random));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        std::ifstream stream(file, std::ios::binary);
        const std::string is{std::istreambuf_iterator<char>(stream), {}};
        amid += progress.begun != progress.ended ? 1 : 0;
        if (is == contentOf(progress.begun))
            progress.ended = progress.begun.load();
        else if (is != contentOf(progress.ended))
            ++broken;
        renewed += progress.ended != before ? 1 : 0;
        if (!WIFSIGNALED(status))
            ++broken; // it has given up by itself
        for (const auto& entry : fs::directory_iterator(fs::path(file).parent_path()))
            if (entry.path().filename().string().starts_with(".kestrelwood-")) {
                ++left;
                fs::remove(entry.path());
            }
    }
    std::cout << "killed " << trials << " times, " << amid << " amid a save, " << renewed
              << " with a newer file: " << broken << " broken, " << left
              << " left a file aside, seed " << seed << '\n';
    return broken == 0 && amid > trials / 4 ? 0 : 1;
}

} // namespace

int main(int argc, char* argv[]) {
    const std::vector<std::string> words(argv, argv + argc);
    if (argc == 4 && words[1] == "save")
        return save(words[2], std::stoll(words[3]));
    if (argc >= 3 && words[1] == "load")
        return load(words[2], argc > 3 ? words[3] : "");
    if (argc == 5 && words[1] == "kill")
        return kill(words[2], std::stoi(words[3]), static_cast<unsigned>(std::stoul(words[4])));
    return 2;
}
