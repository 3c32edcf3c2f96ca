// SPDX-License-Identifier: MIT
#include "host/library/requests/filestore.h"

#include "host/library/database/filetable.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/librarystatement.h"
#include "host/library/database/librarytransaction.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/tagname.h"
#include "host/library/records/tagpalette.h"

#include <algorithm>

namespace {

/// An importer that sees an old size and time need not read the content.
bool isUnchanged(const FileState& known, const FileState& found)
{
    FileState compared = found;
    if (compared.content.isEmpty())
        compared.content = known.content;
    return compared == known;
}

/// Touched, but with the same bytes in it: what the library has filed, renamed tags included, holds.
bool saysTheSame(const FileState& known, const FileState& found)
{
    return !found.content.isEmpty() && known.content == found.content && known.sidecars == found.sidecars;
}

}  // namespace

FileStore::FileStore(LibraryDatabase& database)
    : m_database(database)
{
}

template <typename Body>
void FileStore::transact(Body body)
{
    try {
        LibraryTransaction transaction(m_database, LibraryTransaction::Kind::Writing);
        body();
        transaction.commit();
        m_outcome.succeeded = true;
        m_change.filesChanged = m_outcome.filesAdded + m_outcome.filesChanged + m_outcome.filesRemoved > 0;
    } catch (const LibraryError& error) {
        m_outcome = {};
        m_outcome.message = error.message();
        m_change = {};
    }
}

void FileStore::import(const QVector<ImportedFile>& files)
{
    transact([&] {
        for (const ImportedFile& file : files)
            importFile(file);
    });
}

void FileStore::forget(const QVector<QByteArray>& paths)
{
    transact([&] {
        for (const QByteArray& path : paths)
            forgetFile(path);
    });
}

void FileStore::importFile(const ImportedFile& file)
{
    const std::optional<FileRow> known = filetable::fileByPath(m_database, file.path);
    if (!known)
        addFile(file);
    else if (isUnchanged(known->state, file.state))
        ++m_outcome.filesUnchanged;
    else
        updateFile(*known, file);
}

void FileStore::addFile(const ImportedFile& file)
{
    LibraryStatement insert(m_database,
                            "INSERT INTO files (path, size, modified, sidecars, content) VALUES (?, ?, ?, ?, ?)");
    insert.run(file.path, file.state.size, file.state.modified, file.state.sidecars, file.state.content);
    setTags(insert.lastInsertId(), file.keywords.value_or(QVector<QString>()));
    ++m_outcome.filesAdded;
}

void FileStore::updateFile(const FileRow& known, const ImportedFile& file)
{
    LibraryStatement update(m_database,
                            "UPDATE files SET size = ?, modified = ?, sidecars = ?, content = ? WHERE id = ?");
    update.run(file.state.size, file.state.modified, file.state.sidecars, file.state.content, known.id);
    if (file.keywords && !saysTheSame(known.state, file.state))
        setTags(known.id, *file.keywords);
    ++m_outcome.filesChanged;
}

void FileStore::setTags(qint64 fileId, const QVector<QString>& keywords)
{
    QVector<qint64> wanted;
    for (const QString& keyword : keywords) {
        if (!tagname::kept(keyword).isEmpty())
            wanted.append(tagForKeyword(keyword));
    }
    std::sort(wanted.begin(), wanted.end());
    wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
    const QVector<qint64> present = filetable::tagsOfFile(m_database, fileId);
    for (qint64 tagId : wanted) {
        if (!std::binary_search(present.begin(), present.end(), tagId))
            link(fileId, tagId);
    }
    for (qint64 tagId : present) {
        if (!std::binary_search(wanted.begin(), wanted.end(), tagId))
            unlink(fileId, tagId);
    }
}

void FileStore::link(qint64 fileId, qint64 tagId)
{
    LibraryStatement(m_database, "INSERT INTO file_tags (tag_id, file_id) VALUES (?, ?)").run(tagId, fileId);
    ++m_outcome.linksAdded;
    ++m_change.fileCountChanges[tagId];
}

void FileStore::unlink(qint64 fileId, qint64 tagId)
{
    LibraryStatement(m_database, "DELETE FROM file_tags WHERE tag_id = ? AND file_id = ?").run(tagId, fileId);
    ++m_outcome.linksRemoved;
    --m_change.fileCountChanges[tagId];
}

void FileStore::forgetFile(const QByteArray& path)
{
    const std::optional<FileRow> known = filetable::fileByPath(m_database, path);
    if (!known)
        return;
    setTags(known->id, {});
    LibraryStatement(m_database, "DELETE FROM files WHERE id = ?").run(known->id);
    ++m_outcome.filesRemoved;
}

qint64 FileStore::tagForKeyword(const QString& keyword)
{
    const QString key = tagname::key(keyword);
    const auto cached = m_tagIds.constFind(key);
    if (cached != m_tagIds.constEnd())
        return *cached;
    std::optional<TagRow> tag = tagtable::tagByName(m_database, keyword);
    if (!tag) {
        tag = tagtable::insertTag(m_database, keyword, TagPalette::indexForName(keyword));
        m_change.tagsCreated.append(*tag);
        ++m_outcome.tagsCreated;
    }
    m_tagIds.insert(key, tag->id);
    return tag->id;
}
