// SPDX-License-Identifier: MIT
#pragma once

#include <iresponseinfo.h>
#include <itagcolorprovider.h>
#include <tagrecords.h>

#include <QColor>
#include <QString>
#include <QVector>

namespace example {

/// A tag as it was at one moment. The window may keep it for as long as it likes, so it never changes.
struct TagRecord final : ITagInfo
{
    TagRecord(qint64 id, const QString& name, int colorIndex)
        : m_id(id)
        , m_name(name)
        , m_colorIndex(colorIndex)
    {
    }

    qint64 id() const override { return m_id; }
    QString name() const override { return m_name; }
    int colorIndex() const override { return m_colorIndex; }

    const qint64 m_id;
    const QString m_name;
    const int m_colorIndex;
};

/// A category as it was at one moment.
struct GroupRecord final : ITagGroupInfo
{
    GroupRecord(qint64 id, const QString& name)
        : m_id(id)
        , m_name(name)
    {
    }

    qint64 id() const override { return m_id; }
    QString name() const override { return m_name; }

    const qint64 m_id;
    const QString m_name;
};

/// The answer to a request: carried out when the status is 0, else refused for the reason that the message tells.
struct Response final : IResponseInfo
{
    explicit Response(int status = 0, const QString& message = {})
        : m_status(status)
        , m_message(message)
    {
    }

    int status() const override { return m_status; }
    QString message() const override { return m_message; }
    void rejectedTags(QVector<QSharedPointer<const ITagInfo>>& out) const override { out = tags; }
    void rejectedGroups(QVector<QSharedPointer<const ITagGroupInfo>>& out) const override { out = groups; }
    void rejectedFiles(QVector<QSharedPointer<const QString>>& out) const override { out = files; }

    // What the request could not be carried out for. A request with any of them counts as failed.
    QVector<QSharedPointer<const ITagInfo>> tags;
    QVector<QSharedPointer<const ITagGroupInfo>> groups;
    QVector<QSharedPointer<const QString>> files;

private:
    const int m_status;
    const QString m_message;
};

/// The colours that a tag can have. Lives as long as the plug-in is used.
struct Palette final : ITagColorProvider
{
    const QVector<TagColorEntry>& colorEntries() const override { return m_entries; }
    void color(int index, QColor& out) const override
    {
        const bool known = index >= 0 && index < m_entries.size();
        out = QColor(m_entries[known ? index : 0].color);
    }

    const QVector<TagColorEntry> m_entries = {
        {0, QStringLiteral("Slate"), QStringLiteral("#4a5568")},
        {1, QStringLiteral("Red"), QStringLiteral("#b3261e")},
        {2, QStringLiteral("Orange"), QStringLiteral("#9a4a00")},
        {3, QStringLiteral("Olive"), QStringLiteral("#6b6000")},
        {4, QStringLiteral("Green"), QStringLiteral("#1f6f3a")},
        {5, QStringLiteral("Teal"), QStringLiteral("#00696f")},
        {6, QStringLiteral("Blue"), QStringLiteral("#2458b8")},
        {7, QStringLiteral("Purple"), QStringLiteral("#7a3fa0")},
    };
};

}  // namespace example
