// SPDX-License-Identifier: MIT
#include "taglist/initialletter.h"

#include "taglist/mandarininitials.h"

QString initialLetter(const QString& name)
{
    if (name.isEmpty())
        return {};
    const QChar first = name.at(0);
    const ushort unit = first.unicode();
    if (unit >= 'a' && unit <= 'z')
        return {QChar(unit - 'a' + 'A')};
    const QString& initials = mandarinInitials();
    const int offset = unit - firstMandarinCodePoint;
    if (offset >= 0 && offset < initials.size())
        return {initials.at(offset)};
    return {first};
}
