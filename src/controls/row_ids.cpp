// SPDX-License-Identifier: MIT
// One pattern number per row.
#include "controls/row_ids.h"

namespace controls {

namespace {

template <class Wide, class Narrow>
Chunked<Wide> copyOf(const Chunked<Narrow>& narrow) {
    Chunked<Wide> wide;
    for (std::int64_t i = 0; i < narrow.size(); ++i)
        wide.push_back(narrow[i]);
    return wide;
}

} // namespace

void RowIds::widen() {
    if (const auto* bytes = std::get_if<Chunked<std::uint8_t>>(&ids_))
        ids_ = copyOf<std::uint16_t>(*bytes);
    else if (const auto* words = std::get_if<Chunked<std::uint16_t>>(&ids_))
        ids_ = copyOf<std::uint32_t>(*words);
}

} // namespace controls
