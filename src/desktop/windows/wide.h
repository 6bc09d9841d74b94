// SPDX-License-Identifier: MIT
// Our texts as the system wants them.
#pragma once

#include <string>
#include <string_view>

#include <windows.h>

namespace desktop {

/// UTF-8 as UTF-16.
inline std::wstring wide(std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring result(text.size(), L'\0'); // never longer
    result.resize(static_cast<std::size_t>(
        ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), size)));
    return result;
}

} // namespace desktop
