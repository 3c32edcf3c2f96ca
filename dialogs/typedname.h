// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Rich text that reads as \a name was typed: markup is shown, white space kept, and direction controls in it act on
/// the name alone. A name without white space runs and direction controls is only escaped.
[[nodiscard]] QString typedNameAsRichText(const QString& name);
