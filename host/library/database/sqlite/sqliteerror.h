// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/libraryerror.h"

class QSqlError;

/// What SQLite reports, put into words for a person.
[[nodiscard]] LibraryError sqliteError(const QSqlError& error);
