// SPDX-License-Identifier: MIT
// Permanence files of any length.
#include "data.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>

namespace bench {

namespace {

constexpr std::size_t WriteBlock = 1 << 20;

std::string fileOf(std::int64_t coups) {
    // Beside the program, wherever it is started from.
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "daten";
    std::filesystem::create_directories(folder);
    return folder / ("permanenz-" + std::to_string(coups) + ".txt");
}

/// Calls `use` with each number of the file of this length.
template <class Use>
void numbersOf(std::int64_t coups, Use use) {
    std::mt19937 random(static_cast<unsigned>(coups));
    for (std::int64_t i = 0; i < coups; ++i)
        use(static_cast<unsigned>((std::uint64_t{random()} * 37) >> 32));
}

void write(const std::string& name, std::int64_t coups) {
    const std::string aside = name + ".neu";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        std::fopen(aside.c_str(), "wb"), &std::fclose);
    std::string block;
    bool good = file != nullptr;
    const auto flush = [&] {
        good = good && std::fwrite(block.data(), 1, block.size(), file.get()) == block.size();
        block.clear();
    };
    numbersOf(coups, [&](unsigned number) {
        block += ' ';
        block += std::to_string(number);
        block += " \r\n";
        if (block.size() >= WriteBlock)
            flush();
    });
    flush();
    if (!good || std::fflush(file.get()) != 0) {
        std::perror(aside.c_str());
        std::exit(2);
    }
    std::filesystem::rename(aside, name);
}

} // namespace

Data dataOf(std::int64_t coups) {
    Data data{fileOf(coups), coups, Counts(37)};
    if (!std::filesystem::exists(data.file))
        write(data.file, coups);
    numbersOf(coups, [&](unsigned number) { ++data.counts[number]; });
    return data;
}

} // namespace bench
