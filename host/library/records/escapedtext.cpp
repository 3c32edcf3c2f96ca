// SPDX-License-Identifier: MIT
#include "host/library/records/escapedtext.h"

#include <QChar>
#include <QString>

namespace {

// Signs of the category "format" that are drawn: Arabic number signs and the like, and letters of musical notation.
bool isDrawn(uint c)
{
    return (c >= 0x600 && c <= 0x605) || c == 0x6dd || c == 0x8e2 || c == 0x110bd;
}

bool isHidden(uint c)
{
    switch (QChar::category(c)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format:
        return !isDrawn(c);
    default:
        // Fillers, which are letters by category and blank to the eye.
        return c == 0x115f || c == 0x1160 || c == 0x3164 || c == 0xffa0;
    }
}

QByteArray escape(const char* prefix, uint number, int digits)
{
    return QByteArray(prefix).append(QByteArray::number(number, 16).rightJustified(digits, '0'));
}

QByteArray escapedCharacter(uint c)
{
    switch (c) {
    case '\\':
        return "\\\\";
    case '\t':
        return "\\t";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    default:
        break;
    }
    if (!isHidden(c))
        return QString::fromUcs4(&c, 1).toUtf8();
    if (c < 0x80)
        return escape("\\x", c, 2);
    return c < 0x10000 ? escape("\\u", c, 4) : escape("\\U", c, 8);
}

// Bytes of the character at that place; 0 when there is none in valid UTF-8.
int decode(const QByteArray& text, int at, uint* c)
{
    const auto lead = uchar(text.at(at));
    const int size = lead < 0x80 ? 1 : lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : lead >= 0xc0 ? 2 : 0;
    if (size == 0 || at + size > text.size())
        return 0;
    *c = size == 1 ? lead : lead & (0x7fU >> size);
    for (int i = 1; i < size; ++i) {
        const auto next = uchar(text.at(at + i));
        if ((next & 0xc0) != 0x80)
            return 0;
        *c = (*c << 6) | (next & 0x3fU);
    }
    constexpr uint smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return *c >= smallest[size] && *c <= QChar::LastValidCodePoint && !QChar::isSurrogate(*c) ? size : 0;
}

}  // namespace

QByteArray escapedText(const QByteArray& text)
{
    QByteArray escaped;
    escaped.reserve(text.size());
    for (int at = 0; at < text.size();) {
        uint c = 0;
        const int size = decode(text, at, &c);
        escaped += size > 0 ? escapedCharacter(c) : escape("\\x", uchar(text.at(at)), 2);
        at += qMax(size, 1);
    }
    return escaped;
}

QByteArray escapedJson(const QByteArray& json)
{
    QByteArray escaped;
    escaped.reserve(json.size());
    const QString text = QString::fromUtf8(json);
    for (int at = 0; at < text.size(); ++at) {
        const bool isPair = text.at(at).isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate();
        const uint c = isPair ? QChar::surrogateToUcs4(text.at(at), text.at(at + 1)) : text.at(at).unicode();
        const QString character = text.mid(at, isPair ? 2 : 1);
        // Blanks between the values are none of a name's.
        const bool isEscaped = isHidden(c) && c >= 0x7f;
        for (const QChar unit : character)
            escaped += isEscaped ? escape("\\u", unit.unicode(), 4) : QByteArray();
        if (!isEscaped)
            escaped += character.toUtf8();
        at += isPair ? 1 : 0;
    }
    return escaped;
}
