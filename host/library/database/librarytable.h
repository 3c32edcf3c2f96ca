// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class LibraryDatabase;

/// What a library knows of itself. Throws LibraryErrors.
namespace librarytable {

/// Unlike that of any other library; copies of one have the same.
[[nodiscard]] QString id(LibraryDatabase& database);

}  // namespace librarytable
