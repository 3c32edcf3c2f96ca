// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/ctaggroupitemwidget.h"
#include "pages/ctaggroupshowwidgt.h"
#include "pages/vlgrouptagwidget.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "window/vltagmanagerwidget.h"

#include <vleventtrack.h>

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

/// The categories page inside the window, worked with mouse and keyboard. Category 2 is "Art" and holds "apple",
/// category 3 is "Books" and empty, "banana" is in none.
class TestVLGroupTagWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fixedCategoryIsShownFirst();
    void clickedCategoryIsShown();
    void headerFollowsTheSelectedCategory();
    void menuEntriesFitTheCategory();
    void relatedFilesAreAskedFor();
    void categoryIsCreated();
    void categoryIsRenamed();
    void refusedRenamingLeavesTheDialogOpen();
    void categoryIsDeletedAfterConfirmation();
    void refusedDeletionIsLogged();
    void nameInTheConfirmationIsNoMarkup();
    void tagIsFiledIntoACategory();
    void withoutActionsNothingHappens();
    void newsIsSpreadOnce();
    void hostRemovesTheSelectedCategory();
    void hostRemovesWhatADialogIsAbout();
    void twoWindowsFollowEachOther();
    void inheritedOperationsAreSafe();
    void withoutALibraryThePageIsEmpty();
    void longNamesDoNotWidenTheWindow();
    void createButtonOpensTheTagDialog();

private:
    void openWindow();
    CTagGroupItemWidget* tile(const QString& name) const;
    CTagGroupItemWidget* addNewTile() const;
    QString tiles() const;
    QString header() const;
    QMenu* menu() const { return m_page->findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly); }
    QString enabledEntries() const;
    void openMenu(const QString& name);
    void choose(const QString& entry);
    VLTagModifyWidget* dialog() const { return m_page->findChild<VLTagModifyWidget*>(); }
    void enterName(const QString& name);
    VLMessageBox* box() const { return m_window->findChild<VLMessageBox*>(); }
    void answerBox(const QString& buttonName);
    void askToDelete(const QString& name);
    bool isLogged(const QString& line);

    std::unique_ptr<InstalledHost> m_host;
    std::unique_ptr<VLTagManagerWidget> m_window;
    std::unique_ptr<MessageCatcher> m_log;
    QStringList m_lines;
    VLGroupTagWidget* m_page = nullptr;
};

void TestVLGroupTagWidget::init()
{
    m_host = std::make_unique<InstalledHost>(QStringList{QStringLiteral("apple"), QStringLiteral("banana")});
    m_host->addGroups({QStringLiteral("Art"), QStringLiteral("Books")});
    m_host->addTagsToGroups({2}, {1});
    openWindow();
}

void TestVLGroupTagWidget::openWindow()
{
    m_log.reset();
    m_window = std::make_unique<VLTagManagerWidget>();
    m_page = m_window->findChild<VLGroupTagWidget*>();
    m_window->resize(1000, 700);
    QMetaObject::invokeMethod(m_window.get(), "slotSelectedGroup");
    m_window->show();
    m_log = std::make_unique<MessageCatcher>();
    m_lines.clear();
}

void TestVLGroupTagWidget::cleanup()
{
    m_log.reset();
    m_window.reset();
    m_host.reset();
}

CTagGroupItemWidget* TestVLGroupTagWidget::tile(const QString& name) const
{
    for (auto* label : m_page->findChildren<QLabel*>(QStringLiteral("tag_group_name_label"))) {
        if (label->text().remove(QLatin1Char('\n')) == name)
            return static_cast<CTagGroupItemWidget*>(label->parentWidget());
    }
    return nullptr;
}

CTagGroupItemWidget* TestVLGroupTagWidget::addNewTile() const
{
    const auto* list = m_page->findChild<CTagGroupShowWidgt*>();
    return static_cast<CTagGroupItemWidget*>(list->itemWidget(list->item(list->count() - 1)));
}

