// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/memoryrequest.h"

#include <itagaction.h>
#include <itaggroupaction.h>

#include <functional>

/// Takes a request's contents and returns its id.
using MemoryRequestSink = std::function<qint64(const MemoryRequest&)>;

/// Hands every tag request to a sink.
class MemoryTagAction final : public ITagAction
{
public:
    explicit MemoryTagAction(MemoryRequestSink sink);

    qint64 createTags(const QVector<NewTagRecord>& tags) override;
    qint64 renameTag(qint64 tagId, const QString& newName) override;
    qint64 setTagColor(qint64 tagId, int colorIndex) override;
    qint64 deleteTags(const QVector<qint64>& tagIds) override;
    qint64 addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override;
    qint64 removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override;

private:
    MemoryRequestSink m_sink;
};

/// Hands every category request to a sink.
class MemoryGroupAction final : public ITagGroupAction
{
public:
    explicit MemoryGroupAction(MemoryRequestSink sink);

    qint64 addTagGroup(const QString& name) override;
    qint64 removeTagGroup(qint64 groupId) override;
    qint64 renameTagGroup(qint64 groupId, const QString& newName) override;

private:
    MemoryRequestSink m_sink;
};
