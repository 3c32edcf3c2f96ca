// SPDX-License-Identifier: MIT
#include "tests/robust/randomwalk.h"

#include "dialogs/vltagmodifywidget.h"
#include "pages/ctaggroupitemwidget.h"
#include "taglist/vltaggrouplistview.h"
#include "taglist/vltaglistview.h"
#include "tests/support/chipdrag.h"
#include "tests/support/gestures.h"

#include <ivltagmanagerwidget.h>

#include <QMenu>

#include <iterator>

namespace {

constexpr int groupLimit = 8;
constexpr int tagLimit = 60;

/// Names that share beginnings, sections and letters; none is longer than a dialog takes.
QString tagName(int number)
{
    static const QStringList stems{"ant", "Ant",           "bee",          "a",      "b",  "zoo", "7up",
                                   "#x",  "\u00e9t\u00e9", "\u4e2d\u56fd", "\u5b57", "ab", "Zed", "_u"};
    const int suffix = number / stems.size() % 5;
    return stems.at(number % stems.size()) + (suffix == 0 ? QString() : QString::number(suffix));
}

QString groupName(int number)
{
    static const QStringList names{"Art", "Book", "art", "Zoo", "\u4e66", "Cup", "1st", "Den", "Elm", "b"};
    return names.at(number % names.size());
}

}  // namespace

RandomWalk::RandomWalk()
{
    // Tiles show all of a name this short with any font.
    m_host.renameGroup(MemoryHost::Uncategorized, WalkModel::rootName());
    m_user.selectPage(WindowUser::AllTags);
    QObject::connect(m_user.window(), &IVLTagManagerWidget::signalCheckoutTagFile, m_user.window(),
                     [this](const QVector<qint64>& ids) { m_filesOfTags = ids; });
    QObject::connect(m_user.window(), &IVLTagManagerWidget::signalCheckoutGroupFile, m_user.window(),
                     [this](const QVector<qint64>& ids) { m_filesOfGroups = ids; });
}

RandomWalk::~RandomWalk() = default;

QString RandomWalk::walk(const WalkStep& step)
{
    if (step.kind <= WalkStep::HostUnfilesTags)
        hostStep(step);
    else if (step.kind <= WalkStep::CreateTag)
        tagStep(step);
    else
        groupStep(step);
    settle();
    QStringList colors;
    for (const TagColorEntry& entry : qAsConst(m_host.palette()->entries))
        colors << entry.color;
    check(QStringLiteral("window"), shown().join(QLatin1Char('\n')), m_model.expected(colors).join(QLatin1Char('\n')));
    return m_problem;
}

void RandomWalk::check(const QString& what, const QString& shown, const QString& expected)
{
    if (shown != expected && m_problem.isEmpty())
        m_problem = what + QStringLiteral(" shows\n") + shown + QStringLiteral("\ninstead of\n") + expected;
}

QStringList RandomWalk::shown() const
{
    QStringList lines{m_user.counter()};
    lines += m_user.tiles();
    lines << m_user.header();
    for (const QString& name : m_user.groupChoices())
        lines << QStringLiteral("choice ") + name;
    return lines + m_user.chips();
}

QVector<qint64> RandomWalk::someTags(const WalkStep& step) const
{
    const QList<qint64> all = m_model.tags.keys();
    QVector<qint64> ids;
    const int count = all.isEmpty() ? 0 : step.b % 8 == 0 ? all.size() / 2 + 1 : step.b % 3 + 1;
    for (int i = 0; i < count; ++i) {
        const qint64 id = all.at((step.a + i) % all.size());
        if (!ids.contains(id))
            ids << id;
    }
    return ids;
}

qint64 RandomWalk::someGroup(int number) const
{
    const auto& groups = m_model.groups;
    return groups.isEmpty() ? 0 : *std::next(groups.keyBegin(), number % groups.size());
}

void RandomWalk::addTags(const WalkStep& step)
{
    QVector<MemoryTagSpec> specs;
    const int count = step.b % 5 == 0 ? 25 : step.b % 3 + 1;
    for (int i = 0; i < count && m_model.tags.size() < tagLimit; ++i) {
        const MemoryTagSpec spec{tagName(step.a + i * 7), (step.c + i) % 8, (step.c + i) % 1000};
        if (m_model.tagId(spec.name) != 0)
            continue;
        specs << spec;
        m_model.addTag({spec.name, spec.colorIndex, spec.fileCount});
    }
    m_host.addTags(specs);
}

