// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/changekind.h"

#include <QString>

/// Sentences for the user that say which change was refused, and \a reason.
[[nodiscard]] QString refusalText(ChangeKind kind, const QString& reason);
