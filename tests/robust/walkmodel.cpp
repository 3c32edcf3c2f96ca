// SPDX-License-Identifier: MIT
#include "tests/robust/walkmodel.h"

#include "taglist/initialletter.h"

#include <algorithm>

namespace {

constexpr int allTagsPage = 0;
constexpr int categoriesPage = 1;
constexpr int favoritesPage = 2;

QString counted(const QString& name, int count, bool selected)
{
    const QString text = name + QLatin1Char(' ') + QString::number(count);
    return selected ? QLatin1Char('[') + text + QLatin1Char(']') : text;
}

/// 0 for the search text itself, 1 for what begins with it, 2 for the rest.
/// Deliberately not the window's own: the model is what the window is compared with.
int closeness(const QString& name, const QString& search)
{
    return name == search ? 0 : name.startsWith(search) ? 1 : 2;
}

}  // namespace

qint64 WalkModel::tagId(const QString& name) const
{
    const auto found = std::find_if(tags.begin(), tags.end(), [&](const Tag& tag) { return tag.name == name; });
    return found == tags.end() ? 0 : found.key();
}

qint64 WalkModel::groupId(const QString& name) const
{
    const auto found = std::find_if(groups.begin(), groups.end(), [&](const Group& each) { return each.name == name; });
    return found == groups.end() ? 0 : found.key();
}

void WalkModel::addTag(const Tag& tag)
{
    tags.insert(m_nextTag, tag);
    foundBySearch(allTagsPage, m_nextTag++);
}

void WalkModel::removeTags(const QVector<qint64>& ids)
{
    for (const qint64 id : ids) {
        tags.remove(id);
        favorites.remove(id);
        for (Group& group : groups)
            group.tags.remove(id);
        for (auto& results : m_results)
            results.remove(id);
    }
}

void WalkModel::setFavorite(qint64 id, bool favorite)
{
    if (!favorite) {
        favorites.remove(id);
        m_results[favoritesPage].remove(id);
    } else if (!favorites.contains(id)) {
        favorites.insert(id);
        foundBySearch(favoritesPage, id);
    }
}

void WalkModel::removeGroup(qint64 id)
{
    groups.remove(id);
    if (selectedGroup == id)
        selectedGroup = 0;
}

void WalkModel::search(const QString& text)
{
    // A text that stays as it is is no new search.
    if (searches.value(page) == text)
        return;
    searches[page] = text;
    m_results[page].clear();
    const auto searched = page == favoritesPage ? favorites : QSet<qint64>(tags.keyBegin(), tags.keyEnd());
    for (const qint64 id : searched)
        foundBySearch(page, id);
}

void WalkModel::foundBySearch(int onPage, qint64 id)
{
    const QString& text = searches.value(onPage);
    if (!text.isEmpty() && tags.value(id).name.contains(text, Qt::CaseInsensitive))
        m_results[onPage].insert(id);
}

QSet<qint64> WalkModel::unfiled() const
{
    QSet<qint64> free(tags.keyBegin(), tags.keyEnd());
    for (const Group& group : groups)
        free -= group.tags;
    return free;
}

QSet<qint64> WalkModel::shownTags() const
{
    if (!searches.value(page).isEmpty())
        return m_results.value(page);
    if (page == allTagsPage)
        return {tags.keyBegin(), tags.keyEnd()};
    if (page == favoritesPage)
        return favorites;
    return selectedGroup == 0 ? unfiled() : groups.value(selectedGroup).tags;
}

QStringList WalkModel::expected(const QStringList& colors) const
{
    QStringList lines{QStringLiteral("(%1)").arg(tags.size())};
    lines += expectedTiles();
    const QString selected = selectedGroup == 0 ? rootName() : groups.value(selectedGroup).name;
    const int count = selectedGroup == 0 ? unfiled().size() : groups.value(selectedGroup).tags.size();
    lines << selected + QStringLiteral("(%1)").arg(count);
    for (const Group& group : groups)
        lines << QStringLiteral("choice ") + group.name;
    return lines + expectedChips(colors);
}

QStringList WalkModel::expectedTiles() const
{
    QStringList lines;
    QMap<QString, qint64> sorted;
    for (auto it = groups.begin(); it != groups.end(); ++it)
        sorted.insert(it->name, it.key());
    lines << counted(rootName(), unfiled().size(), selectedGroup == 0);
    for (const qint64 id : qAsConst(sorted))
        lines << counted(groups[id].name, groups[id].tags.size(), selectedGroup == id);
    return lines;
}

QStringList WalkModel::expectedChips(const QStringList& colors) const
{
    const QString& text = searches.value(page);
    QVector<Tag> shown;
    for (const qint64 id : shownTags())
        shown << tags.value(id);
    std::sort(shown.begin(), shown.end(), [&text](const Tag& a, const Tag& b) {
        const int left = text.isEmpty() ? 0 : closeness(a.name, text);
        const int right = text.isEmpty() ? 0 : closeness(b.name, text);
        return left != right ? left < right : a.name < b.name;
    });
    QMap<QString, QStringList> sections;
    for (const Tag& tag : qAsConst(shown)) {
        const QString chip = tag.name + QLatin1Char(' ') + QString::number(tag.fileCount) + colors.value(tag.color);
        sections[text.isEmpty() ? initialLetter(tag.name) : QString()] << chip;
    }
    QStringList lines;
    for (auto it = sections.cbegin(); it != sections.cend(); ++it)
        lines << it.key() + QStringLiteral(": ") + it->join(QStringLiteral(", "));
    return lines;
}

QString WalkModel::tagMenu(qint64 id) const
{
    QString entries = QStringLiteral("View Related Files|-|");
    entries +=
        favorites.contains(id) ? QStringLiteral("Cancel set as Favorite Tag|") : QStringLiteral("Set as Favorite Tag|");
    entries += groups.isEmpty() ? QStringLiteral("(Add to Category)|-|") : QStringLiteral("Add to Category|-|");
    entries += QStringLiteral("Rename Tag|~|-|");
    if (page == categoriesPage && selectedGroup > 1)
        entries += QStringLiteral("Remove the Tag from the Category|");
    return entries + QStringLiteral("Delete Tag");
}

QString WalkModel::groupMenu(qint64 id) const
{
    const int count = id == 0 ? unfiled().size() : groups.value(id).tags.size();
    return (count == 0 ? QStringLiteral("(View Related Files)|-|") : QStringLiteral("View Related Files|-|")) +
           (id == 0 ? QStringLiteral("(Rename Category)|(Delete Category)")
                    : QStringLiteral("Rename Category|Delete Category"));
}
