// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/vlgrouplistmenu.h"
#include "taglist/vltaggrouplistview.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"

#include <vleventtrack.h>

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextDocument>
#include <QtTest>

namespace {

/// A section list with its menus, the log and what usage tracking heard.
class Desk
{
public:
    explicit Desk(const QStringList& tagNames, const QStringList& groupNames = {})
        : host(tagNames)
    {
        groups = host.addGroups(groupNames);
        VLTagManagerSingleton::instance()->tagManagerProvider();
        list = std::make_unique<VLTagGroupListView>(nullptr, false);
        list->resize(600, 400);
        list->setDataProvider(host.group(MemoryHost::AllTags));
        list->show();
        QObject::connect(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked, list.get(),
                         [this](const QString& operation, const QVariantList& arguments) {
                             QStringList texts{operation};
                             for (const QVariant& argument : arguments)
                                 texts.append(argument.toString());
                             tracked.append(texts.join('|'));
                         });
    }

    QMenu* menu() const { return list->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly); }
    QMenu* groupMenu() const { return list->findChild<QMenu*>(QStringLiteral("tag_manager_menu")); }
    VLGroupListMenu* groupList() const { return list->findChild<VLGroupListMenu*>(); }
    VLTagModifyWidget* dialog() const { return list->findChild<VLTagModifyWidget*>(); }
    VLMessageBox* box() const { return list->findChild<VLMessageBox*>(); }

    /// Whether the log has held the line since the last look at all of it.
    bool hasLogged(const QString& line)
    {
        logged += log.take();
        return logged.contains(line);
    }

    /// The menu's entries as a person reads them, with "-" for separators and "~" for the colour row.
    QStringList entries() const
    {
        QStringList texts;
        for (const QAction* action : menu()->actions()) {
            const QString text = action->text().isEmpty() ? QStringLiteral("~") : action->text();
            texts.append(action->isSeparator() ? QStringLiteral("-") : text);
        }
        return texts;
    }

    void choose(const QString& entry) const
    {
        for (QAction* action : menu()->actions()) {
            if (action->text() == entry)
                action->trigger();
        }
    }

    void typeAndConfirm(const QString& name) const
    {
        dialog()->lineEdit()->setText(name);
        QTest::keyClick(dialog(), Qt::Key_Return);
    }

    MessageCatcher log;
    InstalledHost host;
    QVector<qint64> groups;
    std::unique_ptr<VLTagGroupListView> list;
    QStringList tracked;
    QStringList logged;
};

}  // namespace

class TagCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void menuShowsItsEntriesInOrder();
    void menuOfACategoryCanRemoveFromIt();
    void menuIsAdaptedToTheTag();
    void viewFiles();
    void favoriteAndCancel();
    void addToCategory();
    void rename();
    void renameThatFailsKeepsTheDialog();
    void recolour();
    void createTag();
    void deleteAsksFirst();
    void removeFromCategory();
    void namesAreNeverMarkup();
    void answersOfOthersAreIgnored();
    void answersMayComeAfterTheWindow();
    void withoutAnActionNothingHappens();
    void categoryListFollowsTheNews();
    void categoriesAddedAfterARemovalCanBeReached();
    void dialogsSurviveTheDataChanging();
};

void TagCommandsTest::menuShowsItsEntriesInOrder()
{
    const Desk desk({"apple"}, {"group"});
    QCOMPARE(desk.entries(), QStringList({"View Related Files", "-", "Set as Favorite Tag", "Add to Category", "-",
                                          "Rename Tag", "~", "-", "Delete Tag"}));
    QCOMPARE(desk.menu()->width(), 204);
    QCOMPARE(desk.groupMenu()->width(), 168);
}

void TagCommandsTest::menuOfACategoryCanRemoveFromIt()
{
    const Desk desk({"apple"}, {"group"});
    desk.list->setDataProvider(desk.host.group(desk.groups[0]));
    QCOMPARE(desk.entries().mid(7), QStringList({"-", "Remove the Tag from the Category", "Delete Tag"}));
    for (const qint64 id : {MemoryHost::Favorites, MemoryHost::Uncategorized}) {
        desk.list->setDataProvider(desk.host.group(id));
        QVERIFY(!desk.entries().contains(QStringLiteral("Remove the Tag from the Category")));
    }
}

