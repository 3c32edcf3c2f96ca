// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/libraryrecords.h"

#include <QHash>
#include <QVector>

/// What one committed transaction changed in the tags and categories that people see. It is stored in the log of the
/// library in the same transaction, and memory follows it, whoever caused it.
struct LibraryChange
{
    QVector<TagRow> tagsCreated;
    QVector<TagRow> tagsChanged;  ///< New names and colours; the file counts in it say nothing.
    QVector<qint64> tagsDeleted;
    QVector<CategoryRow> categoriesCreated;
    QVector<CategoryRow> categoriesRenamed;
    QVector<qint64> categoriesRemoved;
    QVector<TagLink> linksAdded;
    QVector<TagLink> linksRemoved;        ///< Without those that went with a tag or a category.
    QHash<qint64, int> fileCountChanges;  ///< By tag, how many files more or less it has.
    bool filesChanged = false;            ///< Files joined or left, or their tags changed.

    [[nodiscard]] bool isEmpty() const;
    /// The same as a series of changes of at most \a most rows each; none for an empty change. Applied one after the
    /// other they lead to the same, by way of states that the library never had.
    [[nodiscard]] QVector<LibraryChange> inPieces(int most) const;

    [[nodiscard]] QByteArray toBytes() const;
    /// Nothing for bytes that are damaged or of another version.
    [[nodiscard]] static std::optional<LibraryChange> fromBytes(const QByteArray& bytes);
};
