// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Tool tips interpret text that looks like markup: returns markup that shows \a text as it is.
[[nodiscard]] QString plainToolTip(const QString& text);
