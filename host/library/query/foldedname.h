// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Names as people compare them when they type one from memory. Callable on any thread.
namespace foldedname {

/// The name without regard to case, width, compatibility forms and the accents of Latin letters: Unicode's NFKC case
/// fold, then ICU's Latin-ASCII. Names that are equal when folded are meant by the same word of a query.
[[nodiscard]] QString folded(const QString& name);

/// How the Chinese characters in a name are read in Mandarin, in Latin letters without tones and blanks; empty for a
/// name without any.
[[nodiscard]] QString reading(const QString& name);

}  // namespace foldedname
