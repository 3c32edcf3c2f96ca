// SPDX-License-Identifier: MIT
#include "tests/support/memoryrequest.h"

namespace {

template <typename Numbers>
void appendNumbers(QString& text, const QString& title, const Numbers& numbers)
{
    QStringList parts;
    for (const auto number : numbers)
        parts.append(QString::number(number));
    if (!parts.isEmpty())
        text += QLatin1Char(' ') + title + QLatin1Char(' ') + parts.join(QLatin1Char(','));
}

}  // namespace

QString MemoryRequest::text() const
{
    QString text = operation;
    appendNumbers(text, QStringLiteral("groups"), groups);
    appendNumbers(text, QStringLiteral("tags"), tags);
    appendNumbers(text, QStringLiteral("colors"), colors);
    if (!names.isEmpty())
        text += QStringLiteral(" names ") + names.join(QLatin1Char(','));
    return text;
}
