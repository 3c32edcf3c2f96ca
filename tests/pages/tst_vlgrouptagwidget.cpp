// SPDX-License-Identifier: MIT
#include "dialogs/vlmessagebox.h"
#include "dialogs/vltagmodifywidget.h"
#include "pages/ctaggroupitemwidget.h"
#include "pages/vlgrouptagwidget.h"
#include "tests/support/gestures.h"
#include "tests/support/installedhost.h"
#include "tests/support/messagecatcher.h"
#include "tests/support/windowuser.h"

#include <ivltagmanagerwidget.h>
#include <vleventtrack.h>

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
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
    void init()
    {
        m_host = std::make_unique<InstalledHost>(QStringList{QStringLiteral("apple"), QStringLiteral("banana")});
        m_host->addGroups({QStringLiteral("Art"), QStringLiteral("Books")});
        m_host->addTagsToGroups({2}, {1});
        m_user = std::make_unique<WindowUser>();
        m_user->selectPage(WindowUser::Categories);
        m_page = static_cast<VLGroupTagWidget*>(m_user->page(WindowUser::Categories));
        m_log = std::make_unique<MessageCatcher>();
        m_lines.clear();
    }

    void cleanup()
    {
        m_log.reset();
        m_user.reset();
        m_host.reset();
    }

    void tilesStayWhereTheyAreWhenTheWidthChanges()
    {
        QStringList names;
        for (int n = 10; n < 90; ++n)
            names << QStringLiteral("c%1").arg(n);
        m_host->addGroups(names);
        settle();
        auto* area = m_page->findChild<QScrollArea*>(QStringLiteral("tag_group_scroll"));
        QScrollBar* bar = area->verticalScrollBar();
        bar->setValue(bar->maximum() / 2);
        const int value = bar->value();
        const auto topOf = [area](const QWidget* tile) { return tile->mapTo(area->viewport(), QPoint()).y(); };
        const auto inView = [&](const QString& name) {
            const int top = topOf(m_user->tile(name));
            return top > 0 && top + CTagGroupItemWidget::sideLength < area->viewport()->height();
        };
        const auto clicked = std::find_if(names.cbegin(), names.cend(), inView);
        QVERIFY(clicked != names.cend());
        const QSize size = m_user->window()->size();
        for (const bool selects : {false, true}) {
            // Without a selected one in view, it is the topmost tile that stays.
            if (selects)
                m_user->clickTile(m_user->tile(*clicked));
            const int top = topOf(m_user->tile(*clicked));
            m_user->window()->resize(size.width() - 330, size.height());
            QVERIFY(inView(*clicked));
            if (selects)
                QCOMPARE(topOf(m_user->tile(*clicked)), top);
            m_user->window()->resize(size);
            QCOMPARE(bar->value(), value);
        }
    }

    /// That commands do what they should is seen by the random walk.
    void commandsAreLogged()
    {
        struct Command
        {
            std::function<void()> give;
            QString logged;
            QString failure;
        };
        const QVector<Command> commands = {
            {[this] { choose("Art", "View Related Files"); }, "VLGroupTagWidget::signalCheckGroupFiles gId: 2", {}},
            {[this] {
                 m_user->clickTile(m_user->addNewTile());
                 m_user->enterName("  Aardvarks ");
             },
             "VLGroupTagWidget::slotAddGroup name: \"Aardvarks\"",
             {}},
            {[this] {
                 choose("Books", "Rename Category");
                 m_user->enterName("Arias");
             },
             "VLGroupTagWidget::slotRenameGroup gId: 3  newName: \"Arias\"",
             "VLGroupTagWidget::slotRenameGroup failed. Message: \"no\""},
            {[this] { m_page->slotAddGroupTag(3, 2); }, "VLGroupTagWidget::slotAddGroupTag tId: 2  gId: 3",
             "VLGroupTagWidget::slotAddGroupTag failed. Message: \"no\""}};
        for (const Command& command : commands) {
            m_host->refuseWith(command.failure.isEmpty() ? 0 : 1, "no");
            command.give();
            settle();
            QVERIFY(isLogged(command.logged) && (command.failure.isEmpty() || isLogged(command.failure)));
            m_user->closeDialog();
        }
    }

    void dialogStaysUntilTheCategoryIsThere()
    {
        QTest::mouseClick(m_user->addNewTile(), Qt::RightButton);
        QVERIFY(!m_user->dialog());
        m_user->clickTile(m_user->addNewTile());
        m_host->setAnswers(MemoryHost::Answers::OnDemand);
        m_user->enterName(" Aardvarks");
        QCOMPARE(m_host->requestTexts(), QStringList{"addTagGroup names Aardvarks"});
        m_host->answer(m_host->requests().first(), MemoryHost::response());
        QVERIFY(m_user->dialog()->isVisible());
        m_host->requests().first().carryOut();
        QTRY_VERIFY(!m_user->dialog());
    }

    void categoryIsDeletedAfterConfirmation()
    {
        m_host->renameGroup(2, QStringLiteral("<b>%4</b>"));
        choose(QStringLiteral("<b>%4</b>"), QStringLiteral("Delete Category"));
        QCOMPARE(questionLabel("tips_lab")->text(), QStringLiteral("Delete Category"));
        QVERIFY(!m_user->box()->findChild<QPushButton*>(QStringLiteral("btn_close"))->isVisible());
        const QString question = questionLabel("lab_context")->text();
        QVERIFY2(!question.contains(QStringLiteral("<b>")) && question.contains(QStringLiteral("> 1 <")),
                 qPrintable(question));
        m_user->answerBox(false);
        QTRY_VERIFY(!m_user->box());
        QCOMPARE(m_log->take() + m_host->requestTexts(), QStringList());

        m_host->refuseWith(5, QStringLiteral("locked"));
        choose(QStringLiteral("<b>%4</b>"), QStringLiteral("Delete Category"));
        m_user->answerBox(true);
        QCOMPARE(tiles(), QStringLiteral("[Uncategorized 1] Books 0"));
        QCOMPARE(header(), QStringLiteral("Uncategorized(1)"));
        QCOMPARE(gestures::shownChips(m_page), QStringList{QStringLiteral("B: banana")});
        QVERIFY(isLogged(QStringLiteral("VLGroupTagWidget::slotDelGroup gId: 2")));
        QTRY_VERIFY(isLogged(QStringLiteral("VLGroupTagWidget::slotDelGroup failed. Message: \"locked\"")));
        m_page->slotDelGroup(999);
        QVERIFY(!m_user->box() || !m_user->box()->isVisible());
    }

    void newsIsSpreadOnce()
    {
        QSignalSpy added(VLTagManagerSingleton::instance(), &VLTagManagerSingleton::signalAddGroupAction);
        QSignalSpy removed(VLTagManagerSingleton::instance(), &VLTagManagerSingleton::signalRemoveGroupAction);
        m_host->addGroups({QStringLiteral("x"), QStringLiteral("y")});
        QCOMPARE(added.count(), 2);
        m_page->addGroups({4, 4, 999, -1000, 5});
        QCOMPARE(added.count(), 2);
        QCOMPARE(tiles(), QStringLiteral("[Uncategorized 1] Art 1 Books 0 x 0 y 0"));
        QSignalSpy updated(VLTagManagerSingleton::instance(), &VLTagManagerSingleton::signalUpdateGroupAction);
        m_host->renameGroup(4, QStringLiteral("z"));
        QCOMPARE(updated.count(), 1);
        QCOMPARE(updated.at(0).at(0).toLongLong(), 4LL);
        m_host->removeGroups({4, 5});
        QCOMPARE(removed.count(), 2);
        m_page->removeGroups({4, 999});
        QCOMPARE(tiles(), QStringLiteral("[Uncategorized 1] Art 1 Books 0"));
    }

    void createButtonOpensTheTagDialog()
    {
        QSignalSpy tracked(VlEventTrack::GetInstance(), &VlEventTrack::signalTracked);
        QTest::mouseClick(m_page->findChild<QPushButton*>(QStringLiteral("create_tag_btn")), Qt::LeftButton);
        QCOMPARE(tracked.count(), 1);
        QCOMPARE(tracked.at(0), (QVariantList{QStringLiteral("ClickTagManagerAddBtn"), QVariant(QVariantList{1})}));
        QTRY_VERIFY(m_user->dialog() && m_user->dialog()->isVisible());
    }

private:
    QString tiles() const { return m_user->tiles().join(QLatin1Char(' ')); }
    QString header() const { return m_user->header(); }

    void choose(const QString& groupName, const QString& entry)
    {
        QVERIFY(WindowUser::choose(m_user->openGroupMenu(groupName), entry));
    }

    QLabel* questionLabel(const char* name) const { return m_user->box()->findChild<QLabel*>(QLatin1String(name)); }

    /// Whether the line was written since the window was opened.
    bool isLogged(const QString& line)
    {
        m_lines += m_log->take();
        return m_lines.contains(line);
    }

    std::unique_ptr<InstalledHost> m_host;
    std::unique_ptr<WindowUser> m_user;
    std::unique_ptr<MessageCatcher> m_log;
    QStringList m_lines;
    VLGroupTagWidget* m_page = nullptr;
};

QTEST_MAIN(TestVLGroupTagWidget)
#include "tst_vlgrouptagwidget.moc"
