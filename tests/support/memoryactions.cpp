// SPDX-License-Identifier: MIT
#include "tests/support/memoryactions.h"

#include <tagrecords.h>

MemoryTagAction::MemoryTagAction(MemoryRequestSink sink)
    : m_sink(std::move(sink))
{
}

qint64 MemoryTagAction::createTags(const QVector<NewTagRecord>& tags)
{
    MemoryRequest request{0, QStringLiteral("createTags"), {}, {}, {}};
    for (const NewTagRecord& tag : tags) {
        request.names.append(tag.name);
        request.colors.append(tag.colorIndex);
    }
    return m_sink(request);
}

qint64 MemoryTagAction::renameTag(qint64 tagId, const QString& newName)
{
    return m_sink({0, QStringLiteral("renameTag"), {newName}, {}, {tagId}});
}

qint64 MemoryTagAction::setTagColor(qint64 tagId, int colorIndex)
{
    return m_sink({0, QStringLiteral("setTagColor"), {}, {}, {tagId}, {colorIndex}});
}

qint64 MemoryTagAction::deleteTags(const QVector<qint64>& tagIds)
{
    return m_sink({0, QStringLiteral("deleteTags"), {}, {}, tagIds});
}

qint64 MemoryTagAction::addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return m_sink({0, QStringLiteral("addTagsToGroups"), {}, groupIds, tagIds});
}

qint64 MemoryTagAction::removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds)
{
    return m_sink({0, QStringLiteral("removeTagsFromGroups"), {}, groupIds, tagIds});
}

MemoryGroupAction::MemoryGroupAction(MemoryRequestSink sink)
    : m_sink(std::move(sink))
{
}

qint64 MemoryGroupAction::addTagGroup(const QString& name)
{
    return m_sink({0, QStringLiteral("addTagGroup"), {name}, {}, {}});
}

qint64 MemoryGroupAction::removeTagGroup(qint64 groupId)
{
    return m_sink({0, QStringLiteral("removeTagGroup"), {}, {groupId}, {}});
}

qint64 MemoryGroupAction::renameTagGroup(qint64 groupId, const QString& newName)
{
    return m_sink({0, QStringLiteral("renameTagGroup"), {newName}, {groupId}, {}});
}
