// SPDX-License-Identifier: MIT
#pragma once

#include <iresponseinfo.h>
#include <tagrecords.h>

/// A tag's record: plain values.
class MemoryTagInfo final : public ITagInfo
{
public:
    MemoryTagInfo(qint64 id, const QString& name, int colorIndex)
        : m_id(id)
        , m_name(name)
        , m_colorIndex(colorIndex)
    {
    }

    qint64 id() const override { return m_id; }
    QString name() const override { return m_name; }
    int colorIndex() const override { return m_colorIndex; }

private:
    qint64 m_id;
    QString m_name;
    int m_colorIndex;
};

/// A category's record: plain values.
class MemoryGroupInfo final : public ITagGroupInfo
{
public:
    MemoryGroupInfo(qint64 id, const QString& name)
        : m_id(id)
        , m_name(name)
    {
    }

    qint64 id() const override { return m_id; }
    QString name() const override { return m_name; }

private:
    qint64 m_id;
    QString m_name;
};

/// An answer: every part of it can be set.
class MemoryResponse final : public IResponseInfo
{
public:
    explicit MemoryResponse(int status = 0, const QString& message = {})
        : m_status(status)
        , m_message(message)
    {
    }

    int status() const override { return m_status; }
    QString message() const override { return m_message; }
    void rejectedTags(QVector<QSharedPointer<const ITagInfo>>& out) const override { out = tags; }
    void rejectedGroups(QVector<QSharedPointer<const ITagGroupInfo>>& out) const override { out = groups; }
    void rejectedFiles(QVector<QSharedPointer<const QString>>& out) const override { out = files; }

    QVector<QSharedPointer<const ITagInfo>> tags;
    QVector<QSharedPointer<const ITagGroupInfo>> groups;
    QVector<QSharedPointer<const QString>> files;

private:
    int m_status;
    QString m_message;
};
