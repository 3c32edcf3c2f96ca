// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/librarychange.h"
#include "host/library/records/librarystatus.h"

/// What one batch of an import did.
struct ImportNumbers
{
    int filesAdded = 0;
    int filesChanged = 0;  ///< Files whose state, keywords or tags were written.
    int filesRemoved = 0;
};

/// How a request ended: with a change (an empty one when there was nothing to do) or with the reason why not. A request
/// is carried out whole or not at all, so everything but the reason is empty when it failed.
struct LibraryResult
{
    LibraryStatus status = LibraryStatus::Done;
    QString message;
    QVector<TagRow> rejectedTags;
    QVector<CategoryRow> rejectedCategories;
    LibraryChange change;
    ImportNumbers numbers;
    qint64 rootId = 0;             ///< Of a request for a root.
    QByteArray folderInRoot;       ///< Where in that root the folder asked for is; empty for the root itself.
    QVector<qint64> rootsAdopted;  ///< Roots that are gone: a new one took over their files.

    [[nodiscard]] bool succeeded() const { return status == LibraryStatus::Done; }
};

/// What was read, or why it could not be.
template <typename T>
struct LibraryAnswer
{
    T value = T();
    QString error;  ///< Empty when it was read.

    explicit operator bool() const { return error.isEmpty(); }
};
