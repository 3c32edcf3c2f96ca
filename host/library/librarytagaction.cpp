// SPDX-License-Identifier: MIT
#include "host/library/librarytagaction.h"

#include "host/library/libraryrequest.h"

LibraryTagAction::LibraryTagAction(LibraryEngine* engine)
    : m_engine(engine)
{
}

LibraryTagAction::~LibraryTagAction() = default;

template <typename Operation>
qint64 LibraryTagAction::send(Operation operation)
{
    return libraryrequest::send(m_engine.data(), this, &ITagAction::signalTagResult, operation);
}

qint64 LibraryTagAction::createTags(const QVector<NewTagRecord>& tags)
{
    return send([=](LibraryStore& store) { return store.createTags(tags); });
}

qint64 LibraryTagAction::renameTag(qint64 tagId, const QString& newName)
{
    return send([=](LibraryStore& store) { return store.renameTag(tagId, newName); });
}

qint64 LibraryTagAction::setTagColor(qint64 tagId, int colorIndex)
{
    return send([=](LibraryStore& store) { return store.setTagColor(tagId, colorIndex); });
}

qint64 LibraryTagAction::deleteTags(const QVector<qint64>& tagIds)
{
    return send([=](LibraryStore& store) { return store.deleteTags(tagIds); });
}

qint64 LibraryTagAction::addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return send([=](LibraryStore& store) { return store.addTagsToCategories(groupIds, tagIds); });
}

qint64 LibraryTagAction::removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return send([=](LibraryStore& store) { return store.removeTagsFromCategories(groupIds, tagIds); });
}
