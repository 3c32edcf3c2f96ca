// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/ctaggroupitemwidget.h"
#include "plugin/vltagmanagersingleton.h"
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

void clearProvider(HostileSession&)
{
    VLTagManagerSingleton::instance()->clear();
}

void replaceProvider(HostileSession& session)
{
    static const MemoryHost other({"elsewhere"});
    VLTagManagerSingleton::instance()->setDataProvider(other.library());
    session.host.truth().addTag("late");
}

void removeEverything(HostileSession& session)
{
    session.host.truth().removeGroups({2, 3});
    session.host.truth().removeTags({1, 2, 3, 4, 5});
}

void dropEverything(HostileSession& session)
{
    MemoryHost& truth = session.host.truth();
    truth.setAnswers(MemoryHost::Answers::OnDemand);
    for (const qint64 id : {1, 2, 3, 4, 5})
        truth.tag(id)->dropRecord();
    for (const qint64 id : {2, 3})
        truth.group(id)->dropRecord();
    truth.manager()->groups.clear();
    truth.memoryLibrary()->manager.reset();
}

void closeWindow(HostileSession& session)
{
    session.user->closeWindow();
}

void addChangeRows()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("cleared") << Change(clearProvider);
    QTest::newRow("replaced") << Change(replaceProvider);
    QTest::newRow("emptied") << Change(removeEverything);
    QTest::newRow("dropped") << Change(dropEverything);
    QTest::newRow("window closed") << Change(closeWindow);
}

}  // namespace

Q_DECLARE_METATYPE(Change)

/// The library changes or goes, or the window does, while a menu, a dialog, a drag or an animation is under way.
class TestHostileChanges : public QObject
{
    Q_OBJECT

private slots:
    void underATagMenu_data() { addChangeRows(); }
    void underATagMenu();
    void underACategoryMenu_data() { addChangeRows(); }
    void underACategoryMenu();
    void underDialogs_data() { addChangeRows(); }
    void underDialogs();
    void underADrag_data() { addChangeRows(); }
    void underADrag();
    void underAnAnimation_data() { addChangeRows(); }
    void underAnAnimation();
};

void TestHostileChanges::underATagMenu()
{
    QFETCH(const Change, change);
    for (const char* entry : {"View Related Files", "Set as Favorite Tag", "Rename Tag", "Delete Tag",
                              "Remove the Tag from the Category", "category", "color"}) {
        HostileSession session;
        session.user = std::make_unique<WindowUser>();
        session.user->selectPage(WindowUser::Categories);
        session.user->clickTile(session.user->tile("Art"));
        const QPointer<QMenu> menu = session.user->openTagMenu("bee");
        QVERIFY(menu);
        change(session);
        if (!menu)
            continue;
        if (qstrcmp(entry, "category") == 0)
            session.user->chooseGroup("Books");
        else if (qstrcmp(entry, "color") == 0)
            session.user->chooseColor(2);
        else
            WindowUser::choose(menu, QLatin1String(entry));
        settle();
        session.user->enterName("fresh");
        session.user->answerBox(true);
        settle();
    }
}

void TestHostileChanges::underACategoryMenu()
{
    QFETCH(const Change, change);
    for (const char* entry : {"View Related Files", "Rename Category", "Delete Category"}) {
        HostileSession session;
        session.user = std::make_unique<WindowUser>();
        session.user->selectPage(WindowUser::Categories);
        const QPointer<QMenu> menu = session.user->openGroupMenu("Art");
        QVERIFY(menu);
        change(session);
        if (!menu)
            continue;
        WindowUser::choose(menu, QLatin1String(entry));
        settle();
        session.user->enterName("fresh");
        session.user->answerBox(true);
        settle();
    }
}

void TestHostileChanges::underDialogs()
{
    QFETCH(const Change, change);
    for (const bool isCategory : {false, true}) {
        for (const char* entry : {"Rename", "Delete", "Create"}) {
            HostileSession session;
            session.user = std::make_unique<WindowUser>();
            session.user->selectPage(WindowUser::Categories);
            const QString text = QLatin1String(entry) + (isCategory ? " Category" : " Tag");
            if (qstrcmp(entry, "Create") != 0)
                WindowUser::choose(isCategory ? session.user->openGroupMenu("Art") : session.user->openTagMenu("cow"),
                                   text);
            else if (isCategory)
                session.user->clickTile(session.user->addNewTile());
            else
                session.user->clickCreateTag();
            QVERIFY(session.user->dialog() || session.user->box());
            change(session);
            session.user->enterName("fresh");
            session.user->answerBox(true);
            settle();
        }
    }
}

void TestHostileChanges::underADrag()
{
    QFETCH(const Change, change);
    HostileSession session;
    session.user = std::make_unique<WindowUser>();
    session.user->selectPage(WindowUser::Categories);
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

void TestHostileChanges::underAnAnimation()
{
    QFETCH(const Change, change);
    HostileSession session;
    QStringList names;
    for (int i = 0; i < 400; ++i)
        names.append(QChar(0x4e00 + i * 50) + QString::number(i));
    session.host.truth().addTags(names);
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

int main(int argc, char* argv[])
{
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    // The offscreen platform knows no drags.
    qputenv("QT_QPA_PLATFORM", "minimal");
    QApplication application(argc, argv);
    TestHostileChanges test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_hostilechanges.moc"
