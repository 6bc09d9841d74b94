// SPDX-License-Identifier: MIT
// Permanence files of any length.
#include "data.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <stdexcept>

namespace bench {

namespace {

/// Calls `use` with each number of the file of this length.
template <class Use>
void numbersOf(std::int64_t coups, Use use) {
    std::mt19937 random(static_cast<unsigned>(coups));
    for (std::int64_t i = 0; i < coups; ++i)
        use(static_cast<unsigned>((std::uint64_t{random()} * 37) >> 32));
}

void write(const std::string& name, std::int64_t coups) {
    const std::string aside = name + ".new";
    std::ofstream file(aside, std::ios::binary);
    numbersOf(coups, [&](unsigned number) { file << ' ' << number << " \r\n"; });
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + aside);
    std::filesystem::rename(aside, name);
}

} // namespace

const Data& dataOf(std::int64_t coups) {
    static std::map<std::int64_t, Data> made;
    Data& data = made[coups];
    if (data.coups == coups)
        return data;
    // Beside the program, wherever it is started from.
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "data";
    std::filesystem::create_directories(folder);
    data = {folder / ("permanence-" + std::to_string(coups) + ".txt"), coups, {}};
    if (!std::filesystem::exists(data.file))
        write(data.file, coups);
    numbersOf(coups, [&](unsigned number) { ++data.counts[number]; });
    return data;
}

} // namespace bench
