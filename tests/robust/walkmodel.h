// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

/// A plain account of a library and of what a window over it must show. It knows nothing of providers and widgets.
class WalkModel
{
public:
    struct Tag
    {
        QString name;
        int color = 0;
        int fileCount = 0;
    };
    struct Group
    {
        QString name;
        QSet<qint64> tags;
    };

    /// What the fixed category is called.
    [[nodiscard]] static QString rootName() { return QStringLiteral("Free"); }

    QMap<qint64, Tag> tags;
    QSet<qint64> favorites;
    QMap<qint64, Group> groups;  ///< User categories, in the order of their creation.
    int page = 0;
    qint64 selectedGroup = 0;
    QMap<int, QString> searches;  ///< The text in each page's search field.

    [[nodiscard]] qint64 tagId(const QString& name) const;
    [[nodiscard]] qint64 groupId(const QString& name) const;
    void addTag(const Tag& tag);
    void removeTags(const QVector<qint64>& ids);
    void setFavorite(qint64 id, bool favorite);
    void addGroup(const QString& name) { groups.insert(m_nextGroup++, {name, {}}); }
    void removeGroup(qint64 id);
    void renameTag(qint64 id, const QString& name) { tags[id].name = name; }
    void search(const QString& text);

    /// Every line that must be on the screen, in order.
    [[nodiscard]] QStringList expected(const QStringList& colors) const;
    [[nodiscard]] QString tagMenu(qint64 id) const;
    [[nodiscard]] QString groupMenu(qint64 id) const;
    /// The tags of category 0.
    [[nodiscard]] QSet<qint64> unfiled() const;
    /// The tags that the current page is about.
    [[nodiscard]] QSet<qint64> shownTags() const;

private:
    void foundBySearch(int page, qint64 id);
    [[nodiscard]] QStringList expectedChips(const QStringList& colors) const;
    [[nodiscard]] QStringList expectedTiles() const;

    QMap<int, QSet<qint64>> m_results;  ///< Of each page's search; renamed tags stay.
    qint64 m_nextTag = 1;
    qint64 m_nextGroup = 2;
};