void TagCommandsTest::menuIsAdaptedToTheTag()
{
    Desk desk({"apple", "bee"});
    desk.host.setFavorite(1, true);
    QVERIFY(gestures::rightClickChip(desk.list.get(), QStringLiteral("apple")));
    QVERIFY(desk.menu()->isVisible());
    QVERIFY(desk.entries().contains(QStringLiteral("Cancel set as Favorite Tag")));
    QVERIFY(!desk.groupMenu()->menuAction()->isEnabled());
    QTest::keyClick(desk.menu(), Qt::Key_Escape);
    QVERIFY(!desk.menu()->isVisible());
    desk.list->slotPopMenu(2, QStringLiteral("bee"));
    QVERIFY(desk.entries().contains(QStringLiteral("Set as Favorite Tag")));
}

void TagCommandsTest::viewFiles()
{
    Desk desk({"apple"});
    QSignalSpy files(desk.list.get(), &VLTagGroupListView::signalsCheckoutFile);
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    QTest::keyClick(desk.menu(), Qt::Key_Down);
    QTest::keyClick(desk.menu(), Qt::Key_Return);
    QCOMPARE(files.count(), 1);
    QCOMPARE(files[0][0].value<QVector<qint64>>(), QVector<qint64>{1});
    QCOMPARE(desk.log.take(), QStringList({"VLTagGroupListView::signalsCheckoutFile id: 1"}));
    QCOMPARE(desk.tracked, QStringList({"SendBClickLabelMenu|View Related Files|", "SendLabelJoin|2"}));
}

void TagCommandsTest::favoriteAndCancel()
{
    Desk desk({"apple"});
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    desk.choose(QStringLiteral("Set as Favorite Tag"));
    QTRY_COMPARE(desk.host.group(MemoryHost::Favorites)->tagCount(1), 1);
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    desk.choose(QStringLiteral("Cancel set as Favorite Tag"));
    QTRY_COMPARE(desk.host.group(MemoryHost::Favorites)->tagCount(1), 0);
    QCOMPARE(desk.log.take(), QStringList({"VLTagGroupListView::slotSetCommonTag set common tagId: 1",
                                           "VLTagGroupListView::slotSetCommonTag cance common tagId: 1"}));
    const QString once = QStringLiteral("SendBClickLabelMenu|Set as Favorite Tag|");
    QCOMPARE(desk.tracked, QStringList({once, once}));
    desk.host.refuseWith(3, QStringLiteral("no"));
    desk.list->slotSetCommonTag(1);
    QTRY_VERIFY(desk.hasLogged("VLTagGroupListView::slotSetCommonTag failed. Message \"no\""));
}

void TagCommandsTest::addToCategory()
{
    Desk desk({"apple"}, {"first", "second & last"});
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    QCOMPARE(desk.groupList()->item(1)->text(), QStringLiteral("second & last"));
    emit desk.groupList()->itemClicked(desk.groupList()->item(1));
    QVERIFY(!desk.menu()->isVisible());
    QTRY_VERIFY(desk.host.groupsOf(1).contains(desk.groups[1]));
    QCOMPARE(desk.log.take(), QStringList({"VLTagGroupListView add tag to group. tagId: 1  gId: 3"}));
    QCOMPARE(desk.tracked, QStringList({"SendBClickLabelMenu|Add to Category|second & last"}));
}

void TagCommandsTest::rename()
{
    Desk desk({"apple", "bee"});
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    desk.choose(QStringLiteral("Rename Tag"));
    QCOMPARE(desk.dialog()->lineEdit()->text(), QStringLiteral("apple"));
    QCOMPARE(desk.tracked, QStringList({"SendBClickLabelMenu|Rename Tag|"}));
    // The menu may be opened for another tag meanwhile; the dialog keeps its own.
    desk.list->slotPopMenu(2, QStringLiteral("bee"));
    const QPointer<VLTagModifyWidget> dialog = desk.dialog();
    desk.typeAndConfirm(QStringLiteral("  cherry "));
    QTRY_COMPARE(gestures::shownChips(desk.list.get()), QStringList({"B: bee", "C: cherry"}));
    QTRY_VERIFY(!dialog);
    QCOMPARE(desk.log.take(), QStringList({"VLTagGroupListView::slotRenameTag. tagId: 1"}));
}

void TagCommandsTest::renameThatFailsKeepsTheDialog()
{
    Desk desk({"apple"});
    desk.host.refuseWith(5, QStringLiteral("disk full"));
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    desk.choose(QStringLiteral("Rename Tag"));
    desk.typeAndConfirm(QStringLiteral("cherry"));
    QTRY_VERIFY(desk.hasLogged("VLTagGroupListView::slotRenameTag failed. Message: \"disk full\""));
    QVERIFY(desk.dialog()->isVisible());
    QCOMPARE(gestures::shownChips(desk.list.get()), QStringList({"A: apple"}));
}

