// SPDX-License-Identifier: MIT
#include "requests.h"

#include "library.h"
#include "records.h"

#include <QTimer>

namespace {

/// Does the work and emits the answer when control is back in the event loop, so that the sender knows the id by then.
/// The work returns a complaint, or nothing when all went well.
template <class Action, class Work>
void answerFromEventLoop(Action* action, void (Action::*result)(qint64, QSharedPointer<const IResponseInfo>),
                         qint64 request, Work work)
{
    QTimer::singleShot(0, action, [action, result, work, request] {
        (action->*result)(request, QSharedPointer<Response>::create(work()));
    });
}

const QString unknown = QStringLiteral("there is no such tag or category");
const QString taken = QStringLiteral("the name is taken");

}  // namespace

TagRequests::TagRequests(const QSharedPointer<TagLibrary>& library)
    : m_library(library)
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
    return answerLater([library = m_library, tags] {
        for (const auto& tag : tags) {
            if (library->tagGroup(taggroupid::allTags)->tagByName(tag.name))
                return taken;
        }
        for (const auto& tag : tags)
            library->addTag(tag.name, tag.colorIndex);
        library->refresh();
        return QString();
    });
}

qint64 TagRequests::renameTag(qint64 tagId, const QString& newName)
{
    return answerLater([library = m_library, tagId, newName] {
        const auto tag = library->m_tags->value(tagId);
        if (!tag)
            return unknown;
        if (library->tagGroup(taggroupid::allTags)->tagByName(newName))
            return taken;
        tag->m_name = newName;
        emit tag->signalUpdated();
        return QString();
    });
}

qint64 TagRequests::setTagColor(qint64 tagId, int colorIndex)
{
    return answerLater([library = m_library, tagId, colorIndex] {
        const auto tag = library->m_tags->value(tagId);
        if (!tag)
            return unknown;
        tag->m_color = colorIndex;
        emit tag->signalUpdated();
        return QString();
    });
}

qint64 TagRequests::deleteTags(const QVector<qint64>& tagIds)
{
    return answerLater([library = m_library, tagIds] {
        for (const qint64 id : tagIds)
            library->m_tags->remove(id);
        library->refresh();
        return QString();
    });
}

qint64 TagRequests::addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return answerLater([library = m_library, groupIds, tagIds] {
        for (const qint64 id : groupIds) {
            const auto category = library->m_categories.value(id);
            if (!category)
                return unknown;
            category->m_members += QSet<qint64>(tagIds.begin(), tagIds.end());
        }
        library->refresh();
        return QString();
    });
}

qint64 TagRequests::removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return answerLater([library = m_library, groupIds, tagIds] {
        for (const qint64 id : groupIds) {
            const auto category = library->m_categories.value(id);
            if (!category)
                return unknown;
            category->m_members -= QSet<qint64>(tagIds.begin(), tagIds.end());
        }
        library->refresh();
        return QString();
    });
}

CategoryRequests::CategoryRequests(const QSharedPointer<TagLibrary>& library)
    : m_library(library)
{
}

template <class Work>
qint64 CategoryRequests::answerLater(Work work)
{
    answerFromEventLoop<ITagGroupAction>(this, &ITagGroupAction::signalTagGroupResult, ++m_lastRequest, work);
    return m_lastRequest;
}

qint64 CategoryRequests::addTagGroup(const QString& name)
{
    return answerLater([library = m_library, name] {
        if (library->tagGroupByName(name))
            return taken;
        library->addCategory(name);
        return QString();
    });
}

qint64 CategoryRequests::removeTagGroup(qint64 groupId)
{
    return answerLater([library = m_library, groupId] {
        if (groupId < taggroupid::firstUser || !library->tagGroup(groupId))
            return unknown;
        library->removeCategory(groupId);
        return QString();
    });
}

qint64 CategoryRequests::renameTagGroup(qint64 groupId, const QString& newName)
{
    return answerLater([library = m_library, groupId, newName] {
        const auto category = library->m_categories.value(groupId);
        if (!category || groupId < taggroupid::firstUser)
            return unknown;
        if (library->tagGroupByName(newName))
            return taken;
        category->m_name = newName;
        emit category->signalUpdated();
        return QString();
    });
}
