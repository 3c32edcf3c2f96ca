// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The rule of a search in tag names.
namespace tagsearch {

/// How close a name is to the text, the closest first. Names of one closeness are ordered by UTF-16 code unit.
enum Closeness : int
{
    Equal = 0,
    BeginsWith = 1,
    Elsewhere = 2,
};

/// Whether a search for \a text finds \a name: case does not matter. Every name contains the empty text.
[[nodiscard]] bool finds(const QString& text, const QString& name);
/// Compared with case, of a name that was found. Every name is equally close to the empty text.
[[nodiscard]] Closeness closeness(const QString& text, const QString& name);

}  // namespace tagsearch
