// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The key of the letter section that a tag of this name is filed under: one character, or empty for an empty name.
///
/// ASCII letters give their upper-case form, common Chinese characters the initial of their Mandarin reading,
/// everything else the first UTF-16 code unit itself. Sections are ordered by plain comparison of their keys. Constant
/// time; may be called from any thread.
QString initialLetter(const QString& name);
