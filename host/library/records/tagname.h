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

/// Whether no NUL and no half of a surrogate pair is in it. Other names are refused at every entrance: no other program
/// could be given them.
[[nodiscard]] bool isValid(const QString& name);
/// The name with each such character replaced by U+FFFD.
[[nodiscard]] QString repaired(const QString& name);

/// The value that a database column without a type keeps unchanged: text, or, for the few names that SQLite's text
/// would spoil (U+FEFF, U+FFFE and U+FFFF; in version 1 invalid names, too), their UTF-16 code units in little-endian
/// order as a blob.
[[nodiscard]] QVariant toColumn(const QString& name);
[[nodiscard]] QString fromColumn(const QVariant& value);

}  // namespace tagname
