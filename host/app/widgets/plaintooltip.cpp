// SPDX-License-Identifier: MIT
#include "host/app/widgets/plaintooltip.h"

QString plainToolTip(const QString& text)
{
    return QLatin1String("<p style='white-space:pre-wrap'>") + text.toHtmlEscaped() + QLatin1String("</p>");
}
