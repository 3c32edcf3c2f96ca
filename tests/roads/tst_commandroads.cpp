// SPDX-License-Identifier: MIT
#include "host/library/tagpalette.h"
#include "pages/ctaggroupitemwidget.h"
#include "pages/ctaggroupshowwidgt.h"
#include "plugin/vltagmanagersingleton.h"
#include "taglist/vltaglistview.h"
#include "tests/library/libraryfixture.h"
#include "tests/support/gestures.h"
#include "window/vltagmanagerwidget.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStackedWidget>
#include <QtTest>

#include <memory>

namespace {

constexpr int allTagsPage = 0;
constexpr int categoriesPage = 1;
constexpr int favoritesPage = 2;

/// The tag manager window on a library in SQLite, and a person in front of it.
class Person
{
public:
    Person() { sitDown(); }

    ~Person() { leave(); }

    void sitDown()
    {
        auto* state = VLTagManagerSingleton::instance();
        state->setTagColorProvider(TagPalette::instance());
        state->setDataProvider(fixture.library()->dataProvider());
        window = std::make_unique<VLTagManagerWidget>(nullptr);
        window->resize(1100, 700);
        window->show();
    }

    void leave()
    {
        window.reset();
        VLTagManagerSingleton::instance()->clear();
        VLTagManagerSingleton::instance()->setTagColorProvider(nullptr);
    }

    /// Ends the program and starts it again.
    bool restart()
    {
        leave();
        if (!fixture.reopen())
            return false;
        sitDown();
        return true;
    }

    QWidget* page(int index) const { return window->findChild<QStackedWidget*>()->widget(index); }

    void turnTo(int pageIndex) const
    {
        static const char* const texts[] = {"All Tags", "Tag Categories", "Favorite Tags"};
        for (auto* button : window->findChildren<QPushButton*>(QStringLiteral("tag_manager_title_btn"))) {
            if (button->text() == QLatin1String(texts[pageIndex]))
                QTest::mouseClick(button, Qt::LeftButton);
        }
    }

    QStringList chips(int pageIndex) const { return gestures::shownChips(page(pageIndex)); }

    /// The menu that is open.
    static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

    /// Where the window system sends keys while a menu is open.
    static QWidget* keyTarget(QMenu* open)
    {
        QWidget* focus = QApplication::focusWidget();
        return focus && open->isAncestorOf(focus) ? focus : open;
    }

    /// Walks down the open menu to the entry with the arrow keys and presses Enter.
    static bool chooseByKeyboard(const QString& entry)
    {
        QMenu* open = menu();
        for (int steps = 0; open && steps < 20; ++steps) {
            QTest::keyClick(keyTarget(open), Qt::Key_Down);
            if (open->activeAction() && open->activeAction()->text() == entry) {
                QTest::keyClick(open, Qt::Key_Return);
                return true;
            }
        }
        return false;
    }

    /// Walks down the open menu to the entry and into its sub-menu.
    static bool openSubMenuByKeyboard(const QString& entry)
    {
        QMenu* open = menu();
        for (int steps = 0; open && steps < 20; ++steps) {
            QTest::keyClick(open, Qt::Key_Down);
            if (open->activeAction() && open->activeAction()->text() == entry) {
                QTest::keyClick(open, Qt::Key_Right);
                return menu() != open;
            }
        }
        return false;
    }

    static bool chooseByMouse(const QString& entry)
    {
        QMenu* open = menu();
        if (!open)
            return false;
        for (QAction* action : open->actions()) {
            if (action->text() != entry)
                continue;
            QTest::mouseClick(open, Qt::LeftButton, {}, open->actionGeometry(action).center());
            return true;
        }
        return false;
    }

    static QWidget* dialog() { return QApplication::activeModalWidget(); }

    /// Types a name into the open dialog and confirms with Enter.
    static void enterName(const QString& name)
    {
        auto* field = dialog()->findChild<QLineEdit*>(QStringLiteral("tag_popup_line_edit"));
        field->selectAll();
        QTest::keyClicks(field, name);
        QTest::keyClick(field, Qt::Key_Return);
    }

    static void press(const QString& buttonName)
    {
        QTest::mouseClick(dialog()->findChild<QPushButton*>(buttonName), Qt::LeftButton);
    }

    bool createTag(const QString& name) const
    {
        QTest::mouseClick(page(allTagsPage)->findChild<QPushButton*>(QStringLiteral("create_tag_btn")), Qt::LeftButton);
        enterName(name);
        return QTest::qWaitFor([] { return !dialog(); });
    }