/// The tiles in their order with their counts, the selected one in brackets.
QString TestVLGroupTagWidget::tiles() const
{
    const auto* list = m_page->findChild<CTagGroupShowWidgt*>();
    QStringList texts;
    for (const auto* each : m_page->findChildren<CTagGroupItemWidget*>()) {
        if (!each->provider() || each->isHidden())
            continue;
        QString text;
        for (const QLabel* label : each->findChildren<QLabel*>())
            text += label->text().remove(QLatin1Char('\n')) + QLatin1Char(' ');
        texts << (each->isSelected() ? QLatin1Char('[') + text.trimmed() + QLatin1Char(']') : text.trimmed());
    }
    std::sort(texts.begin(), texts.end());
    return texts.join(QLatin1Char(' ')) + QStringLiteral(" (%1)").arg(list->count() - 1);
}

QString TestVLGroupTagWidget::header() const
{
    return m_page->findChild<QLabel*>(QStringLiteral("tag_manager_group_name"))->text() +
           m_page->findChild<QLabel*>(QStringLiteral("tag_manager_group_count"))->text();
}

QString TestVLGroupTagWidget::enabledEntries() const
{
    QStringList texts;
    for (const QAction* action : menu()->actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->isEnabled() ? action->text() : QString());
    return texts.join(QLatin1Char('|'));
}

void TestVLGroupTagWidget::openMenu(const QString& name)
{
    QTest::mouseClick(tile(name), Qt::RightButton);
    QTRY_VERIFY(menu()->isVisible());
}

void TestVLGroupTagWidget::choose(const QString& entry)
{
    for (QAction* action : menu()->actions()) {
        if (action->text() == entry)
            QTest::mouseClick(menu(), Qt::LeftButton, {}, menu()->actionGeometry(action).center());
    }
}

void TestVLGroupTagWidget::enterName(const QString& name)
{
    QTRY_VERIFY(dialog() && dialog()->isVisible());
    dialog()->lineEdit()->clear();
    QTest::keyClicks(dialog()->lineEdit(), name);
    QTest::keyClick(dialog()->lineEdit(), Qt::Key_Return);
}

void TestVLGroupTagWidget::answerBox(const QString& buttonName)
{
    QTRY_VERIFY(box() && box()->isVisible());
    QTest::mouseClick(box()->findChild<QPushButton*>(buttonName), Qt::LeftButton);
}

void TestVLGroupTagWidget::askToDelete(const QString& name)
{
    openMenu(name);
    choose(QStringLiteral("Delete Category"));
    QTRY_VERIFY(box() && box()->isVisible());
}

/// Whether the line was written since the window was opened.
bool TestVLGroupTagWidget::isLogged(const QString& line)
{
    m_lines += m_log->take();
    return m_lines.contains(line);
}

void TestVLGroupTagWidget::fixedCategoryIsShownFirst()
{
    QCOMPARE(tiles(), QStringLiteral("Art 1 Books 0 [Uncategorized 1] (2)"));
    QCOMPARE(header(), QStringLiteral("Uncategorized(1)"));
    QCOMPARE(gestures::shownChips(m_page), QStringList{QStringLiteral("B: banana")});
}

void TestVLGroupTagWidget::clickedCategoryIsShown()
{
    QTest::mouseClick(tile(QStringLiteral("Art")), Qt::LeftButton);
    QCOMPARE(tiles(), QStringLiteral("Books 0 Uncategorized 1 [Art 1] (2)"));
    QCOMPARE(header(), QStringLiteral("Art(1)"));
    QCOMPARE(gestures::shownChips(m_page), QStringList{QStringLiteral("A: apple")});
    QTest::mouseClick(tile(QStringLiteral("Uncategorized")), Qt::LeftButton);
    QCOMPARE(tiles(), QStringLiteral("Art 1 Books 0 [Uncategorized 1] (2)"));
    QCOMPARE(header(), QStringLiteral("Uncategorized(1)"));
    QCOMPARE(gestures::shownChips(m_page), QStringList{QStringLiteral("B: banana")});
}

