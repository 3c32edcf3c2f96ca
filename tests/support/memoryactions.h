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
    explicit MemoryTagAction(MemoryRequestSink sink)
        : m_sink(std::move(sink))
    {
    }

    qint64 createTags(const QVector<NewTagRecord>& tags) override
    {
        MemoryRequest request{"createTags"};
        for (const NewTagRecord& tag : tags) {
            request.names.append(tag.name);
            request.colors.append(tag.colorIndex);
        }
        return m_sink(request);
    }
    qint64 renameTag(qint64 tagId, const QString& newName) override
    {
        return m_sink({"renameTag", {newName}, {}, {tagId}});
    }
    qint64 setTagColor(qint64 tagId, int colorIndex) override
    {
        return m_sink({"setTagColor", {}, {}, {tagId}, {colorIndex}});
    }
    qint64 deleteTags(const QVector<qint64>& tagIds) override { return m_sink({"deleteTags", {}, {}, tagIds}); }
    qint64 addTagsToGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override
    {
        return m_sink({"addTagsToGroups", {}, groupIds, tagIds});
    }
    qint64 removeTagsFromGroups(const QVector<qint64>& groupIds, const QVector<qint64>& tagIds) override
    {
        return m_sink({"removeTagsFromGroups", {}, groupIds, tagIds});
    }

private:
    MemoryRequestSink m_sink;
};

/// Hands every category request to a sink.
class MemoryGroupAction final : public ITagGroupAction
{
public:
    explicit MemoryGroupAction(MemoryRequestSink sink)
        : m_sink(std::move(sink))
    {
    }

    qint64 addTagGroup(const QString& name) override { return m_sink({"addTagGroup", {name}}); }
    qint64 removeTagGroup(qint64 groupId) override { return m_sink({"removeTagGroup", {}, {groupId}}); }
    qint64 renameTagGroup(qint64 groupId, const QString& newName) override
    {
        return m_sink({"renameTagGroup", {newName}, {groupId}});
    }

private:
    MemoryRequestSink m_sink;
};