    CTagGroupItemWidget* tile(const QString& name) const
    {
        for (auto* each : page(categoriesPage)->findChildren<CTagGroupItemWidget*>()) {
            const auto* label = each->findChild<QLabel*>(QStringLiteral("tag_group_name_label"));
            if (label && label->text() == name)
                return each;
        }
        return nullptr;
    }

    bool createCategory(const QString& name) const
    {
        for (auto* each : page(categoriesPage)->findChildren<CTagGroupItemWidget*>()) {
            if (each->isVisible() && !each->findChild<QLabel*>())
                QTest::mouseClick(each, Qt::LeftButton);
        }
        enterName(name);
        return QTest::qWaitFor([] { return !dialog(); });
    }

    LibraryFixture fixture;
    std::unique_ptr<VLTagManagerWidget> window;
};

}  // namespace

class CommandRoadsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void createAndFindAgain();
    void viewFiles();
    void favoriteAndCancel();
    void renameIntoAnotherLetter();
    void takenAndEmptyNamesAreRefused();
    void recolourByKeyboard();
    void deleteTag();
    void categoriesFromCreationToDeletion();
    void twoWindowsShowTheSame();
    void libraryThatCannotBeWrittenChangesNothing();

private:
    /// The window, the providers and the database say the same.
    bool agrees() const { return m_person->fixture.shown() == m_person->fixture.stored(); }

    std::unique_ptr<Person> m_person;
};

void CommandRoadsTest::init()
{
    m_person = std::make_unique<Person>();
    QVERIFY(m_person->fixture.isOpen());
}

void CommandRoadsTest::cleanup()
{
    m_person.reset();
}

void CommandRoadsTest::createAndFindAgain()
{
    for (const QString& name : {QStringLiteral("apple"), QStringLiteral("<b>x</b> & %1"), QStringLiteral("avocado")})
        QVERIFY(m_person->createTag(name));
    const QStringList expected{"<: <b>x</b> & %1", "A: apple, avocado"};
    QTRY_COMPARE(m_person->chips(allTagsPage), expected);
    QCOMPARE(m_person->page(allTagsPage)->findChild<QLabel*>("all_tag_count_label")->text(), QStringLiteral("(3)"));
    QTRY_VERIFY(agrees());
    QVERIFY(m_person->restart());
    QTRY_COMPARE(m_person->chips(allTagsPage), expected);
}

void CommandRoadsTest::viewFiles()
{
    QVERIFY(m_person->createTag(QStringLiteral("apple")));
    QSignalSpy files(m_person->window.get(), &IVLTagManagerWidget::signalCheckoutTagFile);
    QVERIFY(gestures::doubleClickChip(m_person->page(allTagsPage), QStringLiteral("apple")));
    QVERIFY(gestures::rightClickChip(m_person->page(allTagsPage), QStringLiteral("apple")));
    QVERIFY(Person::chooseByMouse(QStringLiteral("View Related Files")));
    QCOMPARE(files.count(), 2);
    QCOMPARE(files[1][0].value<QVector<qint64>>(), QVector<qint64>{1});
}

void CommandRoadsTest::favoriteAndCancel()
{
    QVERIFY(m_person->createTag(QStringLiteral("apple")));
    QVERIFY(gestures::rightClickChip(m_person->page(allTagsPage), QStringLiteral("apple")));
    QVERIFY(Person::chooseByKeyboard(QStringLiteral("Set as Favorite Tag")));
    m_person->turnTo(favoritesPage);
    QTRY_COMPARE(m_person->chips(favoritesPage), QStringList({"A: apple"}));
    QVERIFY(m_person->restart());
    m_person->turnTo(favoritesPage);
    QTRY_COMPARE(m_person->chips(favoritesPage), QStringList({"A: apple"}));
    QVERIFY(gestures::rightClickChip(m_person->page(favoritesPage), QStringLiteral("apple")));
    QVERIFY(Person::chooseByMouse(QStringLiteral("Cancel set as Favorite Tag")));
    QTRY_VERIFY(m_person->chips(favoritesPage).isEmpty());
    QTRY_VERIFY(agrees());
}

