// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/vlgrouplistmenu.h"
#include "taglist/vltagcoloraction.h"
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
    void viewFiles();
    void favoriteAndCancel();
    void addToCategory();
    void rename();
    void refusalsAreLogged();
    void recolour();
    void createTag();
    void deleteAsksFirst();
    void manyCategoriesLeaveTheListAsItIs();
    void categoriesAddedAfterARemovalCanBeReached();
};

void TagCommandsTest::menuShowsItsEntriesInOrder()
{
    Desk desk({"apple"});
    const QStringList common{
        "View Related Files", "-", "Set as Favorite Tag", "Add to Category", "-", "Rename Tag", "~", "-"};
    const QString detach = QStringLiteral("Remove the Tag from the Category");
    QCOMPARE(desk.entries(), common + QStringList({"Delete Tag"}));
    QCOMPARE(desk.menu()->width(), 204);
    QCOMPARE(desk.groupMenu()->width(), 168);
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    QVERIFY(!desk.groupMenu()->menuAction()->isEnabled());

    desk.list->setDataProvider(desk.host.group(desk.host.addGroup(QStringLiteral("group"))));
    QCOMPARE(desk.entries(), common + QStringList({detach, "Delete Tag"}));
    for (const qint64 id : {MemoryHost::Favorites, MemoryHost::Uncategorized}) {
        desk.list->setDataProvider(desk.host.group(id));
        QVERIFY(!desk.entries().contains(detach));
    }
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

void TagCommandsTest::refusalsAreLogged()
{
    Desk desk({"apple"}, {"group"});
    desk.host.refuseWith(5, QStringLiteral("disk full"));
    desk.list->slotRenameTag(1);
    desk.typeAndConfirm(QStringLiteral("cherry"));
    QTRY_VERIFY(desk.hasLogged("VLTagGroupListView::slotRenameTag failed. Message: \"disk full\""));
    QVERIFY(desk.dialog()->isVisible());
    QCOMPARE(gestures::shownChips(desk.list.get()), QStringList({"A: apple"}));
    desk.list->slotSetCommonTag(1);
    QTRY_VERIFY(desk.hasLogged("VLTagGroupListView::slotSetCommonTag failed. Message \"disk full\""));
    desk.list->slotSetTagColor(1, 2);
    QTRY_VERIFY(desk.hasLogged("VLTagGroupListView::slotSetTagColor failed. Message: \"disk full\""));
    desk.list->setDataProvider(desk.host.group(desk.groups[0]));
    desk.list->slotDetachTag(1);
    QTRY_VERIFY(desk.hasLogged("VLTagGroupListView::slotDelTag failed. Message: \"disk full\""));
}

void TagCommandsTest::recolour()
{
    Desk desk({"apple"});
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    auto* row = desk.menu()->findChild<VLTagColorAction*>();
    emit row->signalColorClicked(4);
    QTRY_COMPARE(readTagItem(desk.host.tag(1))->color, QColor(0x1f6f3a));
    QCOMPARE(desk.log.take(), QStringList({"VLTagGroupListView::slotSetTagColor tagId: 1"}));
    QCOMPARE(desk.tracked, QStringList({"SendBClickLabelMenu|Set Color|green"}));
    emit row->signalColorClicked(-1);
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

void TagCommandsTest::manyCategoriesLeaveTheListAsItIs()
{
    QStringList names;
    for (int i = 0; i < 12; ++i)
        names.append(QString::number(i));
    Desk desk({"apple"}, names);
    desk.list->slotPopMenu(1, QStringLiteral("apple"));
    QCOMPARE(desk.groupList()->size(), QSize(168, 230));
    QCOMPARE(desk.groupMenu()->height(), 230);
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

QTEST_MAIN(TagCommandsTest)
#include "tst_tagcommands.moc"
