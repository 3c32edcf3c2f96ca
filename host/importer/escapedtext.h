// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// The bytes of a text or of a path for one field of a line: backslash, tab, line feed and carriage return become \\,
/// \t, \n and \r, other control characters \xHH, so that fields stay apart and a terminal is not steered by a name.
[[nodiscard]] QByteArray escapedText(const QByteArray& text);