void CommandRoadsTest::renameIntoAnotherLetter()
{
    QVERIFY(m_person->createTag(QStringLiteral("apple")));
    QVERIFY(m_person->createTag(QStringLiteral("avocado")));
    QVERIFY(gestures::rightClickChip(m_person->page(allTagsPage), QStringLiteral("apple")));
    QVERIFY(Person::chooseByKeyboard(QStringLiteral("Rename Tag")));
    QCOMPARE(Person::dialog()->findChild<QLineEdit*>("tag_popup_line_edit")->text(), QStringLiteral("apple"));
    Person::enterName(QStringLiteral("zebra"));
    QTRY_COMPARE(m_person->chips(allTagsPage), QStringList({"A: avocado", "Z: zebra"}));
    QTRY_VERIFY(!Person::dialog());
    QTRY_VERIFY(agrees());
    QVERIFY(m_person->restart());
    QTRY_COMPARE(m_person->chips(allTagsPage), QStringList({"A: avocado", "Z: zebra"}));
}

void CommandRoadsTest::takenAndEmptyNamesAreRefused()
{
    QVERIFY(m_person->createTag(QStringLiteral("apple")));
    QTest::mouseClick(m_person->page(allTagsPage)->findChild<QPushButton*>("create_tag_btn"), Qt::LeftButton);
    const auto tip = [] { return Person::dialog()->findChild<QLabel*>(QStringLiteral("tag_popup_tip")); };
    Person::enterName(QStringLiteral(" apple "));
    QCOMPARE(tip()->text(), QStringLiteral("Name already exists"));
    Person::enterName(QStringLiteral("   "));
    QCOMPARE(tip()->text(), QStringLiteral("Please insert a name"));
    QTest::keyClick(Person::dialog(), Qt::Key_Escape);
    QVERIFY(Person::dialog());
    // Taken by another program between the check and the request: the dialog stays, nothing changes.
    const QStringList before = m_person->fixture.stored();
    Person::enterName(QStringLiteral("All about it, and more"));
    QCOMPARE(tip()->text(), QStringLiteral("20 characters maximum"));
    Person::dialog()->close();
    QCOMPARE(m_person->fixture.stored(), before);
}

void CommandRoadsTest::recolourByKeyboard()
{
    QVERIFY(m_person->createTag(QStringLiteral("apple")));
    const QColor before = gestures::findChip(m_person->page(allTagsPage), "apple")
                              .view->tagAt(gestures::findChip(m_person->page(allTagsPage), "apple").index)
                              .color;
    QVERIFY(gestures::rightClickChip(m_person->page(allTagsPage), QStringLiteral("apple")));
    QMenu* menu = Person::menu();
    QWidget* row = nullptr;
    for (int steps = 0; !row && steps < 10; ++steps) {
        QTest::keyClick(Person::keyTarget(menu), Qt::Key_Down);
        QWidget* focus = QApplication::focusWidget();
        if (focus && qstrcmp(focus->metaObject()->className(), "VLTagColorAction") == 0)
            row = focus;
    }
    QVERIFY(row);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(row, Qt::Key_Right);
    QTest::keyClick(row, Qt::Key_Return);
    const auto color = [this] {
        const auto chip = gestures::findChip(m_person->page(allTagsPage), QStringLiteral("apple"));
        return chip.view->tagAt(chip.index).color;
    };
    QTRY_VERIFY(color() != before);
    const QColor after = color();
    QTest::keyClick(menu, Qt::Key_Escape);
    QTRY_VERIFY(agrees());
    QVERIFY(m_person->restart());
    QCOMPARE(color(), after);
}

void CommandRoadsTest::deleteTag()
{
    QVERIFY(m_person->createTag(QStringLiteral("apple")));
    QVERIFY(m_person->createTag(QStringLiteral("bee")));
    QVERIFY(gestures::rightClickChip(m_person->page(allTagsPage), QStringLiteral("apple")));
    QVERIFY(Person::chooseByKeyboard(QStringLiteral("Delete Tag")));
    Person::press(QStringLiteral("cancel_btn"));
    QTRY_VERIFY(!Person::dialog());
    QCOMPARE(m_person->chips(allTagsPage), QStringList({"A: apple", "B: bee"}));
    QVERIFY(gestures::rightClickChip(m_person->page(allTagsPage), QStringLiteral("apple")));
    QVERIFY(Person::chooseByMouse(QStringLiteral("Delete Tag")));
    Person::press(QStringLiteral("confirm_btn"));
    QTRY_COMPARE(m_person->chips(allTagsPage), QStringList({"B: bee"}));
    QTRY_VERIFY(agrees());
    QVERIFY(m_person->restart());
    QTRY_COMPARE(m_person->chips(allTagsPage), QStringList({"B: bee"}));
}

