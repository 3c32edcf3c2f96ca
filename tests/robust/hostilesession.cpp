// SPDX-License-Identifier: MIT
#include "tests/robust/hostilesession.h"

#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/vltaggrouplistview.h"

#include <QMenu>

namespace {

QStringList manyNames()
{
    QStringList names{"axe", "dog", "zoo"};
    for (int i = 0; i < 20; ++i)
        names.append("ball " + QString::number(i));
    return names;
}

const QVector<qint64> tags{1, 2, 3, 5, 6};

void sendStrangeIds(HostileSession& s)
{
    const QVector<QVector<qint64>> strange{{}, {4711, -3, 0}, {5, 5, 5}, {1, 2, 1}, {4711, -2, 0, 1, -1}};
    for (const qint64 id : {-1, 0, 1, 2}) {
        const auto group = s.host.group(id);
        if (!group)
            continue;
        for (const auto& ids : strange) {
            emit group->signalAddTags(ids);
            emit group->signalUpdated();
        }
        emit group->signalRemoveTags({});
        emit group->signalRemoveTags({4711, -3, -3});
    }
    for (const auto& ids : strange)
        emit s.host.manager()->signalAddTagGroups(ids);
    emit s.host.manager()->signalRemoveTagGroups({4711, -2, -1, 0, 1});
}

/// Signals may lie about what the library holds.
const QVector<HostileDeed> deeds{
    {"addTags", [](HostileSession& s) { s.host.addTags(QString("awl|bulb 2|new letter").split('|')); }},
    {"removeTags", [](HostileSession& s) { s.host.removeTags(tags); }},
    {"updateTags",
     [](HostileSession& s) {
         for (const qint64 id : tags)
             s.host.setFileCount(id, 77);
     }},
    {"renameTags",
     [](HostileSession& s) {
         for (const qint64 id : tags)
             s.host.renameTag(id, "odd " + QString::number(id));
     }},
    {"addGroups", [](HostileSession& s) { s.host.addGroups(QString("Aa|Zz").split('|')); }},
    {"removeGroups",
     [](HostileSession& s) {
         s.host.removeGroups({2, 3, 4});
     }},
    {"renameGroups",
     [](HostileSession& s) {
         s.host.renameGroup(2, "Yy");
         s.host.renameGroup(3, "Ab");
     }},
    {"moveTags",
     [](HostileSession& s) {
         s.host.removeTagsFromGroups({2}, tags);
         s.host.addTagsToGroups({3}, tags);
     }},
    {"strangeIds", sendStrangeIds},
    {"clearProvider", [](HostileSession&) { VLTagManagerSingleton::instance()->clear(); }, false},
    {"replaceProvider",
     [](HostileSession& s) {
         s.host.install();
         if (s.user && s.user->list())
             s.user->list()->setDataProvider({});
     },
     false},
    {"selectOther",
     [](HostileSession& s) {
         if (s.user)
             s.user->clickTile(s.user->tile(QString()));
     }},
    {"reload",
     [](HostileSession& s) {
         if (s.user && s.user->list())
             s.user->list()->reload(s.user->searchText(s.user->currentPage()));
     }},
    {"dropRecords",
     [](HostileSession& s) {
         s.host.setAnswers(MemoryHost::Answers::OnDemand);
         for (const qint64 id : tags) {
             if (const auto tag = s.host.tag(id))
                 tag->dropRecord();
         }
         for (const auto& group : qAsConst(s.host.manager()->groups))
             group->dropRecord();
         s.host.memoryLibrary()->manager.reset();
     },
     false},
    {"deleteWindow",
     [](HostileSession& s) {
         if (s.user)
             s.user->closeWindow();
     },
     false},
};

using Step = void (*)(WindowUser&, MemoryHost&);

const QVector<Step> stepsOfUse{
    [](WindowUser&, MemoryHost& host) {
        host.addTags(manyNames());
        host.addTag("eel");
    },
    [](WindowUser&, MemoryHost& host) {
        host.renameTag(1, "pear");
        host.renameTag(3, "bear");
        host.setFileCount(3, 12);
        host.setTagColor(4, 5);
    },
    [](WindowUser& user, MemoryHost& host) {
        user.search("b");
        settle();
        host.addTag("bulb");
        host.setFileCount(3, 13);
        host.removeTags({4});
        user.search({});
    },
    [](WindowUser& user, MemoryHost&) { WindowUser::choose(user.openTagMenu("ant"), "Set as Favorite Tag"); },
    [](WindowUser& user, MemoryHost&) {
        WindowUser::choose(user.openTagMenu("bear"), "View Related Files");
        if (user.openTagMenu("bear"))
            user.chooseColor(3);
    },
    [](WindowUser& user, MemoryHost&) {
        if (user.openTagMenu("zebra"))
            user.chooseGroup("Books");
    },
    [](WindowUser& user, MemoryHost&) {
        WindowUser::choose(user.openTagMenu("ant"), "Rename Tag");
        user.enterName("yak");
        user.closeDialog();
    },
    [](WindowUser& user, MemoryHost&) {
        WindowUser::choose(user.openTagMenu("yak"), "Delete Tag");
        user.answerBox(true);
    },
    [](WindowUser& user, MemoryHost&) {
        user.clickCreateTag();
        user.enterName("gnu");
        user.closeDialog();
    },
    [](WindowUser& user, MemoryHost& host) {
        user.selectPage(WindowUser::Categories);
        user.clickTile(user.tile("Art"));
        host.addTagsToGroups({2, 3}, {5});
        host.renameGroup(2, "Zen");
    },
    [](WindowUser& user, MemoryHost&) {
        WindowUser::choose(user.openGroupMenu("Zen"), "Rename Category");
        user.enterName("Zoo");
        user.closeDialog();
        WindowUser::choose(user.openGroupMenu("Zoo"), "View Related Files");
    },
    [](WindowUser& user, MemoryHost&) {
        WindowUser::choose(user.openTagMenu("bear"), "Remove the Tag from the Category");
    },
    [](WindowUser& user, MemoryHost& host) {
        user.clickTile(user.addNewTile());
        user.enterName("New");
        user.closeDialog();
        host.addGroups({"Middle", "Left"});
    },
    [](WindowUser& user, MemoryHost&) {
        WindowUser::choose(user.openGroupMenu("New"), "Delete Category");
        user.answerBox(true);
    },
    [](WindowUser& user, MemoryHost& host) {
        user.clickTile(user.tile("Books"));
        host.removeGroups({3, 2});
        host.removeTags({1, 2, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    },
    [](WindowUser& user, MemoryHost& host) {
        user.selectPage(WindowUser::Favorites);
        host.setFavorite(3, true);
        host.setFavorite(3, false);
    },
};

}  // namespace

HostileSession::HostileSession()
    : host(QStringList{"apple", "ant", "bee", "cow", "zebra"})
{
    host.setAnswers(MemoryHost::Answers::AtOnce);
    host.addGroups({"Art", "Books"});
    host.addTagsToGroups({2}, {1, 2, 3});
    host.setFavorite(1, true);
}

void HostileSession::play(const std::function<void(int step)>& before)
{
    for (int number = 0; number <= stepsOfUse.size(); ++number) {
        if (before)
            before(number);
        if (number > 0)
            stepsOfUse.at(number - 1)(*user, host);
        else if (!user)
            user = std::make_unique<WindowUser>();
        settle();
    }
}

void HostileSession::openCategories()
{
    user = std::make_unique<WindowUser>();
    user->selectPage(WindowUser::Categories);
}

const QVector<HostileDeed>& hostileDeeds()
{
    return deeds;
}
