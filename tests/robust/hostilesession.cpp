// SPDX-License-Identifier: MIT
#include "tests/robust/hostilesession.h"

#include <QMenu>

namespace {

void open(HostileSession& s)
{
    s.user = std::make_unique<WindowUser>();
}

void hostAddsTags(HostileSession& s)
{
    QStringList names{"axe", "dog", "zoo"};
    for (int i = 0; i < 20; ++i)
        names.append("ball " + QString::number(i));
    s.host.truth().addTags(names);
    s.host.truth().addTag("eel");
}

void hostChangesTags(HostileSession& s)
{
    s.host.truth().renameTag(1, "pear");
    s.host.truth().renameTag(3, "bear");
    s.host.truth().setFileCount(3, 12);
    s.host.truth().setTagColor(4, 5);
}

void search(HostileSession& s)
{
    s.user->search("b");
    settle();
    s.host.truth().addTag("bulb");
    s.host.truth().setFileCount(3, 13);
    s.host.truth().removeTags({4});
    s.user->search({});
    settle();
}

void setFavorite(HostileSession& s)
{
    WindowUser::choose(s.user->openTagMenu("ant"), "Set as Favorite Tag");
}

void viewFilesAndColor(HostileSession& s)
{
    WindowUser::choose(s.user->openTagMenu("bear"), "View Related Files");
    if (s.user->openTagMenu("bear"))
        s.user->chooseColor(3);
}

void addToCategory(HostileSession& s)
{
    if (s.user->openTagMenu("zebra"))
        s.user->chooseGroup("Books");
}

void renameTag(HostileSession& s)
{
    WindowUser::choose(s.user->openTagMenu("ant"), "Rename Tag");
    s.user->enterName("yak");
    s.user->closeDialog();
}

void deleteTag(HostileSession& s)
{
    WindowUser::choose(s.user->openTagMenu("yak"), "Delete Tag");
    s.user->answerBox(true);
}

void createTag(HostileSession& s)
{
    s.user->clickCreateTag();
    s.user->enterName("gnu");
    s.user->closeDialog();
}

void showCategories(HostileSession& s)
{
    s.user->selectPage(WindowUser::Categories);
    s.user->clickTile(s.user->tile("Art"));
    s.host.truth().addTagsToGroups({2, 3}, {5});
    s.host.truth().renameGroup(2, "Zen");
}

void renameCategory(HostileSession& s)
{
    WindowUser::choose(s.user->openGroupMenu("Zen"), "Rename Category");
    s.user->enterName("Zoo");
    s.user->closeDialog();
    WindowUser::choose(s.user->openGroupMenu("Zoo"), "View Related Files");
}

void detachTag(HostileSession& s)
{
    WindowUser::choose(s.user->openTagMenu("bear"), "Remove the Tag from the Category");
}

void createCategory(HostileSession& s)
{
    s.user->clickTile(s.user->addNewTile());
    s.user->enterName("New");
    s.user->closeDialog();
    s.host.truth().addGroups({"Middle", "Left"});
}

void deleteCategory(HostileSession& s)
{
    WindowUser::choose(s.user->openGroupMenu("New"), "Delete Category");
    s.user->answerBox(true);
}

void hostRemoves(HostileSession& s)
{
    s.user->clickTile(s.user->tile("Books"));
    s.host.truth().removeGroups({3, 2});
    s.host.truth().removeTags({1, 2, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
}

void showFavorites(HostileSession& s)
{
    s.user->selectPage(WindowUser::Favorites);
    s.host.truth().setFavorite(3, true);
    s.host.truth().setFavorite(3, false);
}

}  // namespace

HostileSession::HostileSession()
    : host(QStringList{"apple", "ant", "bee", "cow", "zebra"})
{
    MemoryHost& truth = host.truth();
    truth.setAnswers(MemoryHost::Answers::AtOnce);
    truth.addGroups({"Art", "Books"});
    truth.addTagsToGroups({2}, {1, 2, 3});
    truth.setFavorite(1, true);
}

const QVector<HostileSession::NamedStep>& HostileSession::steps()
{
    static const QVector<NamedStep> all{
        {"open", open},
        {"hostAddsTags", hostAddsTags},
        {"hostChangesTags", hostChangesTags},
        {"search", search},
        {"setFavorite", setFavorite},
        {"viewFilesAndColor", viewFilesAndColor},
        {"addToCategory", addToCategory},
        {"renameTag", renameTag},
        {"deleteTag", deleteTag},
        {"createTag", createTag},
        {"showCategories", showCategories},
        {"renameCategory", renameCategory},
        {"detachTag", detachTag},
        {"createCategory", createCategory},
        {"deleteCategory", deleteCategory},
        {"hostRemoves", hostRemoves},
        {"showFavorites", showFavorites},
    };
    return all;
}
