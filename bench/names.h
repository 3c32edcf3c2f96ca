// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace bench {

/// \a count different tag names, the same ones for the same \a seed on every machine: English words and phrases of two
/// words, one fifth Chinese, some with accents, some with an emoji.
QStringList tagNames(int count, unsigned seed = 1);

/// \a count names that each stand alone under an initial of their own: kana, Latin letters with accents, Hangul, Han
/// characters without an entry in the table of Mandarin initials, Yi. At most sectionNamesLimit of them.
QStringList sectionNames(int count);
constexpr int sectionNamesLimit = 20000;

}  // namespace bench
