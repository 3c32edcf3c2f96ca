// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Why this process cannot open what an import with \a readers reader processes needs; empty when it can. The toolkit
/// ends the program without a word for the person when a thread finds no descriptor for its event loop, so this is
/// asked before there is an application object.
[[nodiscard]] QString lackOfDescriptors(int readers);
