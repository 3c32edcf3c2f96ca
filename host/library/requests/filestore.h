// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/records/importoutcome.h"
#include "host/library/records/librarychange.h"

#include <QHash>

class LibraryDatabase;

/// One batch of an import, or of files to forget: one transaction, so that a library that is closed, killed or out of
/// space stands at the end of a batch. One object carries out one batch. Never throws.
///
/// A new file costs its row and its links, a known one two look-ups, and what did not change is not written.
class FileStore
{
public:
    /// To be used on the database's thread while the database lives.
    explicit FileStore(LibraryDatabase& database);

    void import(const QVector<ImportedFile>& files);
    void forget(const QVector<QByteArray>& paths);

    [[nodiscard]] const ImportOutcome& outcome() const { return m_outcome; }
    /// Empty when the batch failed.
    [[nodiscard]] const LibraryChange& change() const { return m_change; }

private:
    template <typename Body>
    void transact(Body body);

    void importFile(const ImportedFile& file);
    void addFile(const ImportedFile& file);
    void updateFile(const FileRow& known, const ImportedFile& file);
    void forgetFile(const QByteArray& path);
    void setTags(qint64 fileId, const QVector<QString>& keywords);
    void link(qint64 fileId, qint64 tagId);
    void unlink(qint64 fileId, qint64 tagId);
    [[nodiscard]] qint64 tagForKeyword(const QString& keyword);

    LibraryDatabase& m_database;
    QHash<QString, qint64> m_tagIds;  ///< By key, for the keywords of this batch.
    ImportOutcome m_outcome;
    LibraryChange m_change;
};
