// SPDX-License-Identifier: MIT
#include "host/library/records/tagname.h"

#include <QtEndian>

#include <algorithm>

namespace {

/// Whether the unit at \a i may be in a name; a pair of surrogates counts at each of its halves.
bool isValidAt(const QString& name, int i)
{
    const QChar unit = name.at(i);
    if (unit.isHighSurrogate())
        return i + 1 < name.size() && name.at(i + 1).isLowSurrogate();
    if (unit.isLowSurrogate())
        return i > 0 && name.at(i - 1).isHighSurrogate();
    return !unit.isNull();
}

bool isSafeAsText(const QString& name)
{
    const auto isSpoiled = [](QChar unit) {
        return unit == QChar(0xfeff) || unit == QChar(0xfffe) || unit == QChar(0xffff);
    };
    return tagname::isValid(name) && std::none_of(name.cbegin(), name.cend(), isSpoiled);
}

}  // namespace

QString tagname::kept(const QString& typed)
{
    return typed.trimmed();
}

QString tagname::key(const QString& typed)
{
    return typed.trimmed().normalized(QString::NormalizationForm_C);
}

bool tagname::isValid(const QString& name)
{
    for (int i = 0; i < name.size(); ++i) {
        if (!isValidAt(name, i))
            return false;
    }
    return true;
}

QString tagname::repaired(const QString& name)
{
    QString repaired = name;
    for (int i = 0; i < name.size(); ++i) {
        if (!isValidAt(name, i))
            repaired[i] = QChar::ReplacementCharacter;
    }
    return repaired;
}

QVariant tagname::toColumn(const QString& name)
{
    if (isSafeAsText(name))
        return name;
    QByteArray units(name.size() * int(sizeof(char16_t)), Qt::Uninitialized);
    qToLittleEndian<quint16>(name.utf16(), name.size(), units.data());
    return units;
}

QString tagname::fromColumn(const QVariant& value)
{
    if (value.userType() != QMetaType::QByteArray)
        return value.toString();
    const QByteArray units = value.toByteArray();
    QString name(units.size() / int(sizeof(char16_t)), Qt::Uninitialized);
    qFromLittleEndian<quint16>(units.constData(), name.size(), name.data());
    return name;
}
