// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The error if this process cannot open as many files as an import with \a readers reader processes needs; empty if it
/// can. Qt aborts if a thread has no descriptor for its event loop, so call this before creating an application object.
[[nodiscard]] QString lackOfDescriptors(int readers);
