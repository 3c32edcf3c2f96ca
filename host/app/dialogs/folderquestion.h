// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

/// Asks the user which folder of pictures to open, in a modal dialog. Returns the path in the file system's bytes,
/// empty if the user cancels; nothing if there is no display. Needs a QApplication; GUI thread only.
[[nodiscard]] std::optional<QByteArray> askForPictureFolder();

/// Asks the user whether the folder \a from was moved to \a to, in a modal dialog. Returns nothing if the user cancels
/// or if there is no display. Needs a QApplication; GUI thread only.
[[nodiscard]] std::optional<bool> askWhetherMoved(const QByteArray& from, const QByteArray& to);
