// SPDX-License-Identifier: MIT
#include "host/library/query/takentime.h"

#include <QDateTime>

#include <limits>

namespace {

qint64 startOf(const QDate& day)
{
    return QDateTime(day, QTime(0, 0), Qt::UTC).toMSecsSinceEpoch();
}

/// The year, month or day that the text names.
std::optional<takentime::Range> period(const QString& text)
{
    const QDate day = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    if (day.isValid())
        return takentime::Range{startOf(day), startOf(day.addDays(1))};
    const QDate month = QDate::fromString(text, QStringLiteral("yyyy-MM"));
    if (month.isValid())
        return takentime::Range{startOf(month), startOf(month.addMonths(1))};
    const QDate year = QDate::fromString(text, QStringLiteral("yyyy"));
    if (year.isValid())
        return takentime::Range{startOf(year), startOf(year.addYears(1))};
    return std::nullopt;
}

}  // namespace

std::optional<takentime::Range> takentime::range(const QString& text)
{
    const int dots = text.indexOf(QLatin1String(".."));
    if (dots < 0)
        return period(text);
    const QString first = text.left(dots);
    const QString last = text.mid(dots + 2);
    const std::optional<Range> from = period(first);
    const std::optional<Range> until = period(last);
    const bool isReadable = (from || first.isEmpty()) && (until || last.isEmpty()) && (from || until);
    const Range range = {from ? from->from : std::numeric_limits<qint64>::min(),
                         until ? until->until : std::numeric_limits<qint64>::max()};
    return isReadable && range.from < range.until ? std::optional<Range>(range) : std::nullopt;
}
