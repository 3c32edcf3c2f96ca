// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/memorypalette.h"
#include "tests/support/memoryproviders.h"
#include "tests/support/memoryrecords.h"
#include "tests/support/memoryrequest.h"

#include <QHash>
#include <QObject>
#include <QSharedPointer>
#include <QStringList>
#include <QVector>

/// A tag to put into the library.
struct MemoryTagSpec
{
    QString name;
    int colorIndex = 0;
    int fileCount = 0;
};

/// A whole host in memory behind the published interfaces, for tests and benchmarks.
///
/// The mutators below change the library as another part of the host would: at once, with the data signals that go with
/// it, one per category however many tags there are. Requests of the plug-in are recorded and answered as set.
/// Category 0 always holds the tags that are in no user category. Each operation is linear in what it changes.
/// The library object may outlive the host; its requests are then neither recorded nor answered.
class MemoryHost : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 AllTags = taggroupid::allTags;
    static constexpr qint64 Uncategorized = taggroupid::fixed;
    static constexpr qint64 Favorites = taggroupid::favorites;

    enum class Answers
    {
        Later,     ///< Carried out and answered from the event loop, first the answer, then the data signals.
        AtOnce,    ///< The same from inside the request, before the plug-in knows the request's id.
        OnDemand,  ///< Only by carryOut() and answer(), or never.
    };

    explicit MemoryHost(QObject* parent = nullptr);
    /// With these tags, ids counted from 1.
    explicit MemoryHost(const QStringList& tagNames);
    ~MemoryHost() override;

    QSharedPointer<ILibraryDataProvider> library() const { return m_library; }
    /// For tests that take parts of the library away.
    MemoryLibrary* memoryLibrary() const { return m_library.data(); }
    MemoryManager* manager() const { return m_library->manager.data(); }
    MemoryPalette* palette() { return &m_palette; }
    /// Null for an unknown id.
    QSharedPointer<MemoryGroup> group(qint64 groupId) const { return manager()->groups.value(groupId); }
    /// Null for an unknown id.
    QSharedPointer<MemoryTag> tag(qint64 tagId) const { return m_tags.value(tagId); }
    /// 0 when there is none.
    qint64 tagId(const QString& name) const;

    qint64 addTag(const QString& name, int colorIndex = 0, int fileCount = 0);
    QVector<qint64> addTags(const QVector<MemoryTagSpec>& tags);
    QVector<qint64> addTags(const QStringList& names);
    void renameTag(qint64 tagId, const QString& name);
    void setTagColor(qint64 tagId, int colorIndex);
    void setFileCount(qint64 tagId, int fileCount);
    void removeTags(const QVector<qint64>& tagIds);
    void setFavorite(qint64 tagId, bool favorite);

    qint64 addGroup(const QString& name) { return addGroups({name}).constFirst(); }
    QVector<qint64> addGroups(const QStringList& names);
    void renameGroup(qint64 groupId, const QString& name);
    void removeGroup(qint64 groupId) { removeGroups({groupId}); }
    void removeGroups(const QVector<qint64>& groupIds);
    void addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds);
    void removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds);

    void setAnswers(Answers answers) { m_answers = answers; }
    /// Later requests change nothing and get an answer with this status and message; status 0 ends that.
    void refuseWith(int status, const QString& message);
    const QVector<MemoryRequest>& requests() const { return m_requests; }
    QStringList requestTexts() const;
    void clearRequests() { m_requests.clear(); }
    /// Changes the library as the request asks, with the data signals, without an answer.
    void carryOut(const MemoryRequest& request);
    /// Sends an answer from the action object of \a request; null is an answer, too. May be sent repeatedly.
    void answer(const MemoryRequest& request, const QSharedPointer<const IResponseInfo>& response);
    /// Sends an answer with any id from both action objects.
    void answerForeign(qint64 requestId, const QSharedPointer<const IResponseInfo>& response);
    static QSharedPointer<MemoryResponse> response(int status = 0, const QString& message = {});

protected:
    /// A request was recorded, and answered if that is to be done at once.
    virtual void requestTaken(const QString& /*operation*/) {}

private:
    qint64 takeRequest(MemoryRequest request);
    void process(const MemoryRequest& request);
    QString refusal(const MemoryRequest& request) const;
    TagHash pick(const QVector<qint64>& tagIds) const;
    void updateUncategorized(const QVector<qint64>& tagIds);

    QSharedPointer<MemoryLibrary> m_library;
    MemoryPalette m_palette;
    QHash<qint64, QSharedPointer<MemoryTag>> m_tags;
    QHash<qint64, int> m_userGroupCounts;
    QVector<MemoryRequest> m_requests;
    Answers m_answers = Answers::Later;
    QSharedPointer<MemoryResponse> m_refusal;
    qint64 m_nextTagId = 1;
    qint64 m_nextGroupId = taggroupid::firstUser;
    qint64 m_nextRequestId = 1;
};
