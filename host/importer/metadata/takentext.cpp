// SPDX-License-Identifier: MIT
#include "host/importer/metadata/takentext.h"

#include <QDateTime>

namespace {

/// The form of both: digits are 0, any other character stands for itself.
bool hasForm(const QString& text, const char* form)
{
    for (int i = 0; form[i] != '\0'; ++i) {
        const QChar c = i < text.size() ? text.at(i) : QChar();
        if (form[i] == '0' ? c < '0' || c > '9' : c != QLatin1Char(form[i]))
            return false;
    }
    return true;
}

}  // namespace

// Without regular expressions: their compiler makes code at run time, which a confined process cannot.
std::optional<qint64> takenTimeFrom(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (!hasForm(trimmed, "0000:00:00") && !hasForm(trimmed, "0000-00-00"))
        return std::nullopt;
    const auto number = [&trimmed](int start, int length) { return trimmed.midRef(start, length).toInt(); };
    const QDate day(number(0, 4), number(5, 2), number(8, 2));
    const QString rest = trimmed.mid(11);
    QTime time(0, 0);
    if (hasForm(rest, "00:00"))
        time = QTime(number(11, 2), number(14, 2), hasForm(rest, "00:00:00") ? number(17, 2) : 0);
    if (!day.isValid() || !time.isValid())
        return std::nullopt;
    return QDateTime(day, time, Qt::UTC).toMSecsSinceEpoch();
}