void RandomWalk::hostStep(const WalkStep& step)
{
    const QVector<qint64> tags = someTags(step);
    const qint64 tag = tags.value(0);
    const qint64 group = someGroup(step.c);
    switch (step.kind) {
    case WalkStep::HostAddsTags:
        addTags(step);
        break;
    case WalkStep::HostRemovesTags:
        m_host.removeTags(tags);
        m_model.removeTags(tags);
        break;
    case WalkStep::HostRenamesTag:
        if (tag != 0 && m_model.tagId(tagName(step.c)) == 0) {
            m_model.renameTag(tag, tagName(step.c));
            m_host.renameTag(tag, tagName(step.c));
        }
        break;
    case WalkStep::HostChangesTag:
        if (tag != 0) {
            m_host.setFileCount(tag, m_model.tags[tag].fileCount = step.c % 500);
            m_host.setTagColor(tag, m_model.tags[tag].color = step.c % 8);
        }
        break;
    case WalkStep::HostFavors:
        for (const qint64 id : tags) {
            m_host.setFavorite(id, step.c % 2 == 0);
            m_model.setFavorite(id, step.c % 2 == 0);
        }
        break;
    case WalkStep::HostAddsGroups:
        if (m_model.groups.size() < groupLimit && m_model.groupId(groupName(step.a)) == 0) {
            m_host.addGroup(groupName(step.a));
            m_model.addGroup(groupName(step.a));
        }
        break;
    case WalkStep::HostRemovesGroups:
        m_host.removeGroups({group});
        m_model.removeGroup(group);
        break;
    case WalkStep::HostRenamesGroup:
        if (group != 0 && m_model.groupId(groupName(step.a)) == 0) {
            m_host.renameGroup(group, groupName(step.a));
            m_model.groups[group].name = groupName(step.a);
        }
        break;
    case WalkStep::HostFilesTags:
        m_host.addTagsToGroups({group}, tags);
        for (const qint64 id : tags) {
            if (group != 0)
                m_model.groups[group].tags.insert(id);
        }
        break;
    case WalkStep::HostUnfilesTags:
        m_host.removeTagsFromGroups({group}, tags);
        for (const qint64 id : tags) {
            if (group != 0)
                m_model.groups[group].tags.remove(id);
        }
        break;
    default:
        break;
    }
}

void RandomWalk::tagStep(const WalkStep& step)
{
    QList<qint64> ids = m_model.shownTags().values();
    std::sort(ids.begin(), ids.end());
    const qint64 id = ids.isEmpty() ? 0 : ids.at(step.a % ids.size());
    switch (step.kind) {
    case WalkStep::SelectPage:
        m_model.page = step.a % 3;
        m_user.selectPage(m_model.page);
        break;
    case WalkStep::Search: {
        static const QStringList texts{"", "a", "b", "an", "Z", "1", "nothing", "\u56fd"};
        if (m_model.page != WindowUser::Categories) {
            m_user.search(texts.at(step.a % texts.size()));
            m_model.search(texts.at(step.a % texts.size()));
        }
        break;
    }
    case WalkStep::ClickTile: {
        const qint64 group = step.a % 4 == 0 ? 0 : someGroup(step.b);
        if (m_model.page == WindowUser::Categories) {
            m_user.clickTile(m_user.tile(m_model.groups.value(group).name));
            m_model.selectedGroup = group;
        }
        break;
    }
    case WalkStep::DoubleClickChip:
        // Results of a search ask for no files.
        if (id != 0 && m_model.searches.value(m_model.page).isEmpty()) {
            gestures::doubleClickChip(m_user.list(), m_model.tags[id].name);
            check(QStringLiteral("double click"), QString::number(m_filesOfTags.value(0)), QString::number(id));
        }
        break;
    case WalkStep::CreateTag:
        // A tag that the page does not show closes the dialog by the answer alone, and an answer from inside the
        // request comes before anybody waits for it.
        if (m_model.page == WindowUser::Categories && m_model.selectedGroup != 0 && m_answersAtOnce)
            break;
        if (m_model.page != WindowUser::Favorites && m_model.tags.size() < tagLimit) {
            m_user.clickCreateTag();
            m_model.search({});
            enter(tagName(step.a), m_model.tagId(tagName(step.a)) != 0, [&] { m_model.addTag({tagName(step.a)}); });
        }
        break;
    default:
        if (id != 0)
            menuStep(step, id);
    }
}

