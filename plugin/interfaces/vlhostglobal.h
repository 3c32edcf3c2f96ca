// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/qglobal.h>

/// Marks what the host's service library publishes: exported while that library itself is built, imported elsewhere.
#if defined(VLHOST_BUILD)
#define VLHOST_EXPORT Q_DECL_EXPORT
#else
#define VLHOST_EXPORT Q_DECL_IMPORT
#endif