void TestVLGroupTagWidget::headerFollowsTheSelectedCategory()
{
    m_host->addTag(QStringLiteral("cherry"));
    QCOMPARE(header(), QStringLiteral("Uncategorized(2)"));
    m_host->renameGroup(2, QStringLiteral("Crafts"));
    QCOMPARE(header(), QStringLiteral("Uncategorized(2)"));
    QTest::mouseClick(tile(QStringLiteral("Crafts")), Qt::LeftButton);
    m_host->renameGroup(2, QStringLiteral("A & <i>B</i>"));
    QCOMPARE(header(), QStringLiteral("A & <i>B</i>(1)"));
    m_host->removeTags({1});
    QCOMPARE(header(), QStringLiteral("A & <i>B</i>(0)"));
}

void TestVLGroupTagWidget::menuEntriesFitTheCategory()
{
    openMenu(QStringLiteral("Uncategorized"));
    QCOMPARE(enabledEntries(), QStringLiteral("View Related Files|-||"));
    menu()->close();
    openMenu(QStringLiteral("Books"));
    QCOMPARE(enabledEntries(), QStringLiteral("|-|Rename Category|Delete Category"));
    QTest::keyClick(menu(), Qt::Key_Escape);
    QVERIFY(!menu()->isVisible());
    openMenu(QStringLiteral("Art"));
    QCOMPARE(enabledEntries(), QStringLiteral("View Related Files|-|Rename Category|Delete Category"));
    QTest::mouseClick(addNewTile(), Qt::RightButton);
    QVERIFY(!dialog());
}

void TestVLGroupTagWidget::relatedFilesAreAskedFor()
{
    QVector<qint64> asked;
    connect(m_window.get(), &VLTagManagerWidget::signalCheckoutGroupFile, this,
            [&asked](const QVector<qint64>& ids) { asked += ids; });
    openMenu(QStringLiteral("Art"));
    m_log->take();
    choose(QStringLiteral("View Related Files"));
    QCOMPARE(asked, QVector<qint64>{2});
    QCOMPARE(m_log->take(), QStringList{QStringLiteral("VLGroupTagWidget::signalCheckGroupFiles gId: 2")});
}

void TestVLGroupTagWidget::categoryIsCreated()
{
    QTest::mouseClick(addNewTile(), Qt::LeftButton);
    QVERIFY(dialog()->isModal());
    m_host->setAnswers(MemoryHost::Answers::OnDemand);
    enterName(QStringLiteral("  Aardvarks "));
    QCOMPARE(m_host->requestTexts(), QStringList{QStringLiteral("addTagGroup names Aardvarks")});
    QCOMPARE(m_log->take(), QStringList{QStringLiteral("VLGroupTagWidget::slotAddGroup name: \"Aardvarks\"")});
    QVERIFY(dialog()->isVisible());

    m_host->answer(m_host->requests().first(), MemoryHost::response());
    QVERIFY(dialog()->isVisible());
    m_host->carryOut(m_host->requests().first());
    QTRY_VERIFY(!dialog());
    QCOMPARE(tiles(), QStringLiteral("Aardvarks 0 Art 1 Books 0 [Uncategorized 1] (3)"));
    QCOMPARE(m_log->take(), QStringList());
}

void TestVLGroupTagWidget::categoryIsRenamed()
{
    openMenu(QStringLiteral("Books"));
    choose(QStringLiteral("Rename Category"));
    QTRY_VERIFY(dialog());
    QCOMPARE(dialog()->lineEdit()->text(), QStringLiteral("Books"));
    enterName(QStringLiteral("Arias"));
    QCOMPARE(m_host->requestTexts(), QStringList{QStringLiteral("renameTagGroup groups 3 names Arias")});
    QCOMPARE(m_log->take(),
             QStringList{QStringLiteral("VLGroupTagWidget::slotRenameGroup gId: 3  newName: \"Arias\"")});
    QTRY_VERIFY(!dialog());
    QCOMPARE(tiles(), QStringLiteral("Art 1 Uncategorized 1 [Arias 0] (2)"));
    QCOMPARE(header(), QStringLiteral("Arias(0)"));
    const auto* list = m_page->findChild<CTagGroupShowWidgt*>();
    QCOMPARE(list->itemWidget(list->item(0)), static_cast<QWidget*>(tile(QStringLiteral("Arias"))));
}