void RandomWalk::menuStep(const WalkStep& step, qint64 id)
{
    QMenu* menu = m_user.openTagMenu(m_model.tags[id].name);
    check(QStringLiteral("tag menu"), menu ? WindowUser::entries(menu) : QString(), m_model.tagMenu(id));
    if (!menu)
        return;
    const qint64 group = someGroup(step.b);
    const bool isFavorite = m_model.favorites.contains(id);
    switch (step.kind) {
    case WalkStep::FavorByMenu:
        WindowUser::choose(menu, isFavorite ? QStringLiteral("Cancel set as Favorite Tag")
                                            : QStringLiteral("Set as Favorite Tag"));
        m_model.setFavorite(id, !isFavorite);
        break;
    case WalkStep::FileByMenu:
        if (group != 0 && m_user.chooseGroup(m_model.groups[group].name))
            m_model.groups[group].tags.insert(id);
        break;
    case WalkStep::UnfileByMenu:
        if (WindowUser::choose(menu, QStringLiteral("Remove the Tag from the Category")))
            m_model.groups[m_model.selectedGroup].tags.remove(id);
        break;
    case WalkStep::RenameByMenu:
        WindowUser::choose(menu, QStringLiteral("Rename Tag"));
        enter(tagName(step.b), m_model.tagId(tagName(step.b)) != 0, [&] { m_model.renameTag(id, tagName(step.b)); });
        break;
    case WalkStep::ColorByMenu:
        m_user.chooseColor(m_model.tags[id].color = step.b % 8);
        break;
    case WalkStep::DeleteByMenu:
        WindowUser::choose(menu, QStringLiteral("Delete Tag"));
        m_user.answerBox(step.b % 3 != 0);
        if (step.b % 3 != 0)
            m_model.removeTags({id});
        break;
    default:
        break;
    }
    menu->close();
}

/// Confirms the open dialog; it stays open when the name is taken.
void RandomWalk::enter(const QString& name, bool isTaken, const std::function<void()>& onSuccess)
{
    m_user.enterName(name);
    if (!isTaken)
        onSuccess();
    settle();
    check(QStringLiteral("dialog"), m_user.dialog() ? QStringLiteral("open") : QStringLiteral("closed"),
          isTaken ? QStringLiteral("open") : QStringLiteral("closed"));
    m_user.closeDialog();
}

void RandomWalk::groupStep(const WalkStep& step)
{
    if (step.kind == WalkStep::AnswerLater) {
        m_answersAtOnce = step.a % 2 != 0;
        m_host.setAnswers(m_answersAtOnce ? MemoryHost::Answers::AtOnce : MemoryHost::Answers::Later);
    }
    if (m_model.page != WindowUser::Categories)
        return;
    if (step.kind == WalkStep::DropChip)
        return dropChip(step);
    const QString name = groupName(step.b);
    if (step.kind == WalkStep::CreateGroup && m_model.groups.size() < groupLimit) {
        m_user.clickTile(m_user.addNewTile());
        return enter(name, m_model.groupId(name) != 0, [&] { m_model.addGroup(name); });
    }
    const qint64 group = someGroup(step.a);
    QMenu* menu = m_user.openGroupMenu(m_model.groups.value(group).name);
    m_model.selectedGroup = group;
    check(QStringLiteral("category menu"), menu ? WindowUser::entries(menu) : QString(), m_model.groupMenu(group));
    if (step.kind == WalkStep::RenameGroup && WindowUser::choose(menu, QStringLiteral("Rename Category"))) {
        enter(name, m_model.groupId(name) != 0, [&] { m_model.groups[group].name = name; });
    } else if (step.kind == WalkStep::DeleteGroup && WindowUser::choose(menu, QStringLiteral("Delete Category"))) {
        m_user.answerBox(step.b % 3 != 0);
        if (step.b % 3 != 0)
            m_model.removeGroup(group);
    } else if (WindowUser::choose(menu, QStringLiteral("View Related Files"))) {
        check(QStringLiteral("category files"), QString::number(m_filesOfGroups.value(0)), QString::number(group));
    }
    if (menu)
        menu->close();
}

void RandomWalk::dropChip(const WalkStep& step)
{
    const QList<qint64> ids = m_model.shownTags().values();
    const qint64 id = ids.isEmpty() ? 0 : *std::min_element(ids.begin(), ids.end());
    const qint64 group = step.a % 5 == 0 ? 0 : someGroup(step.b);
    const gestures::ChipPlace chip = gestures::findChip(m_user.list(), m_model.tags.value(id).name);
    CTagGroupItemWidget* tile = m_user.tile(m_model.groups.value(group).name);
    if (!chip.view || !tile)
        return;
    whileDragging(chip.view, [&] {
        dragOver(tile, chipPayload(id));
        dropOn(tile, chipPayload(id));
    });
    if (group != 0)
        m_model.groups[group].tags.insert(id);
}
