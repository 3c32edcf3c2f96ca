// SPDX-License-Identifier: MIT
#pragma once

#include <iresponseinfo.h>
#include <itagcolorprovider.h>
#include <tagrecords.h>

#include <QColor>
#include <QString>
#include <QVector>

/// A tag as it was at one moment. The window may keep it for as long as it likes, so it never changes.
struct TagRecord final : ITagInfo
{
    TagRecord(qint64 id, const QString& name, int color)
        : m_id(id)
        , m_name(name)
        , m_color(color)
    {
    }

    qint64 id() const override { return m_id; }
    QString name() const override { return m_name; }
    int colorIndex() const override { return m_color; }

    const qint64 m_id;
    const QString m_name;
    const int m_color;
};

/// A category as it was at one moment.
struct CategoryRecord final : ITagGroupInfo
{
    CategoryRecord(qint64 id, const QString& name)
        : m_id(id)
        , m_name(name)
    {
    }

    qint64 id() const override { return m_id; }
    QString name() const override { return m_name; }

    const qint64 m_id;
    const QString m_name;
};

/// The answer to a request: carried out when there is no complaint.
struct Response final : IResponseInfo
{
    explicit Response(const QString& complaint)
        : m_complaint(complaint)
    {
    }

    int status() const override { return m_complaint.isEmpty() ? 0 : 1; }
    QString message() const override { return m_complaint; }
    void rejectedTags(QVector<QSharedPointer<const ITagInfo>>& out) const override { out.clear(); }
    void rejectedGroups(QVector<QSharedPointer<const ITagGroupInfo>>& out) const override { out.clear(); }
    void rejectedFiles(QVector<QSharedPointer<const QString>>& out) const override { out.clear(); }

    const QString m_complaint;
};

/// The colours that a tag can have. Lives as long as the plug-in is used.
struct Palette final : ITagColorProvider
{
    const QVector<TagColorEntry>& colorEntries() const override { return m_entries; }
    void color(int index, QColor& out) const override
    {
        const bool known = index >= 0 && index < m_entries.size();
        out = QColor(known ? m_entries[index].color : QStringLiteral("#5a6072"));
    }

    const QVector<TagColorEntry> m_entries{
        {0, QStringLiteral("Slate"), QStringLiteral("#5a6072")},
        {1, QStringLiteral("Teal"), QStringLiteral("#1f7a70")},
        {2, QStringLiteral("Wine"), QStringLiteral("#9b3557")},
    };
};
