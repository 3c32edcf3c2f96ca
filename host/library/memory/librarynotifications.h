// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/memory/libraryentries.h"

/// What became of one category in one change.
struct CategoryNotification
{
    std::shared_ptr<CategoryEntry> category;
    QVector<qint64> tagsAdded;
    QVector<qint64> tagsRemoved;
    bool updated = false;  ///< Its name or its number of tags is another.
};

/// What the providers emit for one change that is in memory already.
struct LibraryNotifications
{
    QVector<qint64> categoriesAdded;
    QVector<qint64> categoriesRemoved;
    QVector<std::shared_ptr<TagEntry>> tagsUpdated;  ///< With another name, colour or file count; each once.
    QVector<CategoryNotification> categories;        ///< Each category once, in the order first touched.
    bool filesChanged = false;
};
