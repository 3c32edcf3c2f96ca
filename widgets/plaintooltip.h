// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A tool tip that shows \a text as it was typed, never as markup, wrapped at a readable length. Empty for an empty
/// text.
[[nodiscard]] QString plainToolTip(const QString& text);
