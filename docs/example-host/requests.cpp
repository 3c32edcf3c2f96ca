// SPDX-License-Identifier: MIT
#include "requests.h"

#include "records.h"
#include "store.h"

#include <QTimer>

namespace example {

namespace {

/// Does the work and emits the answer when control is back in the event loop, so that the sender knows the id by then.
/// The work returns a complaint, or nothing when all went well.
template <class Action, class Work>
void answerFromEventLoop(Action* action, void (Action::*result)(qint64, QSharedPointer<const IResponseInfo>),
                         qint64 request, Work work)
{
    QTimer::singleShot(0, action, [action, result, work, request] {
        const QString complaint = work();
        (action->*result)(request, QSharedPointer<Response>::create(complaint.isEmpty() ? 0 : 1, complaint));
    });
}

const QString unknown = QStringLiteral("there is no such tag or category");
const QString taken = QStringLiteral("the name is taken");

}  // namespace

TagRequests::TagRequests(const QSharedPointer<TagStore>& store)
    : m_store(store)
{
}

template <class Work>
qint64 TagRequests::answerLater(Work work)
{
    answerFromEventLoop<ITagAction>(this, &ITagAction::signalTagResult, ++m_lastRequest, work);
    return m_lastRequest;
}

qint64 TagRequests::createTags(const QVector<NewTagRecord>& tags)
{
    return answerLater([store = m_store, tags] {
        QVector<NewTag> added;
        for (const auto& tag : tags) {
            if (store->tagId(tag.name) != 0)
                return taken;
            added.append({tag.name, tag.colorIndex});
        }
        store->addTags(added);
        return QString();
    });
}

qint64 TagRequests::renameTag(qint64 tagId, const QString& newName)
{
    return answerLater([store = m_store, tagId, newName] {
        if (!store->tag(tagId))
            return unknown;
        if (store->tagId(newName) != 0)
            return taken;
        store->renameTag(tagId, newName);
        return QString();
    });
}

qint64 TagRequests::setTagColor(qint64 tagId, int colorIndex)
{
    return answerLater([store = m_store, tagId, colorIndex] {
        store->setTagColor(tagId, colorIndex);
        return store->tag(tagId) ? QString() : unknown;
    });
}

qint64 TagRequests::deleteTags(const QVector<qint64>& tagIds)
{
    return answerLater([store = m_store, tagIds] {
        store->removeTags(tagIds);
        return QString();
    });
}

qint64 TagRequests::addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return answerLater([store = m_store, groupIds, tagIds] {
        for (const qint64 id : groupIds) {
            if (!store->group(id))
                return unknown;
        }
        store->addTagsToGroups(groupIds, tagIds);
        return QString();
    });
}

qint64 TagRequests::removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return answerLater([store = m_store, groupIds, tagIds] {
        store->removeTagsFromGroups(groupIds, tagIds);
        return QString();
    });
}

GroupRequests::GroupRequests(const QSharedPointer<TagStore>& store)
    : m_store(store)
{
}

template <class Work>
qint64 GroupRequests::answerLater(Work work)
{
    answerFromEventLoop<ITagGroupAction>(this, &ITagGroupAction::signalTagGroupResult, ++m_lastRequest, work);
    return m_lastRequest;
}

qint64 GroupRequests::addTagGroup(const QString& name)
{
    return answerLater([store = m_store, name] {
        if (store->manager()->tagGroupByName(name))
            return taken;
        store->addGroup(name);
        return QString();
    });
}

qint64 GroupRequests::removeTagGroup(qint64 groupId)
{
    return answerLater([store = m_store, groupId] {
        if (groupId < taggroupid::firstUser || !store->group(groupId))
            return unknown;
        store->removeGroup(groupId);
        return QString();
    });
}

qint64 GroupRequests::renameTagGroup(qint64 groupId, const QString& newName)
{
    return answerLater([store = m_store, groupId, newName] {
        if (groupId < taggroupid::firstUser || !store->group(groupId))
            return unknown;
        if (store->manager()->tagGroupByName(newName))
            return taken;
        store->renameGroup(groupId, newName);
        return QString();
    });
}

}  // namespace example
