// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Asks the person at the display which folder of pictures to open, and returns when that is answered. The path is in
/// the file system's bytes; empty when the person does not want one, or when no display is there to ask on.
/// Needs a QApplication; GUI thread only.
[[nodiscard]] QByteArray askForPictureFolder();
