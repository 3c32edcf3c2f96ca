// SPDX-License-Identifier: MIT
#include "widgets/plaintooltip.h"

#include <QTextBoundaryFinder>

namespace {
constexpr int longestLine = 60;  // Characters as a reader counts them.

/// Rich text wraps at word boundaries only; a long word gets places where it may break.
QString withBreakingPlaces(const QString& text)
{
    QString result;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int lineLength = 0;
    for (int from = 0, to = finder.toNextBoundary(); to > from; from = to, to = finder.toNextBoundary()) {
        if (++lineLength > longestLine) {
            result.append(QChar(0x200B));
            lineLength = 1;
        }
        result.append(text.midRef(from, to - from));
    }
    return result;
}
}  // namespace

QString plainToolTip(const QString& text)
{
    if (text.isEmpty())
        return {};
    return QLatin1String("<div style='white-space:pre-wrap'>") + withBreakingPlaces(text).toHtmlEscaped() +
           QLatin1String("</div>");
}
