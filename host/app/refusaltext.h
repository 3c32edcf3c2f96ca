// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/changekind.h"

#include <QString>

/// What could not be done, and \a reason, as sentences for a person.
[[nodiscard]] QString refusalText(ChangeKind kind, const QString& reason);
