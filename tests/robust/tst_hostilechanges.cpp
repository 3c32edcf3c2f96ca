// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/ctaggroupitemwidget.h"
#include "taglist/vltaggrouplistview.h"
#include "taglist/vltaglistview.h"
#include "tests/robust/hostilesession.h"
#include "tests/support/chipdrag.h"
#include "tests/support/gestures.h"

#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QtTest>

namespace {

using Change = void (*)(HostileSession&);

/// The worst of what a host may do.
void addChangeRows()
{
    QTest::addColumn<Change>("change");
    for (const HostileDeed& deed : hostileDeeds()) {
        if (!deed.keepsPage)
            QTest::newRow(deed.name) << deed.run;
    }
}

/// Confirms whatever dialog is open.
void confirm(WindowUser& user)
{
    user.enterName("fresh");
    user.answerBox(true);
    settle();
}

}  // namespace

Q_DECLARE_METATYPE(Change)

/// The library changes or goes, or the window does, while a menu, a dialog, a drag or an animation is under way.
class TestHostileChanges : public QObject
{
    Q_OBJECT

private slots:
    void underAMenu_data() { addChangeRows(); }

    void underAMenu()
    {
        QFETCH(const Change, change);
        const auto check = [change](bool ofTag, const QString& entry) {
            HostileSession session;
            session.openCategories();
            WindowUser& user = *session.user;
            user.clickTile(user.tile("Art"));
            const QPointer<QMenu> menu = ofTag ? user.openTagMenu("bee") : user.openGroupMenu("Art");
            QVERIFY(menu);
            change(session);
            if (!menu)
                return;
            if (entry == "Add to Category")
                user.chooseGroup("Books");
            else if (entry == "Set Color")
                user.chooseColor(2);
            else
                WindowUser::choose(menu, entry);
            settle();
            confirm(user);
        };
        for (const char* entry : {"View Related Files", "Set as Favorite Tag", "Rename Tag", "Delete Tag",
                                  "Remove the Tag from the Category", "Add to Category", "Set Color"})
            check(true, entry);
        for (const char* entry : {"View Related Files", "Rename Category", "Delete Category"})
            check(false, entry);
    }

    void underDialogs_data() { addChangeRows(); }

    void underDialogs()
    {
        QFETCH(const Change, change);
        const QVector<void (*)(WindowUser&)> waysToDialogs{
            [](WindowUser& user) { WindowUser::choose(user.openTagMenu("cow"), "Rename Tag"); },
            [](WindowUser& user) { WindowUser::choose(user.openTagMenu("cow"), "Delete Tag"); },
            [](WindowUser& user) { user.clickCreateTag(); },
            [](WindowUser& user) { WindowUser::choose(user.openGroupMenu("Art"), "Rename Category"); },
            [](WindowUser& user) { WindowUser::choose(user.openGroupMenu("Art"), "Delete Category"); },
            [](WindowUser& user) { user.clickTile(user.addNewTile()); },
        };
        for (const auto open : waysToDialogs) {
            HostileSession session;
            session.openCategories();
            open(*session.user);
            QVERIFY(session.user->dialog() || session.user->box());
            change(session);
            confirm(*session.user);
        }
    }

    void underADrag_data() { addChangeRows(); }

    void underADrag()
    {
        QFETCH(const Change, change);
        HostileSession session;
        session.openCategories();
        const QPointer<CTagGroupItemWidget> tile = session.user->tile("Books");
        const gestures::ChipPlace chip = gestures::findChip(session.user->list(), "cow");
        QVERIFY(chip.view && tile);
        bool changed = false;
        // The real way of a chip: pressed and pulled, so that the view's own drag loop is on the stack.
        const QPoint from = chip.view->visualRect(chip.index).center();
        QTimer::singleShot(0, qApp, [&] {
            dragOver(tile, chipPayload(4));
            change(session);
            changed = true;
            if (tile)
                dropOn(tile, chipPayload(4));
            QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QCoreApplication::sendEvent(qApp, &escape);
        });
        QTest::mousePress(chip.view->viewport(), Qt::LeftButton, {}, from);
        QMouseEvent pull(QEvent::MouseMove, from + QPoint(60, 0), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(chip.view->viewport(), &pull);
        QTRY_VERIFY(changed);
        settle();
    }

    void underAnAnimation_data() { addChangeRows(); }

    void underAnAnimation()
    {
        QFETCH(const Change, change);
        HostileSession session;
        QStringList names;
        for (int i = 0; i < 400; ++i)
            names.append(QChar(0x4e00 + i * 50) + QString::number(i));
        session.host.addTags(names);
        session.user = std::make_unique<WindowUser>();
        auto* area = session.user->page(WindowUser::AllTags)->findChild<QWidget*>(QStringLiteral("all_tag_scroll"));
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(area, &enter);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(area, &leave);
        settle();
        change(session);
        settle();
    }
};

DRAG_TEST_MAIN(TestHostileChanges)
#include "tst_hostilechanges.moc"
