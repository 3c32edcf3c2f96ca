// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// First code point of the table: the start of the CJK Unified Ideographs block.
constexpr ushort firstMandarinCodePoint = 0x4E00;

/// The initial Latin letter of the common Mandarin (pinyin) reading of every code point from U+4E00 to U+9FA5, in code
/// point order, upper case. 20,902 characters, never changed; may be read from any thread.
const QString& mandarinInitials();