void TagCommandsTest::recolour()
{
    Desk desk({"apple"});
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    auto* row = desk.list->findChild<QWidget*>(QString(), Qt::FindChildrenRecursively);
    for (QWidget* widget : desk.menu()->findChildren<QWidget*>()) {
        if (qstrcmp(widget->metaObject()->className(), "VLTagColorAction") == 0)
            row = widget;
    }
    QMetaObject::invokeMethod(row, "signalColorClicked", Q_ARG(int, 4));
    QTRY_COMPARE(readTagItem(desk.host.tag(1))->color, QColor("#1f6f3a"));
    QCOMPARE(desk.log.take(), QStringList({"VLTagGroupListView::slotSetTagColor tagId: 1"}));
    QCOMPARE(desk.tracked, QStringList({"SendBClickLabelMenu|Set Color|green"}));
    QMetaObject::invokeMethod(row, "signalColorClicked", Q_ARG(int, -1));
    QCOMPARE(desk.tracked.size(), 1);
}

void TagCommandsTest::createTag()
{
    Desk desk({"apple"});
    desk.list->slotAddTag();
    const QPointer<VLTagModifyWidget> dialog = desk.dialog();
    desk.typeAndConfirm(QStringLiteral("bee"));
    QTRY_COMPARE(gestures::shownChips(desk.list.get()), QStringList({"A: apple", "B: bee"}));
    QTRY_VERIFY(!dialog);
    QCOMPARE(desk.log.take(), QStringList({"VLTagGroupListView::slotAddTag tagName: \"bee\""}));
    QCOMPARE(desk.tracked, QStringList({"CreateTag|0|bee"}));
    desk.host.refuseWith(1, QStringLiteral("locked"));
    desk.list->slotAddTag();
    desk.typeAndConfirm(QStringLiteral("cat"));
    QTRY_VERIFY(desk.hasLogged("VLTagGroupListView::slotAddTag failed. Message: \"locked\""));
    QVERIFY(desk.dialog()->isVisible());
}

void TagCommandsTest::deleteAsksFirst()
{
    Desk desk({"apple", "bee"});
    desk.host.setFileCount(1, 12);
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    desk.choose(QStringLiteral("Delete Tag"));
    QCOMPARE(desk.tracked, QStringList({"SendBClickLabelMenu|Delete Tag|"}));
    const auto* body = desk.box()->findChild<QLabel*>(QStringLiteral("lab_context"));
    QVERIFY(body->text().contains(QStringLiteral("> 12 </font>files，Are you sure")));
    desk.box()->on_cancel_btn_clicked();
    QVERIFY(desk.host.requests().isEmpty());
    QTRY_VERIFY(!desk.box());
    desk.list->slotDelTag(1);
    desk.box()->on_confirm_btn_clicked();
    QTRY_COMPARE(gestures::shownChips(desk.list.get()), QStringList({"B: bee"}));
    QCOMPARE(desk.log.take(), QStringList({"VLTagGroupListView::slotDelTag tagId: 1"}));
    desk.list->slotDelTag(1);
    QTRY_VERIFY(!desk.box());
}

void TagCommandsTest::removeFromCategory()
{
    Desk desk({"apple"}, {"group"});
    desk.host.addTagsToGroups(desk.groups, {1});
    desk.list->setDataProvider(desk.host.group(desk.groups[0]));
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    desk.choose(QStringLiteral("Remove the Tag from the Category"));
    QTRY_VERIFY(gestures::shownChips(desk.list.get()).isEmpty());
    QCOMPARE(desk.log.take(), QStringList());
    desk.host.refuseWith(1, QStringLiteral("no"));
    desk.list->slotDetachTag(1);
    QTRY_VERIFY(desk.hasLogged("VLTagGroupListView::slotDelTag failed. Message: \"no\""));
}

void TagCommandsTest::namesAreNeverMarkup()
{
    Desk desk({});
    for (const QString& name : {QStringLiteral("<b>x</b>"), QStringLiteral("<a href=\"file:///etc/passwd\">x</a>"),
                                QStringLiteral("%1 %2 %n"), QStringLiteral("&amp;")}) {
        const qint64 id = desk.host.addTag(name);
        desk.list->slotDelTag(id);
        const auto* body = desk.box()->findChild<QLabel*>(QStringLiteral("lab_context"));
        QTextDocument document;
        document.setHtml(body->text());
        QVERIFY2(document.toPlainText().contains("The Tag " + name + " is"), qPrintable(document.toPlainText()));
        desk.box()->close();
        QTRY_VERIFY(!desk.box());
    }
}

