// SPDX-License-Identifier: MIT
#include "taglist/tagsections.h"

#include "taglist/initialletter.h"
#include "taglist/vltaglistview.h"

#include <QSet>
#include <QVBoxLayout>

#include <algorithm>
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

VLTagListView* TagSections::lastSectionOf(qint64 tag_id) const
{
    const auto place = m_placeOfTag.constFind(tag_id);
    return place == m_placeOfTag.cend() ? nullptr : m_sectionAt.at(*place);
}

/// The section that a tag was filed in, as long as the section still holds it: its rows can go by its own slots, too.
VLTagListView* TagSections::filedSectionOf(qint64 tag_id) const
{
    VLTagListView* section = lastSectionOf(tag_id);
    return section && section->holdsTag(tag_id) ? section : nullptr;
}

/// As filedSectionOf(), but finds a tag that a section took in by itself, too.
VLTagListView* TagSections::sectionOf(qint64 tag_id) const
{
    if (VLTagListView* section = filedSectionOf(tag_id))
        return section;
    const auto holder = std::find_if(m_sections.cbegin(), m_sections.cend(),
                                     [tag_id](const VLTagListView* section) { return section->holdsTag(tag_id); });
    return holder == m_sections.cend() ? nullptr : *holder;
}

void TagSections::add(QVector<TagItem> items)
{
    m_placeOfTag.reserve(m_placeOfTag.size() + items.size());
    QVector<QVector<TagItem>> itemsAt;
    for (TagItem& item : items) {
        if (filedSectionOf(item.id))
            continue;
        const int place = placeOf(initialLetter(item.name));
        m_placeOfTag.insert(item.id, place);
        if (place >= itemsAt.size())
            itemsAt.resize(m_sectionAt.size());
        itemsAt[place].append(std::move(item));
    }
    QMap<QString, QVector<TagItem>> present;
    QMap<QString, QVector<TagItem>> missing;
    for (auto it = m_places.cbegin(); it != m_places.cend(); ++it) {
        if (*it < itemsAt.size() && !itemsAt.at(*it).isEmpty())
            (m_sectionAt.at(*it) ? present : missing)[it.key()] = std::move(itemsAt[*it]);
    }
    for (auto it = present.begin(); it != present.end(); ++it)
        m_sections.value(it.key())->addTags(std::move(it.value()));
    if (!missing.isEmpty())
        createSections(std::move(missing));
}

void TagSections::forget(const QVector<qint64>& tag_ids)
{
    for (const qint64 id : tag_ids)
        m_placeOfTag.remove(id);
}

int TagSections::placeOf(const QString& letter)
{
    const auto known = m_places.constFind(letter);
    if (known != m_places.cend())
        return *known;
    m_sectionAt.append(nullptr);
    return *m_places.insert(letter, m_sectionAt.size() - 1);
}

void TagSections::forgetSection(const VLTagListView* section)
{
    const QString letter = section->letter();
    m_sections.remove(letter);
    m_sectionAt[placeOf(letter)] = nullptr;
}

void TagSections::removeTags(const QVector<qint64>& tag_ids)
{
    QMap<QString, QVector<qint64>> idsOfLetters;
    for (const qint64 id : tag_ids) {
        if (const VLTagListView* section = sectionOf(id))
            idsOfLetters[section->letter()].append(id);
        m_placeOfTag.remove(id);
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
    if (m_inBatch) {
        m_emptied.append(section);
        return;
    }
    forgetSection(section);
    takeFromLayout({section});
    // It reports that it is empty right now, perhaps to others, too.
    disposeLater(section);
}

void TagSections::clear()
{
    const auto sections = std::exchange(m_sections, {});
    m_placeOfTag.clear();
    m_places.clear();
    m_sectionAt.clear();
    m_emptied.clear();
    takeFromLayout({sections.begin(), sections.end()});
    for (VLTagListView* section : sections)
        dispose(section);
}

void TagSections::createSections(QMap<QString, QVector<TagItem>> itemsOfLetters)
{
    for (auto it = itemsOfLetters.begin(); it != itemsOfLetters.end(); ++it)
        m_sectionAt[placeOf(it.key())] = *m_sections.insert(it.key(), m_makeSection(it.key(), std::move(it.value())));
    int index = 0;
    QWidget* above = m_layout->parentWidget();
    for (VLTagListView* section : qAsConst(m_sections)) {
        QLayoutItem* item = m_layout->itemAt(index);
        if (!item || item->widget() != section) {
            m_layout->insertWidget(index, section);
            QWidget::setTabOrder(above, section);
            section->show();
        }
        above = section;
        ++index;
    }
}

void TagSections::removeSections(const QVector<VLTagListView*>& sections)
{
    for (const VLTagListView* section : sections)
        forgetSection(section);
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
    if (section->isBusy())
        disposeLater(section);
    else
        delete section;
}

void TagSections::disposeLater(VLTagListView* section)
{
    section->hide();
    section->deleteLater();
}
