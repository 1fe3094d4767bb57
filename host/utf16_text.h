// SPDX-License-Identifier: BSD-3-Clause
// UTF-8 text to UTF-16 code units and back: the host's data files hold
// characters as UTF-16, the module's strings are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Bytes that are not valid UTF-8 are taken as Latin-1 characters, so that no
// input is lost or refused.
std::u16string tgUtf8ToUtf16(std::string_view text);

// Unpaired surrogates become U+FFFD.
std::string tgUtf16ToUtf8(std::u16string_view units);

// Appends the UTF-8 bytes of one code point (U+FFFD for values beyond Unicode).
void tgAppendUtf8(std::string& out, std::uint32_t codePoint);
