// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <QVector>
#include <QWeakPointer>

#include <memory>

class LibraryCategory;
class LibraryTag;

/// A tag in memory. Its provider, made when somebody first asks, shares the entry; so a provider that outlives its tag,
/// or the library, stays readable.
struct TagEntry
{
    qint64 id = 0;
    QString name;
    int colorIndex = 0;
    int fileCount = 0;
    bool gone = false;           ///< The tag was deleted.
    QVector<qint64> categories;  ///< Those that hold it: user categories and the favourites.
    QWeakPointer<LibraryTag> provider;
};

/// A category in memory, the reserved ones included.
struct CategoryEntry
{
    qint64 id = 0;
    QString name;
    bool gone = false;                              ///< The category was removed.
    QHash<qint64, std::shared_ptr<TagEntry>> tags;  ///< By id.
    QWeakPointer<LibraryCategory> provider;
};
