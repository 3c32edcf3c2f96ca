// SPDX-License-Identifier: MIT
#include "dialogs/vltagmodifywidget.h"
#include "host/library/records/tagpalette.h"
#include "pages/ctaggroupitemwidget.h"
#include "plugin/state/vltagmanagersingleton.h"
#include "taglist/vltaglistview.h"
#include "tests/library/libraryfixture.h"
#include "tests/support/gestures.h"
#include "tests/support/windowuser.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QtTest>

namespace {

/// Where the window system sends keys while a menu is open.
QWidget* keyTarget(QMenu* open)
{
    QWidget* focus = QApplication::focusWidget();
    return focus && open->isAncestorOf(focus) ? focus : open;
}

/// Walks down the open menu to the entry with the arrow keys and presses \a key there.
bool chooseByKeyboard(QMenu* menu, const QString& entry, Qt::Key key = Qt::Key_Return)
{
    for (int steps = 0; menu && steps < 20; ++steps) {
        QTest::keyClick(keyTarget(menu), Qt::Key_Down);
        if (menu->activeAction() && menu->activeAction()->text() == entry) {
            QTest::keyClick(menu, key);
            return true;
        }
    }
    return false;
}

bool chooseByMouse(QMenu* menu, const QString& entry)
{
    const auto actions = menu ? menu->actions() : QList<QAction*>();
    for (QAction* action : actions) {
        if (action->text() == entry) {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
            return true;
        }
    }
    return false;
}

}  // namespace

/// A person in front of the window over a library in SQLite: each command from the click to the file and back.
class CommandRoadsTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f = std::make_unique<LibraryFixture>();
        QVERIFY(f->isOpen());
        sitDown();
        QVERIFY(createTag("apple"));
    }

    void cleanup()
    {
        leave();
        f.reset();
    }

    void createAndFindAgain()
    {
        QVERIFY(createTag("<b>x</b> & %1"));
        QVERIFY(createTag("avocado"));
        m_user->clickCreateTag();
        m_user->enterName(" apple ");
        QCOMPARE(m_user->dialog()->findChild<QLabel*>("tag_popup_tip")->text(), QStringLiteral("Name already exists"));
        m_user->closeDialog();
        const QStringList expected{"<: <b>x</b> & %1", "A: apple, avocado"};
        QTRY_COMPARE(chips(), expected);
        QCOMPARE(m_user->counter(), QStringLiteral("(3)"));
        QVERIFY(restart());
        QTRY_COMPARE(chips(), expected);
    }

    void favorRenameAndDelete()
    {
        QVERIFY(createTag("avocado"));
        QVERIFY(chooseByKeyboard(m_user->openTagMenu("apple"), "Set as Favorite Tag"));
        QVERIFY(chooseByKeyboard(m_user->openTagMenu("apple"), "Rename Tag"));
        QCOMPARE(m_user->dialog()->lineEdit()->text(), QStringLiteral("apple"));
        m_user->enterName("zebra");
        QTRY_COMPARE(chips(), QStringList({"A: avocado", "Z: zebra"}));
        QTRY_VERIFY(!m_user->dialog());
        QVERIFY(restart());
        QTRY_COMPARE(chips(), QStringList({"A: avocado", "Z: zebra"}));
        m_user->selectPage(WindowUser::Favorites);
        QTRY_COMPARE(chips(), QStringList("Z: zebra"));
        QVERIFY(chooseByMouse(m_user->openTagMenu("zebra"), "Cancel set as Favorite Tag"));
        QTRY_VERIFY(chips().isEmpty());
        m_user->selectPage(WindowUser::AllTags);
        QVERIFY(chooseByMouse(m_user->openTagMenu("zebra"), "Delete Tag"));
        m_user->answerBox(true);
        QTRY_COMPARE(chips(), QStringList("A: avocado"));
        QVERIFY(restart());
        QTRY_COMPARE(chips(), QStringList("A: avocado"));
    }

    void recolourByKeyboard()
    {
        const auto color = [this] {
            const auto chip = gestures::findChip(m_user->page(WindowUser::AllTags), "apple");
            return chip.view->tagAt(chip.index).color;
        };
        const QColor before = color();
        QMenu* menu = m_user->openTagMenu("apple");
        QWidget* row = nullptr;
        for (int steps = 0; !row && steps < 10; ++steps) {
            QTest::keyClick(keyTarget(menu), Qt::Key_Down);
            QWidget* focus = QApplication::focusWidget();
            if (focus && focus->inherits("VLTagColorAction"))
                row = focus;
        }
        QVERIFY(row);
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(row, Qt::Key_Right);
        QTest::keyClick(row, Qt::Key_Return);
        QTRY_VERIFY(color() != before);
        const QColor after = color();
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(restart());
        QCOMPARE(color(), after);
    }

    void categoriesFromCreationToDeletion()
    {
        m_user->selectPage(WindowUser::Categories);
        m_user->clickTile(m_user->addNewTile());
        m_user->enterName("fruit");
        QTRY_VERIFY(m_user->tile("fruit"));
        QTRY_VERIFY(!m_user->dialog());
        QVERIFY(chooseByKeyboard(m_user->openTagMenu("apple"), "Add to Category", Qt::Key_Right));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(!QApplication::activePopupWidget());
        QTRY_VERIFY(chips().isEmpty());
        m_user->clickTile(m_user->tile("fruit"));
        QTRY_COMPARE(chips(), QStringList("A: apple"));
        QTRY_COMPARE(m_user->tiles(), QStringList({"Unsorted 0", "[fruit 1]"}));

        QVERIFY(chooseByMouse(m_user->openTagMenu("apple"), "Remove the Tag from the Category"));
        QTRY_VERIFY(chips().isEmpty());
        QVERIFY(chooseByKeyboard(m_user->openGroupMenu("fruit"), "Rename Category"));
        m_user->enterName("food");
        QTRY_VERIFY(m_user->tile("food"));
        QCOMPARE(m_user->header(), QStringLiteral("food(0)"));
        QTRY_VERIFY(!m_user->dialog());

        QVERIFY(chooseByMouse(m_user->openGroupMenu("food"), "Delete Category"));
        m_user->answerBox(true);
        QTRY_COMPARE(chips(), QStringList("A: apple"));
        QCOMPARE(m_user->tiles(), QStringList("[Unsorted 1]"));
        QVERIFY(restart());
    }

private:
    void sitDown()
    {
        auto* state = VLTagManagerSingleton::instance();
        state->setTagColorProvider(TagPalette::instance());
        state->setDataProvider(f->library()->dataProvider());
        m_user = std::make_unique<WindowUser>();
    }

    void leave()
    {
        m_user.reset();
        VLTagManagerSingleton::instance()->clear();
        VLTagManagerSingleton::instance()->setTagColorProvider(nullptr);
    }

    /// Waits until the providers and the database say the same, ends the program and starts it again.
    bool restart()
    {
        const bool agree = QTest::qWaitFor([this] { return f->shown() == f->stored(); });
        leave();
        if (!agree || !f->reopen())
            return false;
        sitDown();
        return true;
    }

    bool createTag(const QString& name)
    {
        m_user->clickCreateTag();
        m_user->enterName(name);
        return QTest::qWaitFor([this] { return !m_user->dialog(); });
    }

    [[nodiscard]] QStringList chips() const { return gestures::shownChips(m_user->page(m_user->currentPage())); }

    std::unique_ptr<LibraryFixture> f;
    std::unique_ptr<WindowUser> m_user;
};

QTEST_MAIN(CommandRoadsTest)
#include "tst_commandroads.moc"
