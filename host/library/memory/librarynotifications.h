// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/memory/libraryentries.h"

/// What became of one category in one change.
struct GroupNotification
{
    std::shared_ptr<GroupEntry> group;
    QVector<qint64> tagsAdded;
    QVector<qint64> tagsRemoved;
    bool updated = false;  ///< Its name or its number of tags is another.
};

/// What the providers have to tell about one change that is in memory already.
struct LibraryNotifications
{
    QVector<qint64> groupsAdded;
    QVector<qint64> groupsRemoved;
    QVector<std::shared_ptr<TagEntry>> tagsUpdated;  ///< With another name, colour or file count; each once.
    QVector<GroupNotification> groups;               ///< Each category once, in the order first touched.
    bool filesChanged = false;
};