void CommandRoadsTest::categoriesFromCreationToDeletion()
{
    QVERIFY(m_person->createTag(QStringLiteral("apple")));
    m_person->turnTo(categoriesPage);
    QVERIFY(m_person->createCategory(QStringLiteral("fruit")));
    QTRY_VERIFY(m_person->tile(QStringLiteral("fruit")));
    QVERIFY(gestures::rightClickChip(m_person->page(categoriesPage), QStringLiteral("apple")));
    QVERIFY(Person::openSubMenuByKeyboard(QStringLiteral("Add to Category")));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!Person::menu());
    QTRY_VERIFY(m_person->chips(categoriesPage).isEmpty());
    QTest::mouseClick(m_person->tile("fruit"), Qt::LeftButton);
    QTRY_COMPARE(m_person->chips(categoriesPage), QStringList({"A: apple"}));
    QCOMPARE(m_person->tile("fruit")->findChild<QLabel*>("tag_group_count_label")->text(), QStringLiteral("1"));
    QTRY_VERIFY(agrees());

    QVERIFY(gestures::rightClickChip(m_person->page(categoriesPage), QStringLiteral("apple")));
    QVERIFY(Person::chooseByMouse(QStringLiteral("Remove the Tag from the Category")));
    QTRY_VERIFY(m_person->chips(categoriesPage).isEmpty());
    QTest::mouseClick(m_person->tile("fruit"), Qt::RightButton);
    QVERIFY(Person::chooseByKeyboard(QStringLiteral("Rename Category")));
    Person::enterName(QStringLiteral("food"));
    QTRY_VERIFY(m_person->tile(QStringLiteral("food")));
    QCOMPARE(m_person->page(categoriesPage)->findChild<QLabel*>("tag_manager_group_name")->text(), "food");
    QTRY_VERIFY(agrees());

    QTest::mouseClick(m_person->tile("food"), Qt::RightButton);
    QVERIFY(Person::chooseByMouse(QStringLiteral("Delete Category")));
    Person::press(QStringLiteral("confirm_btn"));
    QTRY_COMPARE(m_person->chips(categoriesPage), QStringList({"A: apple"}));
    QVERIFY(!m_person->tile(QStringLiteral("food")));
    QTRY_VERIFY(agrees());
}

void CommandRoadsTest::twoWindowsShowTheSame()
{
    VLTagManagerWidget second(nullptr);
    second.resize(1100, 700);
    second.show();
    QVERIFY(m_person->createTag(QStringLiteral("apple")));
    m_person->turnTo(categoriesPage);
    QVERIFY(m_person->createCategory(QStringLiteral("fruit")));
    QTRY_COMPARE(gestures::shownChips(second.findChild<QStackedWidget*>()->widget(allTagsPage)),
                 QStringList({"A: apple"}));
    const auto tiles = second.findChild<CTagGroupShowWidgt*>()->count();
    QCOMPARE(tiles, m_person->window->findChild<CTagGroupShowWidgt*>()->count());
    QCOMPARE(tiles, 2);
}

void CommandRoadsTest::libraryThatCannotBeWrittenChangesNothing()
{
    QVERIFY(m_person->createTag(QStringLiteral("apple")));
    const QStringList before = m_person->fixture.stored();
    QSqlDatabase::removeDatabase(QStringLiteral("holder"));
    {
        QSqlDatabase holder = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("holder"));
        holder.setDatabaseName(m_person->fixture.path());
        QVERIFY(holder.open());
        QVERIFY(holder.exec(QStringLiteral("BEGIN EXCLUSIVE")).lastError().type() == QSqlError::NoError);
        QTest::mouseClick(m_person->page(allTagsPage)->findChild<QPushButton*>("create_tag_btn"), Qt::LeftButton);
        Person::enterName(QStringLiteral("bee"));
        const auto action = VLTagManagerSingleton::instance()->tagAction();
        QSignalSpy answered(action.data(), &ITagAction::signalTagResult);
        QVERIFY(answered.wait(20000));
        const auto response = answered[0][1].value<QSharedPointer<const IResponseInfo>>();
        QVERIFY(response->status() != 0);
        QVERIFY(!response->message().isEmpty());
        QVERIFY(Person::dialog());
        Person::dialog()->close();
        holder.exec(QStringLiteral("ROLLBACK"));
        holder.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("holder"));
    QCOMPARE(m_person->chips(allTagsPage), QStringList({"A: apple"}));
    QCOMPARE(m_person->fixture.stored(), before);
}

QTEST_MAIN(CommandRoadsTest)
#include "tst_commandroads.moc"
