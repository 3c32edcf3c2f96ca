// SPDX-License-Identifier: MIT
#include "host/importer/escapedtext.h"

QByteArray escapedText(const QByteArray& text)
{
    QByteArray escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        if (c == '\\')
            escaped += "\\\\";
        else if (c == '\t')
            escaped += "\\t";
        else if (c == '\n')
            escaped += "\\n";
        else if (c == '\r')
            escaped += "\\r";
        else if (uchar(c) < 0x20 || c == 0x7f)
            escaped.append("\\x").append(QByteArray(1, c).toHex());
        else
            escaped += c;
    }
    return escaped;
}