void TestVLGroupTagWidget::refusedRenamingLeavesTheDialogOpen()
{
    m_host->refuseWith(5, QStringLiteral("disk full"));
    openMenu(QStringLiteral("Books"));
    choose(QStringLiteral("Rename Category"));
    enterName(QStringLiteral("Arias"));
    QTRY_VERIFY(isLogged(QStringLiteral("VLGroupTagWidget::slotRenameGroup failed. Message: \"disk full\"")));
    QVERIFY(dialog()->isVisible());
    QCOMPARE(tiles(), QStringLiteral("Art 1 Uncategorized 1 [Books 0] (2)"));
}

void TestVLGroupTagWidget::categoryIsDeletedAfterConfirmation()
{
    askToDelete(QStringLiteral("Art"));
    QCOMPARE(box()->findChild<QLabel*>(QStringLiteral("tips_lab"))->text(), QStringLiteral("Delete Category"));
    QVERIFY(!box()->findChild<QPushButton*>(QStringLiteral("btn_close"))->isVisible());
    answerBox(QStringLiteral("cancel_btn"));
    QTRY_VERIFY(!box());
    QCOMPARE(tiles(), QStringLiteral("Books 0 Uncategorized 1 [Art 1] (2)"));
    QCOMPARE(m_log->take() + m_host->requestTexts(), QStringList());

    askToDelete(QStringLiteral("Art"));
    m_host->setAnswers(MemoryHost::Answers::OnDemand);
    answerBox(QStringLiteral("confirm_btn"));
    QCOMPARE(tiles(), QStringLiteral("Books 0 [Uncategorized 1] (1)"));
    QCOMPARE(header(), QStringLiteral("Uncategorized(1)"));
    QCOMPARE(gestures::shownChips(m_page), QStringList{QStringLiteral("B: banana")});
    QCOMPARE(m_log->take(), QStringList{QStringLiteral("VLGroupTagWidget::slotDelGroup gId: 2")});
    m_host->carryOut(m_host->requests().first());
    QCOMPARE(header(), QStringLiteral("Uncategorized(2)"));
}

void TestVLGroupTagWidget::refusedDeletionIsLogged()
{
    m_host->refuseWith(5, QStringLiteral("locked"));
    askToDelete(QStringLiteral("Books"));
    answerBox(QStringLiteral("confirm_btn"));
    QVERIFY(isLogged(QStringLiteral("VLGroupTagWidget::slotDelGroup gId: 3")));
    QTRY_VERIFY(isLogged(QStringLiteral("VLGroupTagWidget::slotDelGroup failed. Message: \"locked\"")));
    QCOMPARE(tiles(), QStringLiteral("Art 1 [Uncategorized 1] (1)"));
}

void TestVLGroupTagWidget::nameInTheConfirmationIsNoMarkup()
{
    m_host->renameGroup(3, QStringLiteral("<b>%4</b>&amp;"));
    QTest::mouseClick(tile(QStringLiteral("Art")), Qt::LeftButton);
    m_page->slotDelGroup(3);
    const QString text = box()->findChild<QLabel*>(QStringLiteral("lab_context"))->text();
    QVERIFY2(!text.contains(QStringLiteral("<b>")), qUtf8Printable(text));
    QVERIFY(text.contains(QStringLiteral("> 0 <")));
    answerBox(QStringLiteral("cancel_btn"));
    m_page->slotDelGroup(999);
    QTRY_VERIFY(!box());
}

