// SPDX-License-Identifier: MIT
#include "host/app/widgets/flatbuttonstyle.h"

#include <vlskinsetting.h>

QString flatButtonStyle()
{
    const VLSkinSetting* skin = VLSkinSetting::GetInstance();
    const QString sheet = QStringLiteral("QPushButton { color: %1; background: %2; border: 0; border-radius: 4px;"
                                         " font-size: 12px; padding: 0 12px; min-height: 24px; }"
                                         "QPushButton:hover, QPushButton:focus { background: %3; }");
    return sheet.arg(skin->GetTextColor(1).name(), skin->GetPopupWinBorderColor().name(),
                     skin->GetInputAndButtonColor().name());
}