void TagCommandsTest::answersOfOthersAreIgnored()
{
    Desk desk({"apple"});
    desk.host.setAnswers(MemoryHost::Answers::OnDemand);
    desk.list->slotSetTagColor(1, 2);
    desk.list->slotRenameTag(1);
    desk.typeAndConfirm(QStringLiteral("cherry"));
    desk.log.take();
    const auto requests = desk.host.requests();
    const auto refusal = MemoryHost::response(9, QStringLiteral("late"));
    desk.host.answerForeign(4711, refusal);
    desk.host.answer(requests[0], nullptr);
    QCOMPARE(desk.log.take(), QStringList());
    desk.host.answer(requests[0], refusal);
    desk.host.answer(requests[1], refusal);
    QCOMPARE(desk.log.take(), QStringList({"VLTagGroupListView::slotSetTagColor failed. Message: \"late\"",
                                           "VLTagGroupListView::slotRenameTag failed. Message: \"late\""}));
}

void TagCommandsTest::answersMayComeAfterTheWindow()
{
    Desk desk({"apple"});
    desk.host.setAnswers(MemoryHost::Answers::OnDemand);
    desk.list->slotAddTag();
    desk.typeAndConfirm(QStringLiteral("bee"));
    desk.list.reset();
    desk.host.answer(desk.host.requests()[0], MemoryHost::response());
    desk.host.carryOut(desk.host.requests()[0]);
    QCOMPARE(desk.host.tagId(QStringLiteral("bee")), qint64(2));
}

void TagCommandsTest::withoutAnActionNothingHappens()
{
    VLTagManagerSingleton::instance()->clear();
    MessageCatcher log;
    VLTagGroupListView list(nullptr, false);
    list.slotSetCommonTag(1);
    list.slotSetGroupTag(2, 1);
    list.slotSetTagColor(1, 1);
    list.slotDelTag(1);
    list.slotDetachTag(1);
    list.slotPopMenu(1, QStringLiteral("nobody"));
    list.slotAddGroupAction(5);
    list.slotUpdateGroupAction(5);
    list.slotRemoveGroupAction(5);
    QCOMPARE(log.take(), QStringList());
}

void TagCommandsTest::categoryListFollowsTheNews()
{
    Desk desk({"apple"}, {"b"});
    auto* state = VLTagManagerSingleton::instance();
    const qint64 added = desk.host.addGroup(QStringLiteral("a"));
    emit state->signalAddGroupAction(added);
    emit state->signalAddGroupAction(added);
    QCOMPARE(desk.groupList()->count(), 2);
    desk.host.renameGroup(added, QStringLiteral("renamed"));
    emit state->signalUpdateGroupAction(added);
    QCOMPARE(desk.groupList()->item(1)->text(), QStringLiteral("renamed"));
    emit state->signalUpdateGroupAction(MemoryHost::Favorites);
    emit state->signalUpdateGroupAction(777);
    desk.host.removeGroup(added);
    emit state->signalRemoveGroupAction(added);
    emit state->signalRemoveGroupAction(added);
    QCOMPARE(desk.groupList()->count(), 1);
}

void TagCommandsTest::categoriesAddedAfterARemovalCanBeReached()
{
    Desk desk({"apple"}, {"a", "b"});
    auto* state = VLTagManagerSingleton::instance();
    emit state->signalRemoveGroupAction(desk.groups[0]);
    QCOMPARE(desk.groupList()->height(), 30);
    for (int i = 0; i < 12; ++i)
        emit state->signalAddGroupAction(desk.host.addGroup(QString::number(i)));
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    QCOMPARE(desk.groupList()->height(), 300);
    QCOMPARE(desk.groupMenu()->height(), 230);
    desk.groupMenu()->popup(QPoint(0, 0));
    desk.groupList()->scrollToBottom();
    const QRect last = desk.groupList()->visualItemRect(desk.groupList()->item(12));
    QVERIFY(desk.groupList()->viewport()->mapTo(desk.groupMenu(), last.bottomLeft()).y() < 230);
}

void TagCommandsTest::dialogsSurviveTheDataChanging()
{
    Desk desk({"apple", "bee"}, {"group"});
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    desk.list->slotRenameTag(1);
    desk.list->slotDelTag(1);
    desk.host.removeTags({1});
    desk.list->setDataProvider({});
    VLTagManagerSingleton::instance()->clear();
    desk.box()->on_confirm_btn_clicked();
    QTRY_VERIFY(desk.hasLogged("VLTagGroupListView::slotDelTag tagId: 1"));
    desk.choose(QStringLiteral("Set as Favorite Tag"));
    if (desk.dialog())
        desk.typeAndConfirm(QStringLiteral("cherry"));
    QCOMPARE(desk.host.tagId(QStringLiteral("cherry")), qint64(0));
}

QTEST_MAIN(TagCommandsTest)
#include "tst_tagcommands.moc"