void TestVLGroupTagWidget::tagIsFiledIntoACategory()
{
    m_page->slotAddGroupTag(3, 2);
    QCOMPARE(m_log->take(), QStringList{QStringLiteral("VLGroupTagWidget::slotAddGroupTag tId: 2  gId: 3")});
    QCOMPARE(m_host->requestTexts(), QStringList{QStringLiteral("addTagsToGroups groups 3 tags 2")});
    QTRY_COMPARE(tiles(), QStringLiteral("Art 1 Books 1 [Uncategorized 0] (2)"));
    QCOMPARE(header(), QStringLiteral("Uncategorized(0)"));

    m_host->refuseWith(1, QStringLiteral("no"));
    m_page->slotAddGroupTag(2, 2);
    QTRY_VERIFY(isLogged(QStringLiteral("VLGroupTagWidget::slotAddGroupTag failed. Message: \"no\"")));
}

void TestVLGroupTagWidget::withoutActionsNothingHappens()
{
    m_host->memoryLibrary()->tagActionObject.reset();
    m_host->memoryLibrary()->groupActionObject.reset();
    openWindow();
    m_log->take();
    QTest::mouseClick(addNewTile(), Qt::LeftButton);
    enterName(QStringLiteral("Arias"));
    dialog()->close();
    askToDelete(QStringLiteral("Art"));
    answerBox(QStringLiteral("confirm_btn"));
    m_page->slotAddGroupTag(3, 2);
    QCOMPARE(m_log->take() + m_host->requestTexts(), QStringList());
    QCOMPARE(tiles(), QStringLiteral("Books 0 Uncategorized 1 [Art 1] (2)"));
}

void TestVLGroupTagWidget::newsIsSpreadOnce()
{
    QSignalSpy added(VLTagManagerSingleton::instance(), &VLTagManagerSingleton::signalAddGroupAction);
    QSignalSpy removed(VLTagManagerSingleton::instance(), &VLTagManagerSingleton::signalRemoveGroupAction);
    m_host->addGroups({QStringLiteral("x"), QStringLiteral("y")});
    QCOMPARE(added.count(), 2);
    m_page->addGroups({4, 4, 999, -1000, 5});
    QCOMPARE(added.count(), 2);
    QCOMPARE(tiles(), QStringLiteral("Art 1 Books 0 [Uncategorized 1] x 0 y 0 (4)"));
    m_host->removeGroups({4, 5});
    QCOMPARE(removed.count(), 2);
    m_page->removeGroups({4, 999});
    QCOMPARE(tiles(), QStringLiteral("Art 1 Books 0 [Uncategorized 1] (2)"));
}

void TestVLGroupTagWidget::hostRemovesTheSelectedCategory()
{
    openMenu(QStringLiteral("Art"));
    m_host->removeGroup(2);
    QCOMPARE(tiles(), QStringLiteral("Books 0 [Uncategorized 2] (1)"));
    QCOMPARE(header(), QStringLiteral("Uncategorized(2)"));
    QCOMPARE(gestures::shownChips(m_page), (QStringList{QStringLiteral("A: apple"), QStringLiteral("B: banana")}));
    choose(QStringLiteral("Delete Category"));
    QVERIFY(!box());

    QTest::mouseClick(tile(QStringLiteral("Uncategorized")), Qt::LeftButton);
    m_host->removeGroup(3);
    QCOMPARE(tiles(), QStringLiteral("[Uncategorized 2] (0)"));
}

void TestVLGroupTagWidget::hostRemovesWhatADialogIsAbout()
{
    askToDelete(QStringLiteral("Art"));
    m_host->removeGroup(2);
    answerBox(QStringLiteral("confirm_btn"));
    QCOMPARE(tiles(), QStringLiteral("Books 0 [Uncategorized 2] (1)"));

    openMenu(QStringLiteral("Books"));
    choose(QStringLiteral("Rename Category"));
    QTRY_VERIFY(dialog());
    m_host->removeGroup(3);
    QVERIFY(dialog()->isVisible());
    enterName(QStringLiteral("Arias"));
    QCOMPARE(m_host->requests().last().text(), QStringLiteral("renameTagGroup groups 3 names Arias"));
    QCOMPARE(tiles(), QStringLiteral("[Uncategorized 2] (0)"));
    QPointer<VLTagModifyWidget> open = dialog();
    m_window.reset();
    QVERIFY(!open);
}

