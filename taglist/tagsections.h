// SPDX-License-Identifier: MIT
#pragma once

#include "plugin/state/tagitem.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QVector>

#include <functional>

class QVBoxLayout;
class VLTagListView;

/// The letter sections of a tag page, in the order of their letters, and where each tag stands.
///
/// Each tag is in one section at most. Cost of every operation: linear in the tags that it is given, plus one pass over
/// the sections when some of them come or go.
class TagSections
{
public:
    /// Makes the view of a section; it is owned by its parent widget until it is handed back to be removed.
    using MakeSection = std::function<VLTagListView*(const QString& letter, QVector<TagItem> items)>;

    /// \a layout receives the views; it holds nothing else while there are sections. In the order of the Tab key they
    /// follow its widget, which must not have Qt::NoFocus.
    TagSections(QVBoxLayout* layout, MakeSection makeSection);

    [[nodiscard]] bool isEmpty() const { return m_sections.isEmpty(); }
    [[nodiscard]] bool holds(const VLTagListView* section) const;

    /// Files tags under their letters; tags that are filed already stay where they are.
    void add(QVector<TagItem> items);
    /// Forgets where these tags stand, so that they can be filed anew. Their rows stay.
    void forget(const QVector<qint64>& tag_ids);
    /// Takes tags out of their sections, and sections that become empty out of the column.
    void removeTags(const QVector<qint64>& tag_ids);
    /// Takes out a section that reports that it is empty. Its view is deleted when the report is over.
    void removeSection(VLTagListView* section);
    void clear();

    /// The section that a tag was filed in, which may not hold it any more; null for any other tag. Constant time.
    [[nodiscard]] VLTagListView* lastSectionOf(qint64 tag_id) const;

private:
    [[nodiscard]] VLTagListView* filedSectionOf(qint64 tag_id) const;
    [[nodiscard]] VLTagListView* sectionOf(qint64 tag_id) const;
    [[nodiscard]] int placeOf(const QString& letter);
    void forgetSection(const VLTagListView* section);
    void createSections(QMap<QString, QVector<TagItem>> itemsOfLetters);
    void removeSections(const QVector<VLTagListView*>& sections);
    void takeFromLayout(const QVector<VLTagListView*>& sections);
    static void dispose(VLTagListView* section);
    static void disposeLater(VLTagListView* section);

    QVBoxLayout* m_layout;
    MakeSection m_makeSection;
    QMap<QString, VLTagListView*> m_sections;
    /// Each letter that there was since the last clear() has a number, so that a tag's section is found without
    /// comparing texts.
    QMap<QString, int> m_places;
    QVector<VLTagListView*> m_sectionAt;  ///< By the numbers of the letters; null while there is no such section.
    QHash<qint64, int> m_placeOfTag;
    bool m_inBatch = false;
    QVector<VLTagListView*> m_emptied;  ///< Wait for the end of the batch.
};
