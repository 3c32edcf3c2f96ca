// SPDX-License-Identifier: MIT
#pragma once

#include "host/library/database/filetable.h"
#include "host/library/requests/libraryrequest.h"

#include <QHash>

/// One batch of an import, or of files to forget: one transaction, so that a library that is closed, killed or out of
/// space stands at the end of a batch. One object carries out one batch.
///
/// A new file costs its row, its keywords and its tags, a known one a look-up, and what did not change is not written.
/// A file has the tags that its keywords lead to and those that a person gave it, without those that a person took
/// away. A keyword that is met for the first time leads to the tag of its name, which is made when there is none.
class ImportBatch
{
public:
    /// To be used while the request is carried out. Throws a LibraryError if there is no such root.
    ImportBatch(LibraryRequest& request, qint64 rootId);

    void import(const QVector<ImportedFile>& files);
    /// Takes files out of the library; unknown paths are ignored, tags and keywords stay.
    void forget(const QVector<QByteArray>& paths);

private:
    struct Keyword
    {
        qint64 id = 0;
        qint64 tagId = 0;  ///< 0 when it leads nowhere.
    };

    void importFile(const ImportedFile& file);
    void addFile(const ImportedFile& file);
    void updateFile(qint64 id, const ImportedFile& file);
    [[nodiscard]] QVector<Keyword> keywordsOf(const ImportedFile& file);
    [[nodiscard]] Keyword keywordOf(const QString& name);
    [[nodiscard]] Keyword newKeyword(const QString& name);
    [[nodiscard]] QVector<qint64> shownTags(qint64 fileId, const QVector<Keyword>& keywords);
    [[nodiscard]] bool setKeywords(qint64 fileId, const QVector<Keyword>& keywords);
    [[nodiscard]] bool setTags(qint64 fileId, const QVector<qint64>& wanted);
    void writeNewFiles();
    void writeCounts();

    LibraryRequest& m_request;
    LibraryDatabase& m_database;
    qint64 m_rootId;
    bool m_hasDecisions;
    bool m_isUnsettled;                  ///< Files of version 1 are being read again.
    QHash<QString, Keyword> m_keywords;  ///< By key, for this batch.
    /// Of new files. They and the tags that they lead to are written all at once, before anything reads them.
    QVector<filetable::KeywordOfFile> m_newKeywords;
    qint64 m_firstNewFile = 0;  ///< Of those; 0 without one.
};