void TestVLGroupTagWidget::twoWindowsFollowEachOther()
{
    VLTagManagerWidget other;
    const auto* otherList = other.findChild<CTagGroupShowWidgt*>();
    QSignalSpy added(VLTagManagerSingleton::instance(), &VLTagManagerSingleton::signalAddGroupAction);
    QTest::mouseClick(addNewTile(), Qt::LeftButton);
    enterName(QStringLiteral("Both"));
    QTRY_COMPARE(otherList->count(), 4);
    QCOMPARE(added.count(), 2);
    askToDelete(QStringLiteral("Both"));
    answerBox(QStringLiteral("confirm_btn"));
    QTRY_COMPARE(otherList->count(), 3);
    QCOMPARE(tiles(), QStringLiteral("Art 1 Books 0 [Uncategorized 1] (2)"));
}

void TestVLGroupTagWidget::inheritedOperationsAreSafe()
{
    emit m_page->signSearchChanged(QStringLiteral("a"));
    m_page->slotSetOriScrollValue(10);
    m_page->slotSetGroupScrollValue(10);
    m_page->rebuild();
    m_page->updatePage();
    QTRY_COMPARE(gestures::shownChips(m_page), QStringList{QStringLiteral("B: banana")});

    QStringList names;
    for (int number = 0; number < 80; ++number)
        names << QStringLiteral("n%1").arg(number);
    m_host->addGroups(names);
    auto* bar = m_page->findChild<QScrollArea*>(QStringLiteral("tag_group_scroll"))->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 100);
    m_page->slotSetGroupScrollValue(100);
    QCOMPARE(bar->value(), 100);
    m_page->slotSetGroupScrollValue(bar->maximum());
    QVERIFY(!addNewTile()->visibleRegion().isEmpty());
    QCOMPARE(addNewTile()->visibleRegion().boundingRect(), addNewTile()->rect());
}

void TestVLGroupTagWidget::withoutALibraryThePageIsEmpty()
{
    m_window.reset();
    VLTagManagerSingleton::instance()->clear();
    openWindow();
    QCOMPARE(tiles(), QStringLiteral(" (0)"));
    QTest::mouseClick(addNewTile(), Qt::LeftButton);
    enterName(QStringLiteral("x"));
    m_page->addGroups({2});
    m_page->removeGroups({2});
    m_page->slotPopMenu(2, QStringLiteral("x"));
    QCOMPARE(enabledEntries(), QStringLiteral("|-|Rename Category|Delete Category"));
}

void TestVLGroupTagWidget::longNamesDoNotWidenTheWindow()
{
    const int width = m_window->minimumSizeHint().width();
    m_host->renameGroup(2, QString(2000, QLatin1Char('W')));
    QTest::mouseClick(tile(QStringLiteral("WWWWWWWW")), Qt::LeftButton);
    QCOMPARE(header().size(), 2003);
    QTRY_COMPARE(m_window->minimumSizeHint().width(), width);
    QCOMPARE(m_window->width(), 1000);
    const auto* count = m_page->findChild<QLabel*>(QStringLiteral("tag_manager_group_count"));
    QTRY_COMPARE(count->visibleRegion().boundingRect(), count->rect());
}

void TestVLGroupTagWidget::createButtonOpensTheTagDialog()
{
    QSignalSpy tracked(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked);
    QTest::mouseClick(m_page->findChild<QPushButton*>(QStringLiteral("create_tag_btn")), Qt::LeftButton);
    QCOMPARE(tracked.count(), 1);
    QCOMPARE(tracked.at(0), (QVariantList{QStringLiteral("ClickTagManagerAddBtn"), QVariant(QVariantList{1})}));
    QTRY_VERIFY(dialog() && dialog()->isVisible());
}

QTEST_MAIN(TestVLGroupTagWidget)
#include "tst_vlgrouptagwidget.moc"
