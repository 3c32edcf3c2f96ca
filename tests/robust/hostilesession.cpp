// SPDX-License-Identifier: MIT
#include "tests/robust/hostilesession.h"

#include <QMenu>

namespace {

QStringList manyNames()
{
    QStringList names{"axe", "dog", "zoo"};
    for (int i = 0; i < 20; ++i)
        names.append("ball " + QString::number(i));
    return names;
}

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
