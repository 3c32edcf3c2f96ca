// SPDX-License-Identifier: MIT
#pragma once

#include <tagrecords.h>

#include <QString>

/// A snapshot of a tag.
class LibraryTagInfo final : public ITagInfo
{
public:
    LibraryTagInfo(qint64 id, const QString& name, int colorIndex)
        : m_id(id)
        , m_name(name)
        , m_colorIndex(colorIndex)
    {
    }
    virtual ~LibraryTagInfo() = default;

    [[nodiscard]] qint64 id() const override { return m_id; }
    [[nodiscard]] QString name() const override { return m_name; }
    [[nodiscard]] int colorIndex() const override { return m_colorIndex; }

private:
    qint64 m_id;
    QString m_name;
    int m_colorIndex;
};

/// A snapshot of a category.
class LibraryCategoryInfo final : public ITagGroupInfo
{
public:
    LibraryCategoryInfo(qint64 id, const QString& name)
        : m_id(id)
        , m_name(name)
    {
    }
    virtual ~LibraryCategoryInfo() = default;

    [[nodiscard]] qint64 id() const override { return m_id; }
    [[nodiscard]] QString name() const override { return m_name; }

private:
    qint64 m_id;
    QString m_name;
};
