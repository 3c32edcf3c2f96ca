// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// The bytes of a text or of a path as one field of a line, so that fields stay apart, a terminal is not steered by a
/// name, and nothing stands there that cannot be seen. Backslash, tab, line feed and carriage return become \\, \t, \n
/// and \r; other ASCII control characters and bytes that are no UTF-8 become \xHH; other control characters and those
/// that are invisible or turn the direction of the text become \uHHHH or \UHHHHHHHH.
[[nodiscard]] QByteArray escapedText(const QByteArray& text);

/// The same characters of a JSON text as its own escapes; the text keeps its meaning.
[[nodiscard]] QByteArray escapedJson(const QByteArray& json);
