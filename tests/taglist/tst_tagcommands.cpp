// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/addtocategory/vlgrouplistmenu.h"
#include "taglist/vltagcoloraction.h"
#include "taglist/vltaggrouplistview.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "tests/support/windowuser.h"

#include <vleventtrack.h>

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QtTest>

namespace {

/// A command for the tag "apple", and what the log and usage tracking are told of it.
struct Command
{
    void (*give)(WindowUser&);
    QString logged;
    QStringList tracked;
    QString failure = {};
};

/// In an order in which each can be carried out after those before it.
const QVector<Command> commands{
    {[](WindowUser& user) { WindowUser::choose(user.openTagMenu("apple"), "View Related Files"); },
     "VLTagGroupListView::signalsCheckoutFile id: 1",
     {"SendBClickLabelMenu|View Related Files|", "SendLabelJoin|2"}},
    {[](WindowUser& user) { WindowUser::choose(user.openTagMenu("apple"), "Set as Favorite Tag"); },
     "VLTagGroupListView::slotSetCommonTag set common tagId: 1",
     {"SendBClickLabelMenu|Set as Favorite Tag|"},
     "VLTagGroupListView::slotSetCommonTag failed. Message"},
    {[](WindowUser& user) { WindowUser::choose(user.openTagMenu("apple"), "Cancel set as Favorite Tag"); },
     "VLTagGroupListView::slotSetCommonTag cance common tagId: 1",
     {"SendBClickLabelMenu|Set as Favorite Tag|"},
     "VLTagGroupListView::slotSetCommonTag failed. Message"},
    {[](WindowUser& user) {
         if (user.openTagMenu("apple"))
             user.chooseGroup("second & last");
     },
     "VLTagGroupListView add tag to group. tagId: 1  gId: 3",
     {"SendBClickLabelMenu|Add to Category|second & last"}},
    {[](WindowUser& user) {
         if (user.openTagMenu("apple"))
             user.chooseColor(4);
     },
     "VLTagGroupListView::slotSetTagColor tagId: 1",
     {"SendBClickLabelMenu|Set Color|Green"},
     "VLTagGroupListView::slotSetTagColor failed. Message:"},
    {[](WindowUser& user) {
         user.list()->slotAddTag();
         user.enterName("bee");
     },
     "VLTagGroupListView::slotAddTag tagName: \"bee\"",
     {"CreateTag|0|bee"},
     "VLTagGroupListView::slotAddTag failed. Message:"},
    {[](WindowUser& user) {
         WindowUser::choose(user.openTagMenu("apple"), "Rename Tag");
         user.enterName(" cherry ");
     },
     "VLTagGroupListView::slotRenameTag. tagId: 1",
     {"SendBClickLabelMenu|Rename Tag|"},
     "VLTagGroupListView::slotRenameTag failed. Message:"},
    {[](WindowUser& user) {
         WindowUser::choose(user.openTagMenu("cherry"), "Delete Tag");
         user.answerBox(true);
     },
     "VLTagGroupListView::slotDelTag tagId: 1",
     {"SendBClickLabelMenu|Delete Tag|"},
     "VLTagGroupListView::slotDelTag failed. Message:"},
};

/// The lines that are logged and, after "-", what usage tracking is told.
QStringList toldBy(const Command& command, WindowUser& user, MessageCatcher& log)
{
    QStringList tracked{"-"};
    const auto tracking = QObject::connect(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked,
                                           [&tracked](const QString& operation, const QVariantList& arguments) {
                                               QStringList texts{operation};
                                               for (const QVariant& argument : arguments)
                                                   texts.append(argument.toString());
                                               tracked.append(texts.join('|'));
                                           });
    log.take();
    command.give(user);
    settle();
    QObject::disconnect(tracking);
    return log.take() + tracked;
}

}  // namespace

/// What is told of commands; that they do what they should is seen by the random walk.
class TagCommandsTest : public QObject
{
    Q_OBJECT

private slots:
    void commandsAreLoggedAndTracked()
    {
        InstalledHost host({"apple"});
        host.addGroups({"first", "second & last"});
        WindowUser user;
        MessageCatcher log;
        for (const Command& command : commands) {
            QStringList expected = QStringList{command.logged, "-"} + command.tracked;
            if (!command.failure.isEmpty()) {
                host.refuseWith(5, "disk full");
                const QStringList chips = user.chips();
                const QStringList refused = toldBy(command, user, log);
                QCOMPARE(user.chips(), chips);
                QVERIFY2(refused.mid(0, 2) == QStringList({command.logged, command.failure + " \"disk full\""}),
                         qPrintable(refused.join('\n')));
                user.closeDialog();
                host.refuseWith(0, {});
            }
            QCOMPARE(toldBy(command, user, log), expected);
        }
    }

    void dialogKeepsItsTag()
    {
        const InstalledHost host({"apple", "bee"});
        WindowUser user;
        WindowUser::choose(user.openTagMenu("apple"), "Rename Tag");
        QCOMPARE(user.dialog()->lineEdit()->text(), QStringLiteral("apple"));
        user.list()->slotPopMenu(2, "bee");
        user.enterName("cherry");
        QTRY_COMPARE(gestures::shownChips(user.list()), QStringList({"B: bee", "C: cherry"}));
    }

    void deleteAsksFirst()
    {
        InstalledHost host({"apple"});
        host.setFileCount(1, 12);
        WindowUser user;
        user.list()->slotDelTag(1);
        const auto* body = user.box()->findChild<QLabel*>("lab_context");
        QVERIFY(body->text().contains("> 12 </font>files，Are you sure"));
        user.answerBox(false);
        QTRY_VERIFY(!user.box());
        QVERIFY(host.requests().isEmpty());
        // Neither a tag nor a colour of which nobody knows does anything.
        emit user.list()->findChild<VLTagColorAction*>()->signalColorClicked(-1);
        user.list()->slotDelTag(99);
        QVERIFY(!user.box());
    }

    void detachingIsRefused()
    {
        InstalledHost host({"apple"});
        host.refuseWith(5, "disk full");
        WindowUser user;
        MessageCatcher log;
        user.list()->slotDetachTag(1);
        settle();
        QCOMPARE(log.take(), QStringList("VLTagGroupListView::slotDelTag failed. Message: \"disk full\""));
    }

    void categoriesAddedAfterARemovalCanBeReached()
    {
        InstalledHost host({"apple"});
        const QVector<qint64> groups = host.addGroups({"a", "b"});
        WindowUser user;
        auto* choices = user.list()->findChild<VLGroupListMenu*>();
        host.removeGroup(groups[0]);
        QCOMPARE(choices->height(), 30);
        for (int i = 0; i < 12; ++i)
            host.addGroup(QString::number(i));
        QCOMPARE(user.openTagMenu("apple")->width(), 204);
        auto* menu = user.list()->findChild<QMenu*>("tag_manager_menu");
        QCOMPARE(choices->height(), 300);
        QCOMPARE(menu->size(), QSize(168, 230));
        menu->popup(QPoint(0, 0));
        choices->scrollToBottom();
        const QRect last = choices->visualItemRect(choices->item(12));
        QVERIFY(choices->viewport()->mapTo(menu, last.bottomLeft()).y() < 230);
        QVERIFY(user.chooseGroup("11"));
        QVERIFY(!QApplication::activePopupWidget());
    }
};

QTEST_MAIN(TagCommandsTest)
#include "tst_tagcommands.moc"
