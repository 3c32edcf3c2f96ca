// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

/// Asks the person at the display which folder of pictures to open, and returns when that is answered. The path is in
/// the file system's bytes; empty when the person does not want one. Nothing when there is no display to ask on.
/// Needs a QApplication; GUI thread only.
[[nodiscard]] std::optional<QByteArray> askForPictureFolder();

/// Asks the person at the display whether the folder \a from was moved to \a to: true or false, nothing when the person
/// answers neither or when there is no display. As askForPictureFolder() otherwise.
[[nodiscard]] std::optional<bool> askWhetherMoved(const QByteArray& from, const QByteArray& to);
