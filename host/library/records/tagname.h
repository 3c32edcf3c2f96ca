// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

/// Names of tags and categories: how they are kept, compared and stored.
namespace tagname {

/// The name as it is kept: as typed, without white space at its ends.
[[nodiscard]] QString kept(const QString& typed);

/// What two names must share to be the same: the kept name in Unicode normalisation form C. Case counts.
[[nodiscard]] QString key(const QString& typed);

/// The value that a database column without a type keeps unchanged: text, or, for the few names that SQLite's text
/// would spoil (lone surrogates, NUL, U+FEFF, U+FFFE and U+FFFF), their UTF-16 code units in little-endian order as a
/// blob.
[[nodiscard]] QVariant toColumn(const QString& name);
[[nodiscard]] QString fromColumn(const QVariant& value);

}  // namespace tagname
