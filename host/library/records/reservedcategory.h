// SPDX-License-Identifier: MIT
#pragma once

#include <itagmanagerdataprovider.h>

#include <QString>

/// The categories that every library has; their ids are part of the host's interface.
namespace reservedcategory {

constexpr qint64 allTags = taggroupid::allTags;
/// The tags that are in no user category; being a favourite does not count.
constexpr qint64 unsorted = taggroupid::fixed;
constexpr qint64 favorites = taggroupid::favorites;
constexpr qint64 firstUserId = taggroupid::firstUser;

/// Display name; empty for an id that is not reserved.
[[nodiscard]] QString name(qint64 id);
/// Whether a user category may not be called so: the reserved names in the language of the moment, in English, and in
/// what earlier versions called them, so that a library means the same in every language.
[[nodiscard]] bool isReservedName(const QString& name);

}  // namespace reservedcategory
