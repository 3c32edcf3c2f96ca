// SPDX-License-Identifier: MIT
#include "host/services/skincolor.h"

#include <array>

QString skinColorName(SkinColor color)
{
    static const std::array<QString, skinColorCount> names = {
        QStringLiteral("textStrong"),      QStringLiteral("textNormal"),           QStringLiteral("textWeak"),
        QStringLiteral("textOnChip"),      QStringLiteral("popupBackground"),      QStringLiteral("popupBorder"),
        QStringLiteral("popupBlue"),       QStringLiteral("inputAndButton"),       QStringLiteral("addTagOutline"),
        QStringLiteral("scrollHandle"),    QStringLiteral("categoryTileSelected"), QStringLiteral("categoryTile"),
        QStringLiteral("categoryTileAdd"), QStringLiteral("tagItemCount"),
    };
    return names.at(static_cast<size_t>(color));
}
