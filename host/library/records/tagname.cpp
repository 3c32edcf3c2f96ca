// SPDX-License-Identifier: MIT
#include "host/library/records/tagname.h"

#include <QtEndian>

namespace {

bool isSafeAsText(const QString& name)
{
    for (int i = 0; i < name.size(); ++i) {
        const QChar unit = name.at(i);
        if (unit.isNull() || unit == QChar(0xfeff) || unit == QChar(0xfffe) || unit == QChar(0xffff))
            return false;
        if (!unit.isSurrogate())
            continue;
        if (!unit.isHighSurrogate() || i + 1 == name.size() || !name.at(i + 1).isLowSurrogate())
            return false;
        ++i;
    }
    return true;
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
