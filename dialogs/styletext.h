// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>

/// The colour as style sheets and rich text read it, "#AARRGGBB".
inline QString colorText(const QColor& color)
{
    return color.name(QColor::HexArgb);
}
