// SPDX-License-Identifier: MIT
// The piece itself.
#pragma once

#include <string_view>

namespace melody {

/// Text of our waltz in the form that parse() reads.
std::string_view pieceText();

} // namespace melody
