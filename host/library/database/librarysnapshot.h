// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/librarychange.h"

#include <QHash>
#include <QSet>

class LibraryDatabase;

/// The tags, categories and links of a library at one moment. Holds the strings once with whoever got them from here.
struct LibrarySnapshot
{
    QHash<qint64, TagRow> tags;             ///< By id.
    QHash<qint64, CategoryRow> categories;  ///< By id, the favourites included; the numbers of tags say nothing.
    QSet<TagLink> links;  ///< After changes, also those of tags and categories that are gone; ids are never used twice.

    /// As it is stored. Reads every tag and counts every link between files and tags once. Throws a LibraryError.
    [[nodiscard]] static LibrarySnapshot read(LibraryDatabase& database);

    /// Follows a change as LibraryView::apply() does; ids that are not known are ignored.
    void apply(const LibraryChange& change);
    /// What leads from here to \a later; nothing about files. Created rows ascend by id.
    [[nodiscard]] LibraryChange changeTo(const LibrarySnapshot& later) const;

private:
    void applyLinks(const LibraryChange& change);
};
