// SPDX-License-Identifier: MIT
#include "host/library/requests/importbatch.h"

#include "host/library/database/decisiontable.h"
#include "host/library/database/keywordtable.h"
#include "host/library/database/libraryerror.h"
#include "host/library/database/roottable.h"
#include "host/library/database/tagtable.h"
#include "host/library/records/librarytext.h"
#include "host/library/records/tagname.h"
#include "host/library/records/tagpalette.h"
#include "host/library/requests/version1keywords.h"

#include <algorithm>
#include <utility>

namespace {

using keywordtable::State;

QVector<qint64> sorted(QVector<qint64> ids)
{
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

/// Calls \a add for what is in \a wanted only and \a remove for what is in \a present only; both ascend. Whether any
/// was called.
template <typename Add, typename Remove>
bool change(const QVector<qint64>& present, const QVector<qint64>& wanted, Add add, Remove remove)
{
    if (present == wanted)
        return false;
    for (qint64 id : wanted) {
        if (!std::binary_search(present.cbegin(), present.cend(), id))
            add(id);
    }
    for (qint64 id : present) {
        if (!std::binary_search(wanted.cbegin(), wanted.cend(), id))
            remove(id);
    }
    return true;
}

}  // namespace

ImportBatch::ImportBatch(LibraryRequest& request, qint64 rootId)
    : m_request(request)
    , m_database(request.database)
    , m_rootId(rootId)
    , m_hasDecisions(decisiontable::hasAny(m_database))
    , m_isUnsettled(filetable::hasFilesOfVersion1(m_database))
{
    if (!roottable::exists(m_database, rootId))
        throw LibraryError(LibraryStatus::UnknownId, LibraryText::tr("There is no folder %1.").arg(rootId));
}

void ImportBatch::import(const QVector<ImportedFile>& files)
{
    for (const ImportedFile& file : files)
        importFile(file);
    writeNewFiles();
    writeCounts();
}

void ImportBatch::forget(const QVector<QByteArray>& paths)
{
    for (const QByteArray& path : paths) {
        const qint64 id = filetable::idByPath(m_database, m_rootId, path);
        if (id == 0)
            continue;
        (void)setTags(id, {});
        filetable::remove(m_database, id);
        ++m_request.result.numbers.filesRemoved;
    }
    writeCounts();
}

void ImportBatch::importFile(const ImportedFile& file)
{
    const qint64 id = filetable::idByPath(m_database, m_rootId, file.path);
    if (id != 0)
        updateFile(id, file);
    else
        addFile(file);
}

void ImportBatch::addFile(const ImportedFile& file)
{
    const qint64 id = filetable::insert(m_database, m_rootId, file);
    if (m_firstNewFile == 0)
        m_firstNewFile = id;
    QVector<qint64> tags;
    for (const Keyword& keyword : keywordsOf(file)) {
        m_newKeywords.append({id, keyword.id});
        if (keyword.tagId != 0)
            tags.append(keyword.tagId);
    }
    for (qint64 tagId : sorted(tags))
        ++m_request.change().fileCountChanges[tagId];
    ++m_request.result.numbers.filesAdded;
}

void ImportBatch::updateFile(qint64 id, const ImportedFile& file)
{
    writeNewFiles();
    const std::optional<filetable::StoredFile> stored = filetable::fileById(m_database, id);
    if (!stored)
        throw LibraryError(LibraryStatus::Damaged,
                           LibraryText::tr("The library is damaged: its list of files is not that of its files."));
    const bool hasNewState = stored->row.known.state != file.state ||
                             stored->row.known.readerVersion != file.readerVersion || stored->identity != file.identity;
    const bool isOfVersion1 = stored->version1Hash && *stored->version1Hash == version1keywords::hashOf(file.keywords);
    const QVector<Keyword> keywords = keywordsOf(file);
    bool hasChanged = setKeywords(id, keywords) || hasNewState;
    // What version 1 filed, renamed tags included, holds until it is explained by the keywords.
    if (!isOfVersion1)
        hasChanged = setTags(id, shownTags(id, keywords)) || hasChanged;
    if (hasNewState || (stored->version1Hash && !isOfVersion1))
        filetable::update(m_database, id, file, isOfVersion1);
    m_request.result.numbers.filesChanged += hasChanged ? 1 : 0;
}

/// Each once.
QVector<ImportBatch::Keyword> ImportBatch::keywordsOf(const ImportedFile& file)
{
    QVector<Keyword> keywords;
    for (const QString& name : file.keywords) {
        if (tagname::kept(name).isEmpty() || !tagname::isValid(name))
            continue;
        const Keyword keyword = keywordOf(name);
        if (std::none_of(keywords.cbegin(), keywords.cend(), [&](const Keyword& k) { return k.id == keyword.id; }))
            keywords.append(keyword);
    }
    return keywords;
}

ImportBatch::Keyword ImportBatch::keywordOf(const QString& name)
{
    const QString key = tagname::key(name);
    const auto cached = m_keywords.constFind(key);
    if (cached != m_keywords.constEnd())
        return *cached;
    const std::optional<keywordtable::Keyword> stored = keywordtable::find(m_database, name);
    return *m_keywords.insert(key, stored ? Keyword{stored->id, stored->tagId} : newKeyword(name));
}

ImportBatch::Keyword ImportBatch::newKeyword(const QString& name)
{
    if (m_isUnsettled)
        return {keywordtable::insert(m_database, name, State::Unsettled, 0), 0};
    qint64 tagId = tagtable::idByName(m_database, name);
    if (tagId == 0) {
        const TagRow tag = tagtable::insertTag(m_database, name, TagPalette::indexForName(name));
        m_request.change().tagsCreated.append(tag);
        tagId = tag.id;
    }
    return {keywordtable::insert(m_database, name, State::Mapped, tagId), tagId};
}

/// Drops the decisions that the file itself agrees with by now.
QVector<qint64> ImportBatch::shownTags(qint64 fileId, const QVector<Keyword>& keywords)
{
    QVector<qint64> tags;
    for (const Keyword& keyword : keywords) {
        if (keyword.tagId != 0)
            tags.append(keyword.tagId);
    }
    tags = sorted(tags);
    if (!m_hasDecisions)
        return tags;
    QVector<qint64> shown = tags;
    for (const decisiontable::Decision& decision : decisiontable::decisionsOf(m_database, fileId)) {
        const bool isPlus = decision.sign == decisiontable::Sign::Plus;
        if (std::binary_search(tags.cbegin(), tags.cend(), decision.tagId) == isPlus)
            decisiontable::remove(m_database, fileId, decision.tagId);
        else if (isPlus)
            shown.append(decision.tagId);
        else
            shown.removeAll(decision.tagId);
    }
    return sorted(shown);
}

bool ImportBatch::setKeywords(qint64 fileId, const QVector<Keyword>& keywords)
{
    QVector<qint64> wanted;
    for (const Keyword& keyword : keywords)
        wanted.append(keyword.id);
    return change(
        filetable::keywordsOf(m_database, fileId), sorted(wanted),
        [&](qint64 id) { filetable::addKeyword(m_database, fileId, id); },
        [&](qint64 id) { filetable::removeKeyword(m_database, fileId, id); });
}

bool ImportBatch::setTags(qint64 fileId, const QVector<qint64>& wanted)
{
    QHash<qint64, int>& counts = m_request.change().fileCountChanges;
    return change(
        filetable::tagsOf(m_database, fileId), wanted,
        [&](qint64 id) {
            filetable::addTag(m_database, fileId, id);
            ++counts[id];
        },
        [&](qint64 id) {
            filetable::removeTag(m_database, fileId, id);
            --counts[id];
        });
}

/// No decision can be about them, so their tags are those of their keywords.
void ImportBatch::writeNewFiles()
{
    if (m_firstNewFile == 0)
        return;
    filetable::addKeywords(m_database, std::exchange(m_newKeywords, {}));
    filetable::addTagsOfKeywords(m_database, std::exchange(m_firstNewFile, 0));
}

void ImportBatch::writeCounts()
{
    const ImportNumbers& numbers = m_request.result.numbers;
    tagtable::addToFileCounts(m_database, m_request.change().fileCountChanges);
    if (numbers.filesAdded != numbers.filesRemoved)
        roottable::addToFileCount(m_database, m_rootId, numbers.filesAdded - numbers.filesRemoved);
    m_request.change().filesChanged = numbers.filesAdded + numbers.filesChanged + numbers.filesRemoved > 0;
}
