// SPDX-License-Identifier: MIT
#include "taglist/tagsections.h"

#include "taglist/initialletter.h"
#include "taglist/vltaglistview.h"

#include <QSet>
#include <QVBoxLayout>

#include <memory>
#include <utility>

TagSections::TagSections(QVBoxLayout* layout, MakeSection makeSection)
    : m_layout(layout)
    , m_makeSection(std::move(makeSection))
{
}

bool TagSections::holds(const VLTagListView* section) const
{
    return section && m_sections.value(section->letter()) == section;
}

void TagSections::add(const QVector<TagItem>& items)
{
    m_letterOfTag.reserve(m_letterOfTag.size() + items.size());
    QMap<QString, QVector<TagItem>> present;
    QMap<QString, QVector<TagItem>> missing;
    for (const TagItem& item : items) {
        if (m_letterOfTag.contains(item.id))
            continue;
        const QString letter = initialLetter(item.name);
        auto& itemsOfLetters = m_sections.contains(letter) ? present : missing;
        const auto letterItems = itemsOfLetters.find(letter);
        const auto filed = letterItems == itemsOfLetters.end() ? itemsOfLetters.insert(letter, {}) : letterItems;
        filed->append(item);
        m_letterOfTag.insert(item.id, filed.key());
    }
    for (auto it = present.cbegin(); it != present.cend(); ++it)
        m_sections.value(it.key())->addTags(it.value());
    if (!missing.isEmpty())
        createSections(missing);
}

void TagSections::forget(const QVector<qint64>& tag_ids)
{
    for (const qint64 id : tag_ids)
        m_letterOfTag.remove(id);
}

void TagSections::removeTags(const QVector<qint64>& tag_ids)
{
    QMap<QString, QVector<qint64>> idsOfLetters;
    for (const qint64 id : tag_ids) {
        const auto it = m_letterOfTag.constFind(id);
        if (it == m_letterOfTag.cend())
            continue;
        idsOfLetters[it.value()].append(id);
        m_letterOfTag.erase(it);
    }
    m_inBatch = true;
    for (auto it = idsOfLetters.cbegin(); it != idsOfLetters.cend(); ++it) {
        if (VLTagListView* section = m_sections.value(it.key()))
            section->removeTags(it.value());
    }
    m_inBatch = false;
    removeSections(std::exchange(m_emptied, {}));
}

void TagSections::removeSection(VLTagListView* section)
{
    if (m_inBatch)
        m_emptied.append(section);
    else
        removeSections({section});
}

void TagSections::clear()
{
    const auto sections = std::exchange(m_sections, {});
    m_letterOfTag.clear();
    m_emptied.clear();
    takeFromLayout(sections.values().toVector());
    for (VLTagListView* section : sections)
        dispose(section);
}

void TagSections::createSections(const QMap<QString, QVector<TagItem>>& itemsOfLetters)
{
    for (auto it = itemsOfLetters.cbegin(); it != itemsOfLetters.cend(); ++it)
        m_sections.insert(it.key(), m_makeSection(it.key(), it.value()));
    int index = 0;
    for (VLTagListView* section : qAsConst(m_sections)) {
        QLayoutItem* item = m_layout->itemAt(index);
        if (!item || item->widget() != section) {
            m_layout->insertWidget(index, section);
            section->show();
        }
        ++index;
    }
}

void TagSections::removeSections(const QVector<VLTagListView*>& sections)
{
    for (const VLTagListView* section : sections)
        m_sections.remove(section->letter());
    takeFromLayout(sections);
    for (VLTagListView* section : sections)
        dispose(section);
}

void TagSections::takeFromLayout(const QVector<VLTagListView*>& sections)
{
    const QSet<const QWidget*> gone(sections.cbegin(), sections.cend());
    for (int index = m_layout->count() - 1; index >= 0 && !gone.isEmpty(); --index) {
        if (gone.contains(m_layout->itemAt(index)->widget()))
            const std::unique_ptr<QLayoutItem> item(m_layout->takeAt(index));
    }
}

void TagSections::dispose(VLTagListView* section)
{
    if (!section->isBusy()) {
        delete section;
        return;
    }
    section->hide();
    section->deleteLater();
}
