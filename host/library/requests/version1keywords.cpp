// SPDX-License-Identifier: MIT
#include "host/library/requests/version1keywords.h"

#include "host/library/database/categorytable.h"
#include "host/library/database/filetable.h"
#include "host/library/database/keywordtable.h"
#include "host/library/database/tagtable.h"
#include "host/library/database/version1queries.h"
#include "host/library/records/tagname.h"
#include "host/library/records/tagpalette.h"
#include "host/library/requests/tagrequests.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>
#include <QSet>

#include <algorithm>

namespace {

using keywordtable::State;
using version1queries::Pair;
using version1queries::Unsettled;

/// Carries out one settling.
class Settlement
{
public:
    explicit Settlement(LibraryRequest& request);

    [[nodiscard]] bool isNeeded() const;
    void run();

private:
    void reopenGuesses();
    [[nodiscard]] QVector<qint64> candidates(const Unsettled& keyword) const;
    void explainByName();
    void explainByFiles();
    void explain(const Unsettled& keyword);
    void decide(const Unsettled& keyword, State state, qint64 tagId);
    [[nodiscard]] qint64 newTag(const Unsettled& keyword);
    void giveTags();
    void removeWrongGuesses();

    LibraryRequest& m_request;
    QHash<qint64, qint64> m_guesses;  ///< Tags that were made too early, by keyword.
    QVector<Unsettled> m_keywords;
    QHash<qint64, QVector<Pair>> m_pairs;  ///< By keyword.
    QSet<qint64> m_decided;                ///< Keywords.
    QSet<qint64> m_explained;              ///< Tags.
};

Settlement::Settlement(LibraryRequest& request)
    : m_request(request)
{
    reopenGuesses();
    m_keywords = version1queries::unsettledKeywords(request.database);
    for (const Pair& pair : version1queries::pairs(request.database))
        m_pairs[pair.keywordId].append(pair);
    const QVector<qint64> explained = version1queries::explainedTags(request.database);
    m_explained = QSet<qint64>(explained.cbegin(), explained.cend());
}

bool Settlement::isNeeded() const
{
    return !m_keywords.isEmpty() || version1queries::hasFilesReadAgain(m_request.database);
}

void Settlement::run()
{
    explainByName();
    explainByFiles();
    giveTags();
    removeWrongGuesses();
    version1queries::keepUnexplainedTags(m_request.database);
    version1queries::forgetVersion1(m_request.database);
    m_request.change().filesChanged = true;
}

/// A part of the files may have been settled before the others were read: a new file's keyword became a tag of its own
/// then, though these files know it as what a renamed tag was called.
void Settlement::reopenGuesses()
{
    for (const version1queries::Guess& guess : version1queries::contradictedGuesses(m_request.database)) {
        m_guesses.insert(guess.keywordId, guess.tagId);
        keywordtable::update(m_request.database, guess.keywordId, State::Unsettled, 0);
        const int fewer = filetable::leaveKeyword(m_request.database, guess.keywordId, guess.tagId);
        tagtable::addToFileCount(m_request.database, guess.tagId, -fewer);
        m_request.change().fileCountChanges[guess.tagId] -= fewer;
    }
}

void Settlement::explainByName()
{
    for (const Unsettled& keyword : qAsConst(m_keywords)) {
        const qint64 tagId = tagtable::idByName(m_request.database, keyword.name);
        const QVector<Pair> pairs = m_pairs.value(keyword.id);
        const bool isTheirs = std::any_of(pairs.cbegin(), pairs.cend(),
                                          [&](const Pair& pair) { return pair.isExact && pair.tagId == tagId; });
        if (!isTheirs)
            continue;
        m_explained.insert(tagId);
        decide(keyword, State::Mapped, tagId);
    }
}

/// Version 1 gave files their tags by keywords alone: a tag that was renamed is on the files of its keyword and on no
/// others.
QVector<qint64> Settlement::candidates(const Unsettled& keyword) const
{
    QVector<qint64> tagIds;
    for (const Pair& pair : m_pairs.value(keyword.id)) {
        if (pair.isExact && !m_explained.contains(pair.tagId))
            tagIds.append(pair.tagId);
    }
    return tagIds;
}

void Settlement::explainByFiles()
{
    // Two keywords of the same files may each be what a tag was called: which one is not to be known.
    QHash<qint64, int> claims;
    for (const Unsettled& keyword : qAsConst(m_keywords)) {
        if (m_decided.contains(keyword.id))
            continue;
        for (qint64 tagId : candidates(keyword))
            ++claims[tagId];
    }
    for (const Unsettled& keyword : qAsConst(m_keywords)) {
        if (m_decided.contains(keyword.id))
            continue;
        const QVector<qint64> tagIds = candidates(keyword);
        if (tagIds.size() == 1 && claims.value(tagIds.first()) == 1)
            decide(keyword, State::Mapped, tagIds.first());
        else if (!tagIds.isEmpty() && !m_guesses.contains(keyword.id))
            decide(keyword, State::Undecided, 0);
        else
            explain(keyword);
    }
}

/// A keyword that no tag of the files stands for.
void Settlement::explain(const Unsettled& keyword)
{
    const qint64 tagId = tagtable::idByName(m_request.database, keyword.name);
    if (tagId != 0)
        decide(keyword, State::Mapped, tagId);
    else if (keyword.fileCount > 0)
        decide(keyword, State::Ignored, 0);
    else
        decide(keyword, State::Mapped, newTag(keyword));
}

void Settlement::decide(const Unsettled& keyword, State state, qint64 tagId)
{
    m_decided.insert(keyword.id);
    // Those that lead to a tag keep their state until all files have got theirs at once.
    keywordtable::update(m_request.database, keyword.id, state == State::Mapped ? State::Unsettled : state, tagId);
}

void Settlement::giveTags()
{
    const QHash<qint64, int> counts = version1queries::followSettledKeywords(m_request.database);
    tagtable::addToFileCounts(m_request.database, counts);
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        m_request.change().fileCountChanges[count.key()] += count.value();
}

/// Unless a person did something with the tag meanwhile.
void Settlement::removeWrongGuesses()
{
    if (m_guesses.isEmpty())
        return;
    QSet<qint64> inCategories;
    for (const TagLink& link : categorytable::links(m_request.database))
        inCategories.insert(link.tagId);
    QVector<qint64> unused;
    for (qint64 tagId : qAsConst(m_guesses)) {
        const std::optional<TagRow> tag = tagtable::tagById(m_request.database, tagId);
        if (tag && tag->fileCount == 0 && tag->colorIndex == TagPalette::indexForName(tag->name) &&
            !inCategories.contains(tagId))
            unused.append(tagId);
    }
    tagrequests::remove(m_request, unused);
}

qint64 Settlement::newTag(const Unsettled& keyword)
{
    const TagRow tag = tagtable::insertTag(m_request.database, keyword.name, TagPalette::indexForName(keyword.name));
    m_request.change().tagsCreated.append(tag);
    return tag.id;
}

}  // namespace

QByteArray version1keywords::hashOf(const QVector<QString>& keywords)
{
    QStringList listed;
    QSet<QString> known;
    for (const QString& keyword : keywords) {
        const QString key = tagname::key(keyword);
        if (key.isEmpty() || known.contains(key))
            continue;
        known.insert(key);
        listed.append(tagname::kept(keyword));
    }
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << listed;
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

void version1keywords::settle(LibraryRequest& request)
{
    Settlement settlement(request);
    if (settlement.isNeeded())
        settlement.run();
}
