// SPDX-License-Identifier: MIT
// A second, plain reader of a permanence to compare with, and the real one fed in pieces.
#pragma once

#include "files/line_reader.h"

#include <memory>
#include <string>
#include <vector>

namespace support {

/// The numbers of a text, by the rules told line by line.
inline std::vector<int> readPlainly(std::string text) {
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

/// The same by the real reader, a block at a time; `next` gives the length of the next block.
template <class Next>
std::vector<int> readInBlocks(std::string_view text, Next next) {
    files::LineReader reader;
    while (!text.empty()) {
        const std::size_t length = std::min<std::size_t>(next(), text.size());
        // In memory of just its size, so that a look beyond its end is seen.
        const auto block = std::make_unique<char[]>(length);
        text.copy(block.get(), length);
        reader.read({block.get(), length});
        text.remove_prefix(length);
    }
    reader.finish();
    std::vector<int> all;
    for (std::int64_t i = 0; i < reader.numbers().size(); ++i)
        all.push_back(reader.numbers()[i]);
    return all;
}

} // namespace support
