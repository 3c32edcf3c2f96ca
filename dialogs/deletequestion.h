// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The rich text that asks whether something called \a name, with \a count things that belong to it, is to be deleted.
///
/// \a translatedTemplate holds %1 and %3 for the highlight colour, %2 for the name, %4 for the count and %5 for the
/// colour of the remark; all are filled in one pass. The name reads as it was typed: never as
/// markup, with its white space, and without changing the direction of the words around it. A name that leaves no room
/// in the body of a VLMessageBox is shortened in the middle.
[[nodiscard]] QString fillDeleteQuestion(const QString& translatedTemplate, const QString& name, int count);

/// Whether fillDeleteQuestion() shortens \a name, so that the box should offer all of it as a tool tip.
[[nodiscard]] bool isShortenedInQuestion(const QString& translatedTemplate, const QString& name, int count);
